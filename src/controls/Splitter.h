#pragma once

#include "controls/SplitterCore.h"

#include <QLabel>
#include <QWidget>

class SplitterBar;

// A container that divides its area between two of the controls in it, by a bar that the user drags. Its
// lengths are twips. Right to left, pane 1 of a left/right splitter lies on the right. It hides the control
// of a pane that is not shown, and shows it again with the pane.
class Splitter : public QWidget, public SplitterCore {
    Q_OBJECT

public:
    explicit Splitter(const QString& objectName, QWidget* parent = nullptr);
    ~Splitter() override;

    QWidget* Bar() const;

    std::int64_t Width() const override;
    std::int64_t Height() const override;

Q_SIGNALS:
    void SplitBegin();     // a drag begins
    void SplitComplete();  // and ends, kept or given back

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void childEvent(QChildEvent* event) override;
    void changeEvent(QEvent* event) override;

    void SetOwnWidth(std::int64_t width) override;
    void SetOwnHeight(std::int64_t height) override;
    void Place(const SplitterLayout& layout) override;
    void PlaceBar(const SplitterRect& bar) override;
    void ApplyColors() override;
    void ApplyCursor() override;
    void RaiseBar() override;
    void TellSplitBegin() override { Q_EMIT SplitBegin(); }
    void TellSplitComplete() override { Q_EMIT SplitComplete(); }
    std::vector<QWidget*> ContainedControls() const override;
    std::string ControlName(const QWidget* control) const override;
    ::Panes* PanesOf(QWidget* control) const override;
    bool TabStop(const QWidget* control) const override;
    void SetTabStop(QWidget* control, bool isStop) override;
    QWidget* Placeholder(int index) const override;
    void ShowPlaceholder(int index, bool isShown) override;

private:
    QRect Pixels(const SplitterRect& rect) const;
    void KeepFocusInSight();
    void HideOutOfSight();

    const std::unique_ptr<SplitterBar> m_bar;  // ends before what it forwards to
    const std::array<QLabel*, 2> m_placeholders;
};
