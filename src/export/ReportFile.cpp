#include "export/ReportFile.h"

#include "base/Translate.h"
#include "export/ReportCsv.h"
#include "export/ReportDocument.h"
#include "export/ReportHtml.h"
#include "export/ReportJson.h"
#include "export/ReportPages.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>

namespace {

constexpr int kPaperPoints = 9;      // the font's size
constexpr double kPaperRatio = 4;    // of the chart's pixels, so that it is sharp on paper
constexpr int kPaperDots = 600;      // per inch
constexpr double kPaperMargin = 20;  // mm

QPalette PaperPalette()
{
    QPalette palette(Qt::white);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

void WritePdf(QIODevice& file, const CacheReport& report, const ReportSetting& setting)
{
    QPdfWriter writer(&file);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kPaperMargin, kPaperMargin, kPaperMargin, kPaperMargin),
                          QPageLayout::Millimeter);
    writer.setResolution(kPaperDots);
    writer.setTitle(QString::fromStdString(Translate("CacheReport", "Zentrel Cache Report")));
    ReportLook look{PaperPalette(), setting.font, kPaperRatio,
                    setting.isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight};
    look.font.setPointSize(kPaperPoints);
    ReportDocument document;
    document.Show(report, setting.locale, look);
    DrawPages(writer, document);
}

std::string TextOf(ReportFormat format, const CacheReport& report, const ReportSetting& setting)
{
    switch (format) {
    case ReportFormat::Html: return ReportHtml(report, setting.locale, setting.isRightToLeft);
    case ReportFormat::Csv: return ReportCsv(report);
    case ReportFormat::Json: return ReportJson(report);
    case ReportFormat::Pdf: break;
    }
    return {};
}

}  // namespace

std::optional<ReportFormat> ReportFormatOf(const QString& fileName)
{
    const auto suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == u"html" || suffix == u"htm") return ReportFormat::Html;
    if (suffix == u"pdf") return ReportFormat::Pdf;
    if (suffix == u"csv") return ReportFormat::Csv;
    if (suffix == u"json") return ReportFormat::Json;
    return {};
}

Done SaveReport(const QString& fileName, ReportFormat format, const CacheReport& report,
                const ReportSetting& setting)
{
    QSaveFile file(fileName);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten && format == ReportFormat::Pdf) {
        WritePdf(file, report, setting);
    } else if (isWritten) {
        const auto text = TextOf(format, report, setting);
        const auto size = static_cast<qint64>(text.size());
        isWritten = file.write(text.data(), size) == size;
    }
    if (isWritten && file.commit()) return {};
    return Fail(Code::IoError, "Report", file.errorString().toStdString());
}
