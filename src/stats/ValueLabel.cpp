#include "stats/ValueLabel.h"

#include "controls/PlainMarkup.h"

#include <QHelpEvent>
#include <QToolTip>

bool ValueLabel::event(QEvent* event)
{
    const bool isFixed = !toolTip().isEmpty();
    if (event->type() != QEvent::ToolTip || isFixed || sizeHint().width() <= width())
        return PlainLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainMarkup(text()), this);
    return true;
}
