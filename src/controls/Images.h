#pragma once

#include <QIcon>
#include <QString>

// The program's own images by their keys, for example "Stop". They are drawn when they are first shown.
QString ImageFile(const QString& key);
QIcon Image(const QString& key);
