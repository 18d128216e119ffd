#include "shell/StatusPanels.h"

#include "controls/Images.h"

#include <QTimerEvent>

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
    if (!m_change.isActive()) m_change.start(0, this);
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
    m_status->ShowText(m_statusText);
}
