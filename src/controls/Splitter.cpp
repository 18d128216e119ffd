#include "controls/Splitter.h"

#include "base/Twips.h"
#include "controls/PaneFocus.h"
#include "controls/SplitterBar.h"
#include "controls/SystemColors.h"

#include <QApplication>
#include <QChildEvent>
#include <QPainter>
#include <QPointer>
#include <QShowEvent>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr char kIsOutOfSight[] = "IsOutOfSight";  // on a control that the splitter has hidden

int NearestPixel(std::int64_t twips, int dpi)
{
    constexpr double kMost = QWIDGETSIZE_MAX;
    const double pixels = PixelsFromTwips(static_cast<double>(twips), dpi);
    return static_cast<int>(std::lround(std::clamp(pixels, -kMost, kMost)));
}

// The bar is dragged across the panes. In a dark palette a shadow is as dark as they are; what is seen on
// them then is a tone halfway to their text.
QColor DragColor(std::uint32_t color, const QPalette& palette)
{
    constexpr int kLeastContrast = 40;
    const auto wanted = SystemColor(color, palette);
    const auto pane = SystemColor(OleColor::WindowBackground, palette);
    const bool isSystem = (color & OleColor::SystemBit) != 0;
    if (!isSystem || std::abs(wanted.lightness() - pane.lightness()) >= kLeastContrast) return wanted;
    const auto text = SystemColor(OleColor::WindowText, palette);
    const auto halfway = [](int one, int other) { return (one + other) / 2; };
    return {halfway(pane.red(), text.red()), halfway(pane.green(), text.green()),
            halfway(pane.blue(), text.blue())};
}

}  // namespace

Splitter::Splitter(const QString& objectName, QWidget* parent)
    : QWidget(parent),
      m_bar(std::make_unique<SplitterBar>(*this, this)),
      m_placeholders{new QLabel(this), new QLabel(this)}
{
    setObjectName(objectName);
    for (const int index : {1, 2}) {
        Placeholder(index)->setObjectName(QStringLiteral("lblFrame(%1)").arg(index));
        m_placeholders[static_cast<std::size_t>(index - 1)]->setTextFormat(Qt::PlainText);
        Placeholder(index)->hide();
    }
    ApplyColors();
    ApplyCursor();
}

Splitter::~Splitter()
{
    End();
}

QWidget* Splitter::Bar() const
{
    return m_bar.get();
}

// ---- size and place

std::int64_t Splitter::Width() const
{
    return TwipsFromPixels(width(), logicalDpiX());
}

std::int64_t Splitter::Height() const
{
    return TwipsFromPixels(height(), logicalDpiY());
}

void Splitter::SetOwnWidth(std::int64_t width)
{
    resize(NearestPixel(width, logicalDpiX()), height());
}

void Splitter::SetOwnHeight(std::int64_t height)
{
    resize(width(), NearestPixel(height, logicalDpiY()));
}

// Both edges are rounded by themselves, so that neighbours meet without a gap.
QRect Splitter::Pixels(const SplitterRect& rect) const
{
    const QPoint from(NearestPixel(rect.left, logicalDpiX()), NearestPixel(rect.top, logicalDpiY()));
    const QPoint to(NearestPixel(rect.left + rect.width, logicalDpiX()),
                    NearestPixel(rect.top + rect.height, logicalDpiY()));
    const QRect pixels(from, QSize(to.x() - from.x(), to.y() - from.y()));
    return QStyle::visualRect(layoutDirection(), this->rect(), pixels);
}

void Splitter::PlaceBar(const SplitterRect& bar)
{
    m_bar->setGeometry(Pixels(bar));
    m_bar->update();
    m_bar->TellPosition();
}

void Splitter::Place(const SplitterLayout& layout)
{
    m_bar->setVisible(VisiblePanes() == 0);
    PlaceBar(layout.bar);
    for (const int index : {1, 2}) {
        auto* const control = Slot(index);
        if (!control) continue;
        control->setGeometry(Pixels(layout.panes[static_cast<std::size_t>(index - 1)]));
        if (Slot(index) == control) control->update();
    }
    KeepFocusInSight();
    HideOutOfSight();
}

