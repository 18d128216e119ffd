#pragma once

#include "controls/PropertyBag.h"

#include <QFont>
#include <QPixmap>
#include <QWidget>

// Fonts and pictures among a control's properties: a font as its description, a picture as the text of a
// PNG file. What cannot be read is the default; a picture is at most 4096 pixels wide and high.
QFont HostFont(const QWidget& control);  // what a control has that was given no font
QFont OwnFont(QFont font);               // the same, none of it taken from a parent's
QFont ReadFont(const PropertyBag& bag, std::string_view name, const QFont& standard);
void WriteFont(PropertyBag& bag, std::string_view name, const QFont& font, const QFont& standard);
QPixmap ReadPicture(const PropertyBag& bag, std::string_view name);
void WritePicture(PropertyBag& bag, std::string_view name, const QPixmap& picture);
