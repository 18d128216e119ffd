#include "stats/CounterChart.h"

#include "controls/PlainMarkup.h"
#include "controls/PlainText.h"
#include "stats/CounterCsv.h"
#include "stats/CounterList.h"
#include "stats/CounterText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <utility>

CounterChart::CounterChart(const CounterHistory& history, std::size_t counter, FormatLocale locale,
                           QWidget* parent)
    : QWidget(parent),
      m_history(history),
      m_counter(counter),
      m_locale(std::move(locale))
{
    setObjectName(QStringLiteral("CounterChart(%1)").arg(counter));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void CounterChart::Describe(const CounterDescription& description)
{
    const auto label = PlainText(CounterWords(description.label));
    const auto text = PlainLines(CounterWords(description.explainText));
    if (label == m_label && description.type == m_type && text == accessibleDescription()) return;
    m_label = label;
    m_type = description.type;
    setToolTip(text.isEmpty() ? QString() : PlainMarkup(text));
    setWhatsThis(toolTip());
    setAccessibleDescription(text);
    Refresh();
}

void CounterChart::Refresh()
{
    m_isStale = true;
    if (m_pointer) ReadAt(*m_pointer);
    if (Read() == nullptr) m_cursor.reset();
    TellValue();
    update();
}

// ---- texts

QString CounterChart::Text(double value) const
{
    return PlainText(CounterText(value, m_type, m_locale));
}

QString CounterChart::ValueText() const
{
    const auto last = m_history.Last(m_counter);
    return last ? Text(*last) : QStringLiteral("---");
}

QString CounterChart::ClockText(std::int64_t utc) const
{
    constexpr std::size_t kDateLength = 11, kTimeLength = 8;
    const auto time = LocalIsoTime(utc).substr(kDateLength, kTimeLength);
    return QString::fromStdString(time).replace(u':', QString::fromStdString(m_locale.timeSeparator));
}

QString CounterChart::CursorText() const
{
    const auto* const sample = Read();
    if (sample == nullptr) return {};
    const double value = sample->values[m_counter];
    return ClockText(sample->time.utc) + QStringLiteral("  ") +
           (std::isnan(value) ? tr("no value") : Text(value));
}

void CounterChart::TellValue()
{
    const auto value = m_cursor ? CursorText() : ValueText();
    setAccessibleName(m_label + QStringLiteral(": ") + value);
}

// ---- reading single samples

const CounterSample* CounterChart::Read() const
{
    if (!m_cursor || m_history.IsEmpty()) return nullptr;
    const auto& sample = m_history.Samples()[m_history.Nearest(*m_cursor)];
    return sample.time.tick == *m_cursor ? &sample : nullptr;
}

void CounterChart::SetCursor(std::optional<std::int64_t> tick)
{
    if (tick == m_cursor) return;
    m_cursor = tick;
    TellValue();
    update();
}

void CounterChart::keyPressEvent(QKeyEvent* event)
{
    if (m_history.IsEmpty()) return QWidget::keyPressEvent(event);
    const auto newest = static_cast<std::ptrdiff_t>(m_history.Samples().size()) - 1;
    const bool isReading = Read() != nullptr;
    auto index = isReading ? static_cast<std::ptrdiff_t>(m_history.Nearest(*m_cursor)) : newest;
    switch (event->key()) {
    case Qt::Key_Left: index -= isReading ? 1 : 0; break;
    case Qt::Key_Right: index += isReading ? 1 : 0; break;
    case Qt::Key_Home: index = 0; break;
    case Qt::Key_End: index = newest; break;
    default: return QWidget::keyPressEvent(event);
    }
    m_pointer.reset();
    const auto place = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(index, 0, newest));
    SetCursor(m_history.Samples()[place].time.tick);
}

void CounterChart::ReadAt(double x)
{
    const auto plot = Lay().plot;
    if (m_history.IsEmpty() || plot.width() <= 0) return SetCursor({});
    const double age = (plot.right() - x) / plot.width() * static_cast<double>(CounterHistory::kSpan);
    const auto tick = m_history.Samples().back().time.tick - std::llround(age);
    SetCursor(m_history.Samples()[m_history.Nearest(tick)].time.tick);
}

void CounterChart::mouseMoveEvent(QMouseEvent* event)
{
    if (Lay().plot.contains(event->position())) {
        m_pointer = event->position().x();
        ReadAt(*m_pointer);
    } else {
        StopPointing();
    }
    QWidget::mouseMoveEvent(event);
}

void CounterChart::StopPointing()
{
    if (m_pointer) SetCursor({});
    m_pointer.reset();
}

void CounterChart::leaveEvent(QEvent* event)
{
    StopPointing();
    QWidget::leaveEvent(event);
}

void CounterChart::focusOutEvent(QFocusEvent* event)
{
    if (!m_pointer) SetCursor({});
    QWidget::focusOutEvent(event);
}

void CounterChart::resizeEvent(QResizeEvent* event)
{
    m_isStale = true;
    QWidget::resizeEvent(event);
}

void CounterChart::changeEvent(QEvent* event)
{
    m_isStale = true;
    QWidget::changeEvent(event);
}

// Over the plot the pointer reads samples; the explanation would lie over them.
bool CounterChart::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && m_pointer) return true;
    return QWidget::event(event);
}