// A control out of sight is hidden, with all that is in it: the Tab key and assistive tools pass it by. One
// that the host hid stays its own affair.
void Splitter::HideOutOfSight()
{
    const bool isDivided = VisiblePanes() == 0 || Slot(1) == Slot(2);
    const auto* const outOfSight = isDivided ? nullptr : Slot(3 - VisiblePanes());
    const auto contained = ContainedControls();
    for (const auto& control : QList<QPointer<QWidget>>(contained.begin(), contained.end())) {
        if (!control) continue;
        const bool isOut = control == outOfSight;
        const bool isHostHidden =
            control->isHidden() && control->testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (isOut == control->property(kIsOutOfSight).toBool() || (isOut && isHostHidden)) continue;
        control->setProperty(kIsOutOfSight, isOut ? QVariant(true) : QVariant());
        control->setVisible(!isOut);
    }
}

// What the user types may not go to a control that a layout has just put out of sight.
void Splitter::KeepFocusInSight()
{
    if (VisiblePanes() == 0) return;
    const auto* const hidden = Slot(3 - VisiblePanes());
    const auto* const focus = QApplication::focusWidget();
    if (hidden && focus && (hidden == focus || hidden->isAncestorOf(focus)))
        FocusControl(Slot(VisiblePanes()));
}

// ---- looks

void Splitter::ApplyColors()
{
    m_bar->ShowColor(IsDragging() ? DragColor(SplitterColor(), palette())
                                  : SystemColor(BackColor(), palette()));
    update();
}

void Splitter::ApplyCursor()
{
    m_bar->UpdateCursor();
}

void Splitter::RaiseBar()
{
    m_bar->raise();
}

// The placeholders are transparent, so this is their background too.
void Splitter::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), SystemColor(BackColor(), palette()));
}

// ---- what happens to the window

void Splitter::resizeEvent(QResizeEvent*)
{
    Refresh();
}

void Splitter::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) Shown();
}

void Splitter::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) Hidden();
}

// A control that leaves, or ends, is no widget any more when this is told.
void Splitter::childEvent(QChildEvent* event)
{
    if (event->removed()) {
        for (const int index : {1, 2}) {
            if (auto* const control = Slot(index); control == event->child()) Forget(control);
        }
    }
    QWidget::childEvent(event);
}

void Splitter::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) ApplyColors();
    if (event->type() == QEvent::LayoutDirectionChange) Refresh();
    QWidget::changeEvent(event);
}

// ---- the controls in it

QWidget* Splitter::Placeholder(int index) const
{
    return m_placeholders[static_cast<std::size_t>(index - 1)];
}

void Splitter::ShowPlaceholder(int index, bool isShown)
{
    Placeholder(index)->setVisible(isShown);
}

std::vector<QWidget*> Splitter::ContainedControls() const
{
    std::vector<QWidget*> controls;
    for (auto* const child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool isPart = child == m_bar.get() || child == Placeholder(1) || child == Placeholder(2);
        if (!isPart && !child->isWindow()) controls.push_back(child);
    }
    return controls;
}

std::string Splitter::ControlName(const QWidget* control) const
{
    return control->objectName().toStdString();
}

::Panes* Splitter::PanesOf(QWidget* control) const
{
    auto* const splitter = qobject_cast<Splitter*>(control);
    return splitter ? &splitter->Panes() : nullptr;
}

bool Splitter::TabStop(const QWidget* control) const
{
    return (control->focusPolicy() & Qt::TabFocus) != 0;
}

void Splitter::SetTabStop(QWidget* control, bool isStop)
{
    auto policy = QFlags(control->focusPolicy());
    policy.setFlag(Qt::TabFocus, isStop);
    control->setFocusPolicy(static_cast<Qt::FocusPolicy>(policy.toInt()));
}
