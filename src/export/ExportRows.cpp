#include "export/ExportRows.h"

#include "base/Text.h"
#include "format/CivilDate.h"
#include "zentrel/Printable.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kPictureOfZero = "\xE2\x90\x80";
constexpr double kSecondsPerDay = 86'400;

bool IsFit(std::string_view text)
{
    return text.find('\0') == std::string_view::npos && IsValidUtf8(text);
}

// Fills one row from left to right; texts keep the memory that they had.
class RowFiller {
public:
    explicit RowFiller(ExportRow& row) : m_row(row) {}

    RowFiller& Text(std::string_view text)
    {
        auto& value = m_row[m_next++];
        if (!IsFit(text)) {
            value = DatabaseText(text);
        } else if (auto* const held = std::get_if<std::string>(&value)) {
            held->assign(text);
        } else {
            value.emplace<std::string>(text);
        }
        return *this;
    }
    RowFiller& Whole(std::int64_t number) { return Put(number); }
    RowFiller& Real(double number) { return std::isfinite(number) ? Put(number) : Put(std::monostate()); }
    RowFiller& Moment(DateTime moment) { return Put(MomentValue(moment)); }

    RowFiller& Figures(const CacheFigures& figures)
    {
        Real(figures.uncompressedSize).Real(figures.compressedSize);
        Real(figures.servedCompressed).Real(figures.uncompEquivalent);
        Whole(figures.totalHits).Whole(figures.cacheHits).Whole(figures.overwrites);
        return Real(figures.totalLife).Real(figures.cpuTime);
    }

private:
    template <class Value>
    RowFiller& Put(Value value)
    {
        m_row[m_next++] = std::move(value);
        return *this;
    }

    ExportRow& m_row;
    std::size_t m_next = 1;  // behind the run
};

void Fill(ExportRow& row, const SnapshotSite& site)
{
    RowFiller(row).Whole(site.number).Text(site.name).Whole(site.figures.count).Figures(site.figures);
}

void Fill(ExportRow& row, const SnapshotType& type)
{
    RowFiller(row).Text(type.type).Whole(type.figures.count).Figures(type.figures);
}

void Fill(ExportRow& row, const CacheFigures& totals)
{
    RowFiller(row).Whole(totals.count).Figures(totals);
}

void Fill(ExportRow& row, const SnapshotCounter& counter)
{
    RowFiller(row).Text(counter.name).Real(counter.value);
}

void Fill(ExportRow& row, const SnapshotEntry& entry)
{
    RowFiller filler(row);
    filler.Whole(entry.site).Text(entry.path).Text(entry.queryHash).Text(entry.type).Text(entry.physicalPath);
    filler.Whole(entry.level).Whole(entry.cacheId);
    filler.Moment(entry.cached).Moment(entry.expires).Moment(entry.modified).Figures(entry.figures);
}

template <class Items, class Take>
void ForEach(const Items& items, ExportRow& row, const Take& take)
{
    for (const auto& item : items) {
        Fill(row, item);
        if (!take(row)) return;
    }
}

}  // namespace

std::string DatabaseText(std::string_view text)
{
    if (IsFit(text)) return std::string(text);
    std::string fit;
    while (!text.empty()) {
        const auto piece = zentrel::TakeCharacter(text);
        if (piece.kind == zentrel::TextPiece::Kind::Broken) {
            fit += kReplacement;
        } else {
            fit += piece.bytes.front() == '\0' ? kPictureOfZero : piece.bytes;
        }
    }
    return fit;
}

OdbcValue MomentValue(DateTime moment)
{
    if (moment.days == 0) return {};
    const double seconds = std::round(moment.days * kSecondsPerDay);
    const auto time = ToCivilTime({seconds / kSecondsPerDay});
    if (!time || time->date.year < 1 || time->date.year > 9999) return {};
    const auto second = std::llround(seconds - 60 * std::floor(seconds / 60));
    std::array<char, 32> text;
    std::snprintf(text.data(), text.size(), "%04lld-%02d-%02d %02d:%02d:%02lld",
                  static_cast<long long>(time->date.year), time->date.month, time->date.day, time->hour,
                  time->minute, second);
    return std::string(text.data());
}

void ForEachExportRow(ExportTable table, const CacheSnapshot& snapshot,
                      const std::function<bool(const ExportRow& row)>& take)
{
    ExportRow row(ColumnsOf(table).size());
    switch (table) {
    case ExportTable::Runs: return;
    case ExportTable::Sites: return ForEach(snapshot.Sites(), row, take);
    case ExportTable::Types: return ForEach(snapshot.Types(), row, take);
    case ExportTable::Totals: return ForEach(std::array{snapshot.Totals()}, row, take);
    case ExportTable::Counters: return ForEach(snapshot.Counters(), row, take);
    case ExportTable::Entries: break;
    }
    snapshot.ForEachEntry([&](const SnapshotEntry& entry) {
        Fill(row, entry);
        return take(row);
    });
}

std::int64_t RowCount(ExportTable table, const CacheSnapshot& snapshot)
{
    const auto size = [](const auto& items) { return static_cast<std::int64_t>(items.size()); };
    switch (table) {
    case ExportTable::Sites: return size(snapshot.Sites());
    case ExportTable::Types: return size(snapshot.Types());
    case ExportTable::Counters: return size(snapshot.Counters());
    case ExportTable::Entries: return snapshot.Totals().count;
    case ExportTable::Runs:
    case ExportTable::Totals: break;
    }
    return 1;
}
