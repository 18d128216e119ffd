#include "controls/Images.h"

#include <QtGlobal>

// The images come with a library, which does not make them known to Qt by itself. Qt's macro wants to stand
// outside of any namespace.
static void MakeKnown()
{
    Q_INIT_RESOURCE(images);
    Q_INIT_RESOURCE(controls);
}

QString ImageFile(const QString& key)
{
    [[maybe_unused]] static const bool isKnown = (MakeKnown(), true);
    return QStringLiteral(":/images/%1.svg").arg(key);
}

QIcon Image(const QString& key)
{
    return QIcon(ImageFile(key));
}
