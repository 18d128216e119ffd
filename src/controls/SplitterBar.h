#pragma once

#include <QWidget>

#include <optional>

class SplitterCore;

// The bar between two panes: dragged with the left button; moved with the arrow keys (small steps; large ones
// with Ctrl or Shift, or the page keys), Home and End while it has the focus. Escape takes a drag back, and
// key moves since the bar got the focus or Enter was pressed. A coordinate along the main axis grows from
// pane 1 to pane 2, whatever the layout direction.
class SplitterBar : public QWidget {
    Q_OBJECT

public:
    // `splitter` is the parent's, and owns the bar with it.
    SplitterBar(SplitterCore& splitter, QWidget* parent);

    void ShowColor(const QColor& color);
    void UpdateCursor();
    void TellPosition();  // to assistive tools, when it has changed

    const SplitterCore& Splitter() const { return m_splitter; }
    void MoveTo(int percent);  // as a key press does

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool IsMirrored() const;
    std::optional<int> Target(const QKeyEvent& event) const;
    void KeepKeyMoves() { m_posBeforeKeys.reset(); }
    bool GiveBack();

    SplitterCore& m_splitter;
    QColor m_color;
    qreal m_cursorRatio = 0;
    int m_toldPosition = -1;
    std::optional<float> m_posBeforeKeys;
};
