#include "shell/StatusPanels.h"

#include "controls/Images.h"

#include <QTimerEvent>

#include <algorithm>

namespace {

constexpr qint64 kBetweenTexts = 50;  // milliseconds; a text that runs by faster cannot be read anyway

}  // namespace

StatusPanels::StatusPanels(QWidget* parent)
    : QStatusBar(parent),
      m_version(new PlainLabel(QStringLiteral("Version"), tr("Version"), this)),
      m_status(new PlainLabel(QStringLiteral("Status"), tr("Status"), this)),
      m_connection(new PlainLabel(QStringLiteral("Connection"), tr("Connection"), this))
{
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    addWidget(m_version);
    addWidget(m_status, 1);
    addPermanentWidget(m_connection);
    ShowConnected(false);
}

void StatusPanels::SetVersion(std::string_view text)
{
    m_version->ShowText(text);
}

void StatusPanels::SetStatus(std::string_view text)
{
    m_statusText = text;
    if (m_change.isActive()) return;
    const auto since = m_lastShown.isValid() ? m_lastShown.elapsed() : kBetweenTexts;
    m_change.start(static_cast<int>(std::clamp(kBetweenTexts - since, qint64{0}, kBetweenTexts)), this);
}

void StatusPanels::SetConnStatus(std::string_view text)
{
    m_connection->ShowText("  " + std::string(text));
}

void StatusPanels::ShowConnected(bool isConnected)
{
    m_connection->ShowIcon(Image(isConnected ? QStringLiteral("Connected") : QStringLiteral("Disconnected")));
}

void StatusPanels::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_change.timerId()) return QStatusBar::timerEvent(event);
    m_change.stop();
    m_lastShown.start();
    m_status->ShowText(m_statusText);
}
