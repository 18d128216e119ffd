#pragma once

#include <QObject>

#include <functional>

class QWidget;
class frmHelp;

// F1 in a window: opens the help page of the nearest widget above the one with the focus, itself included,
// whose object name the book knows. Windows with an F1 command of their own, like the main window, keep it.
class HelpKey : public QObject {
    Q_OBJECT

public:
    // Watches the whole application as long as it lives. `window` answers the help window, which may be made
    // when it is first asked for.
    explicit HelpKey(std::function<frmHelp&()> window, QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::function<frmHelp&()> m_window;
};
