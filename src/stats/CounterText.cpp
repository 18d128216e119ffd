#include "stats/CounterText.h"

#include "base/FillIn.h"
#include "format/FormatValue.h"
#include "format/NumberText.h"
#include "platform/PdhStatus.h"

#include <cmath>

std::string CounterText(double value, std::uint32_t type, const FormatLocale& locale)
{
    switch (type) {
    case PdhType::RawFraction:
    case PdhType::LargeRawFraction:
    case PdhType::Timer100Ns: return FormatNumber(value / 100, FormatKind::Percent, locale);
    case PdhType::LargeRawCount: return FormatValue(value, FormatKind::Large, locale);
    default: return PlainText(value, locale);
    }
}

std::string SummaryCaption(double equivalentBytes, double compressedBytes, const FormatLocale& locale)
{
    auto caption = Translate("frmMain", kSummaryCaption);
    if (compressedBytes == 0) return caption;
    const double boost = equivalentBytes / compressedBytes - 1;
    if (!std::isfinite(boost)) return caption;
    return FillIn(Translate("frmMain", "%1 (Boost %2)"),
                  {caption, FormatNumber(boost, FormatKind::Percent, locale)});
}
