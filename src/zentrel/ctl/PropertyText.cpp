#include "zentrel/ctl/PropertyText.h"

#include "zentrel/RecordLayout.h"

#include <array>
#include <cstdio>

namespace zentrel {

namespace {

struct NameRow {
    PropertyId id;
    std::string_view name;
};

constexpr std::array kNames{
    NameRow{Prop::KeyType, "KeyType"},         NameRow{Prop::ServerComment, "ServerComment"},
    NameRow{Prop::ServerState, "ServerState"}, NameRow{Prop::ServerBindings, "ServerBindings"},
    NameRow{Prop::VirtualRoot, "VirtualRoot"}, NameRow{Prop::SiteEncoding, "SiteEncoding"},
    NameRow{Prop::SiteLevel, "SiteLevel"},     NameRow{Prop::CacheId, "CacheId"},
    NameRow{Prop::GzipRecord, "GzipRecord"},   NameRow{Prop::DeflateRecord, "DeflateRecord"},
    NameRow{Prop::Statistics, "Statistics"},
};

constexpr std::uint64_t kTicksPerSecond = 10'000'000;

Seconds ToSeconds(std::uint64_t ticks)
{
    return {static_cast<double>(ticks) / static_cast<double>(kTicksPerSecond)};
}

struct Date {
    std::uint64_t year, month, day;
};

// The Gregorian date so many days after 1601-01-01, counted in years that begin in March, so that the leap
// day is the last of its year.
Date DateFromDays(std::uint64_t days)
{
    constexpr std::uint64_t kDaysOf400Years = 146'097;
    days += 306;  // from 1600-03-01
    const auto cycle = days / kDaysOf400Years;
    const auto ofCycle = days % kDaysOf400Years;
    const auto yearOfCycle = (ofCycle - ofCycle / 1460 + ofCycle / 36'524 - ofCycle / 146'096) / 365;
    const auto dayOfYear = ofCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const auto shifted = (5 * dayOfYear + 2) / 153;  // 0 = March
    const auto day = dayOfYear - (153 * shifted + 2) / 5 + 1;
    const auto month = shifted < 10 ? shifted + 3 : shifted - 9;
    return {1600 + cycle * 400 + yearOfCycle + (month <= 2 ? 1U : 0U), month, day};
}

std::vector<RecordField> CacheFields(const CacheRecord& record)
{
    return {{"version", std::uint64_t{record.version}}, {"level", record.level},
            {"cached", IsoTime(record.cacheTicks)},     {"expires", IsoTime(record.expiresTicks)},
            {"fileDate", IsoTime(record.fileTicks)},    {"uncompressedSize", record.uncompressedSize},
            {"compressedSize", record.compressedSize},  {"queryHash", QueryHashText(record.queryHash)}};
}

std::vector<RecordField> StatisticsFields(const StatisticsRecord& record)
{
    return {{"totalHits", record.totalHits},
            {"cacheHits", record.cacheHits},
            {"overwrites", record.overwrites},
            {"totalLifeSeconds", ToSeconds(record.totalLife)},
            {"cpuTimeSeconds", ToSeconds(record.cpuTime)}};
}

}  // namespace

std::string_view PropertyName(PropertyId id)
{
    for (const auto& row : kNames)
        if (row.id == id) return row.name;
    return "-";
}

std::string_view TypeName(PropertyType type)
{
    switch (type) {
    case PropertyType::Number: return "number";
    case PropertyType::Text: return "text";
    case PropertyType::TextList: return "list";
    case PropertyType::Binary: break;
    }
    return "bytes";
}

std::string IsoTime(std::uint64_t ticks)
{
    constexpr std::uint64_t kSecondsPerDay = 86'400;
    const auto seconds = ticks / kTicksPerSecond;
    const auto date = DateFromDays(seconds / kSecondsPerDay);
    const auto ofDay = static_cast<unsigned>(seconds % kSecondsPerDay);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%s%04u-%02u-%02uT%02u:%02u:%02u.%07u",
                  date.year > 9999 ? "+" : "", static_cast<unsigned>(date.year),
                  static_cast<unsigned>(date.month), static_cast<unsigned>(date.day), ofDay / 3600,
                  ofDay / 60 % 60, ofDay % 60, static_cast<unsigned>(ticks % kTicksPerSecond));
    std::string time(text.data());
    time.erase(time.find_last_not_of('0') + 1);
    if (time.ends_with('.')) time.pop_back();
    return time + 'Z';
}

std::string Hexadecimal(std::span<const std::byte> bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const auto byte : bytes) {
        text += kDigits[std::to_integer<std::size_t>(byte >> 4)];
        text += kDigits[std::to_integer<std::size_t>(byte & std::byte{15})];
    }
    return text;
}

std::vector<RecordField> DecodeRecord(const PropertyView& property)
{
    if (property.id == Prop::GzipRecord || property.id == Prop::DeflateRecord) {
        const auto record = ParseCacheRecord(property.bytes);
        return record ? CacheFields(*record) : std::vector<RecordField>{};
    }
    if (property.id == Prop::Statistics) {
        const auto record = ParseStatisticsRecord(property.bytes);
        return record ? StatisticsFields(*record) : std::vector<RecordField>{};
    }
    return {};
}

}  // namespace zentrel
