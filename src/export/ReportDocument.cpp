#include "export/ReportDocument.h"

#include "export/ReadableText.h"
#include "export/ReportHtml.h"
#include "export/TypeChart.h"

#include <QFontMetricsF>
#include <QTextFrame>
#include <QTextOption>
#include <QTextTable>
#include <QUrl>

namespace {

constexpr double kMargin = 12;     // above and below
constexpr double kUsualLine = 15;  // the height of a line that the chart's measures are made for

QString ChartName()
{
    return QStringLiteral("report:chart");
}

QString StyleFor(const QPalette& palette)
{
    const auto head = IsDarkBase(palette) ? QStringLiteral("#33373d") : QStringLiteral("#eef1f4");
    return QStringLiteral("th { background-color: %1; font-weight: 600; text-align: left; }"
                          "h1 { margin-bottom: 4px; }"
                          "h2 { margin-top: 22px; margin-bottom: 4px; }"
                          "p { margin-top: 0px; margin-bottom: 8px; }")
        .arg(head);
}

std::string TableFor(const QPalette& palette)
{
    return std::string(" border=\"1\" cellspacing=\"0\" cellpadding=\"4\" style=\"border-collapse: collapse; "
                       "border-style: solid; border-color: ") +
           (IsDarkBase(palette) ? "#565b63" : "#c4c9cf") + "\"";
}

}  // namespace

void ReportDocument::Show(const CacheReport& report, const FormatLocale& locale, const ReportLook& look)
{
    setUndoRedoEnabled(false);
    setDocumentMargin(0);  // tables on the right would not keep it; the view does
    setDefaultFont(look.font);
    QTextOption option(Qt::AlignLeading);
    option.setTextDirection(look.direction);
    setDefaultTextOption(option);
    setDefaultStyleSheet(StyleFor(look.palette));

    ReportDress dress;
    dress.table = TableFor(look.palette);
    dress.list = " width=\"99%\"";  // rounded up, all of it would be too wide
    dress.isSimple = true;
    dress.isRightToLeft = look.direction == Qt::RightToLeft;
    dress.numberTitles = dress.numbers = " align=\"right\"";
    if (const auto bars = ReportChart::BarsOf(report, locale); !bars.empty()) {
        const double scale = QFontMetricsF(look.font).height() / kUsualLine;
        m_chart = DrawTypeChart(bars, look.palette, look.font, scale * look.pixelRatio);
        m_chart.setDevicePixelRatio(look.pixelRatio);
        dress.chart = "<p><img alt=\"" + HtmlText(ReportChart::Title()) + "\" src=\"" +
                      ChartName().toStdString() + "\" width=\"" +
                      std::to_string(static_cast<int>(ReportChart::kWidth * scale)) + "\" height=\"" +
                      std::to_string(static_cast<int>(ReportChart::HeightOf(bars) * scale)) + "\"></p>\n";
    }
    setHtml(QString::fromStdString(ReportBody(report, locale, dress)));
    if (dress.isRightToLeft) MirrorTables();
    auto format = rootFrame()->frameFormat();
    format.setTopMargin(kMargin);
    format.setBottomMargin(kMargin);
    rootFrame()->setFrameFormat(format);
}

void ReportDocument::MirrorTables()
{
    const auto frames = rootFrame()->childFrames();
    for (auto* const frame : frames) {
        auto* const table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        auto format = table->format();
        format.setAlignment(Qt::AlignRight);
        table->setFormat(format);
    }
}

QVariant ReportDocument::loadResource(int type, const QUrl& name)
{
    if (type == ImageResource && name == QUrl(ChartName())) return m_chart;
    return {};
}
