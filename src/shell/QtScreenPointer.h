#pragma once

#include "contracts/WaitCursor.h"

#include <QBasicTimer>
#include <QObject>

// The application's override cursor as the screen's pointer. Setting it costs next to nothing; what stands
// at the next visit to the event loop is shown.
class QtScreenPointer : public QObject, public ScreenPointer {
    Q_OBJECT

public:
    ~QtScreenPointer() override;

    int Get() const override { return m_wanted; }
    void Set(int pointer) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Show(int pointer);

    int m_wanted = Default;
    int m_shown = Default;
    QBasicTimer m_change;
};
