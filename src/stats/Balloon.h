#pragma once

#include <QColor>
#include <QIcon>
#include <QPainterPath>
#include <QWidget>

class QLabel;

// The window of a tool tip: a bold title with an icon over a plain text, in a balloon that points at its
// anchor, or in a plain frame. It takes neither focus nor mouse.
class Balloon : public QWidget {
    Q_OBJECT

public:
    explicit Balloon(QWidget* owner);

    struct Content {
        bool isBalloon = false;
        QIcon icon;  // null: none
        QString title;
        QString text;      // plain, with its line breaks
        QColor foreColor;  // invalid: the desktop's
        QColor backColor;
    };
    void Show(const Content& content);

    // Shows it with its point there, on the side of it that the screen has room for; centered, its middle is
    // there, and no room is left for the mouse pointer.
    void PopUpAt(const QPoint& globalAnchor, bool isCentered);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowColors(const Content& content);
    QPainterPath Outline() const;

    QLabel* const m_icon;
    QLabel* const m_title;
    QLabel* const m_text;
    bool m_isBalloon = false;
    bool m_isBelow = true;  // its anchor
    int m_tipX = 0;         // of the point, from the left edge
};
