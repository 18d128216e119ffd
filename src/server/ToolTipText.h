#pragma once

#include <QString>

// A plain text as a tool tip, which would take what looks like markup for markup.
inline QString ToolTipText(const QString& plain)
{
    return QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
}
