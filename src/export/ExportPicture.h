#pragma once

#include <QWidget>

class QLayout;

// The wizard's decoration: rows of a report on their way into a database.
class ExportPicture : public QWidget {
    Q_OBJECT

public:
    explicit ExportPicture(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// A shade and a light, which together look cut into the window: "Line1(0)" and "Line1(1)".
QLayout* EtchedLine(QWidget* parent);
