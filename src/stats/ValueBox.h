#pragma once

#include <QLineEdit>

#include <string_view>

// A value in a box that can be reached by keyboard and copied from, but not changed. What the box has no room
// for is left out with an ellipsis, until the box is entered, and told in full by a tool tip. The right mouse
// button is left to what lies below.
class ValueBox : public QLineEdit {
    Q_OBJECT

public:
    ValueBox(const QString& objectName, const QString& meaning, QWidget* parent = nullptr);

    void ShowText(std::string_view text);  // any bytes; see PlainText

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void AlignWithWindow();
    QRect TextRoom() const;
    bool IsTooLong() const;
};
