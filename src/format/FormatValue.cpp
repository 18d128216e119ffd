#include "format/FormatValue.h"

#include "format/DateText.h"
#include "format/NumberText.h"
#include "format/SizeText.h"
#include "format/TimeSpanText.h"

namespace {

struct Formatter {
    std::string_view kind;
    const FormatLocale& locale;

    std::string operator()(std::monostate) const
    {
        return kind == FormatKind::Large ? FormatSize(0, locale) : std::string();
    }
    std::string operator()(std::int32_t value) const { return Whole(value); }
    std::string operator()(std::int64_t value) const { return Whole(value); }
    std::string operator()(float value) const { return Real(value); }
    std::string operator()(double value) const { return Real(value); }
    std::string operator()(DateTime value) const { return FormatDate(value, locale); }

    std::string operator()(const std::string& text) const
    {
        if (kind == FormatKind::Plain) return text;
        if (const auto number = ParseNumber(text, locale)) return Whole(*number);
        return kind == FormatKind::Large ? std::string() : text;
    }

private:
    template <class Number>
    std::string Real(Number value) const
    {
        const bool emptyAtZero = kind == FormatKind::Percent || kind == FormatKind::TimeSpan;
        if (emptyAtZero && value == 0) return {};
        if (kind == FormatKind::TimeSpan) return FormatTimeSpan(value, locale);
        if (kind == FormatKind::Plain) return FormatNumber(value, "Fixed", locale);
        return Whole(value);
    }

    template <class Number>
    std::string Whole(Number value) const
    {
        if (kind == FormatKind::Plain) return PlainText(value, locale);
        if (kind == FormatKind::Large) return FormatSize(static_cast<double>(value), locale);
        if (kind == "Short Date") return FormatShortDate({static_cast<double>(value)}, locale);
        if (kind == "Short Time") return FormatShortTime({static_cast<double>(value)}, locale);
        return FormatNumber(value, kind, locale);
    }
};

}  // namespace

std::string FormatValue(const FormatInput& value, std::string_view kind, const FormatLocale& locale)
{
    return std::visit(Formatter{kind, locale}, value);
}
