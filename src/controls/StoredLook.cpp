#include "controls/StoredLook.h"

#include <QApplication>
#include <QBuffer>
#include <QImageReader>

namespace {

constexpr int kMostPixels = 4096;

}  // namespace

QFont HostFont(const QWidget& control)
{
    return control.parentWidget() ? control.parentWidget()->font() : QApplication::font();
}

QFont OwnFont(QFont font)
{
    font.setResolveMask(QFont::AllPropertiesResolved);
    return font;
}

QFont ReadFont(const PropertyBag& bag, std::string_view name, const QFont& standard)
{
    const auto text = QString::fromStdString(bag.ReadText(name, {}));
    QFont font;
    return !text.isEmpty() && font.fromString(text) ? font : standard;
}

void WriteFont(PropertyBag& bag, std::string_view name, const QFont& font, const QFont& standard)
{
    bag.WriteText(name, font == standard ? std::string() : font.toString().toStdString(), {});
}

QPixmap ReadPicture(const PropertyBag& bag, std::string_view name)
{
    auto bytes = QByteArray::fromBase64(QByteArray::fromStdString(bag.ReadText(name, {})));
    if (bytes.isEmpty()) return {};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    const auto size = reader.size();
    if (!size.isValid() || size.width() > kMostPixels || size.height() > kMostPixels) return {};
    return QPixmap::fromImage(reader.read());
}

void WritePicture(PropertyBag& bag, std::string_view name, const QPixmap& picture)
{
    QBuffer buffer;
    if (!picture.isNull()) picture.save(&buffer, "PNG");
    bag.WriteText(name, buffer.data().toBase64().toStdString(), {});
}
