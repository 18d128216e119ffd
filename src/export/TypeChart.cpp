#include "export/TypeChart.h"

#include <QPainter>

#include <cmath>

namespace {

using namespace ReportChart;

constexpr int kFontPixels = 12;

struct Colors {
    QColor whole, part;
};

Colors ColorsFor(const QPalette& palette)
{
    if (IsDarkBase(palette)) return {{0x45, 0x56, 0x6b}, {0x78, 0xb0, 0xf0}};
    return {{0xb3, 0xc6, 0xdd}, {0x2f, 0x6d, 0xb5}};
}

void DrawText(QPainter& painter, double x, double y, double width, double height, Qt::Alignment side,
              const std::string& text)
{
    painter.drawText(QRectF(x, y, width, height),
                     static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QString::fromStdString(text));
}

void DrawLegend(QPainter& painter, double x, const QColor& color, const std::string& text)
{
    painter.fillRect(QRectF(x, 0, kSquare, kSquare), color);
    DrawText(painter, x + kSquare + kGap, -2, kSecondLegend, kSquare + 4, Qt::AlignLeft, text);
}

void DrawBar(QPainter& painter, const Bar& bar, double y, const Colors& colors)
{
    const double left = kLabel + kGap, end = left + bar.uncompressed + kGap;
    DrawText(painter, 0, y, kLabel, kBarHeight, Qt::AlignRight, bar.label);
    painter.fillRect(QRectF(left, y, bar.uncompressed, kBarHeight), colors.whole);
    painter.fillRect(QRectF(left, y, bar.compressed, kBarHeight), colors.part);
    DrawText(painter, end, y, kWidth - end, kBarHeight, Qt::AlignLeft, bar.text);
}

}  // namespace

QImage DrawTypeChart(const std::vector<Bar>& bars, const QPalette& palette, const QFont& font, double scale)
{
    const QSizeF size(kWidth * scale, HeightOf(bars) * scale);
    QImage image(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.scale(scale, scale);
    auto chartFont = font;
    chartFont.setPixelSize(kFontPixels);
    painter.setFont(chartFont);
    painter.setPen(palette.color(QPalette::Text));
    const auto colors = ColorsFor(palette);
    DrawLegend(painter, kLabel + kGap, colors.whole, UncompressedText());
    DrawLegend(painter, kLabel + kGap + kSecondLegend, colors.part, CompressedText());
    double y = kLegend;
    for (const auto& bar : bars) {
        DrawBar(painter, bar, y, colors);
        y += kRow;
    }
    return image;
}
