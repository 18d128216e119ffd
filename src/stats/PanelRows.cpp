#include "stats/PanelRows.h"

#include "base/Twips.h"
#include "controls/ActivePanel.h"

#include <QStyle>

#include <algorithm>

namespace {

constexpr double kHeader = 285;       // twips, as the other lengths here
constexpr double kSide = 105;         // left and right of the rows
constexpr double kAbove = 75;         // between the header and the first row
constexpr double kBetween = 120;      // between captions and values
constexpr int kLeastCharacters = 12;  // of a value

double TwipsOf(int pixels, const QWidget& widget)
{
    return pixels * kTwipsPerInch / widget.logicalDpiX();
}

}  // namespace

QString IndexedName(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

// Lengths in twips; places from the panel's corner when it is not scrolled.
struct PanelRows::Measures {
    double rowHeight = 0;
    double topHeight = 0;  // of the widget above the rows, with the gap below it
    double valueLeft = 0;
    double valueWidth = 0;
    double width = 0;  // of the rows as a whole
};

PanelRows::PanelRows(ActivePanel& panel, double gap) : QObject(&panel), m_panel(panel), m_gap(gap)
{
    connect(&m_panel, &ActivePanel::Resize, this, &PanelRows::LayOut);
}

void PanelRows::SetShownRows(std::size_t count)
{
    m_shown = std::min(count, m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        m_rows[row].first->setVisible(row < m_shown);
        m_rows[row].second->setVisible(row < m_shown);
    }
    LayOut();
}

PanelRows::Measures PanelRows::Measure() const
{
    int captionWidth = 0;
    int height = 0;
    for (std::size_t row = 0; row < m_shown; ++row) {
        const auto caption = m_rows[row].first->sizeHint();
        captionWidth = std::max(captionWidth, caption.width());
        height = std::max({height, caption.height(), m_rows[row].second->sizeHint().height()});
    }
    Measures measures;
    measures.rowHeight = TwipsOf(height, m_panel);
    if (m_topWidget) measures.topHeight = TwipsOf(m_topWidget->sizeHint().height(), m_panel) + kAbove;
    measures.valueLeft = kSide + TwipsOf(captionWidth, m_panel) + kBetween;

    const double rows = static_cast<double>(m_shown) * (measures.rowHeight + m_gap);
    const double bottom = kHeader + kAbove + measures.topHeight + rows + m_panel.Margin();
    double room = m_panel.ScaleWidth() - std::max<double>(kSide, m_panel.Margin() + kTwipsPerInch / 96);
    if (bottom > m_panel.ScaleHeight())
        room -= TwipsOf(m_panel.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &m_panel), m_panel);
    const double least = TwipsOf(kLeastCharacters * m_panel.fontMetrics().averageCharWidth(), m_panel);
    measures.valueWidth = std::max(least, room - measures.valueLeft);
    measures.width = measures.valueLeft + measures.valueWidth - kSide;
    return measures;
}

void PanelRows::LayOut()
{
    if (m_isLayingOut) return;
    m_isLayingOut = true;
    const auto measures = Measure();
    const double first = kHeader + kAbove + measures.topHeight;
    PlaceTopWidget(measures);
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        PlaceRow(row, measures, first + static_cast<double>(row) * (measures.rowHeight + m_gap));
    m_panel.UpdateScrollExtent();
    m_isLayingOut = false;
}

void PanelRows::PlaceTopWidget(const Measures& measures)
{
    if (m_topWidget == nullptr) return;
    const auto& bars = m_panel.ScrollBars();
    m_panel.Place(*m_topWidget, {kSide - bars.PosX(), kHeader + kAbove - bars.PosY(), measures.width,
                                 measures.topHeight - kAbove});
}

void PanelRows::PlaceRow(std::size_t row, const Measures& measures, double top)
{
    const auto& [caption, value] = m_rows[row];
    const double x = m_panel.ScrollBars().PosX();
    const double y = m_panel.ScrollBars().PosY();
    const double height = measures.rowHeight;
    if (row >= m_shown) {
        m_panel.Place(*caption, {-x, kHeader - y, 0, 0});
        m_panel.Place(*value, {-x, kHeader - y, 0, 0});
        return;
    }
    m_panel.Place(*caption, {kSide - x, top - y, measures.valueLeft - kBetween - kSide, height});
    m_panel.Place(*value, {measures.valueLeft - x, top - y, measures.valueWidth, height});
}
