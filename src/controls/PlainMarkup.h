#pragma once

#include <QString>

// A plain text for tool tips and other places that would take what looks like markup for markup.
inline QString PlainMarkup(const QString& plain)
{
    return QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
}
