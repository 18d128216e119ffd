#include "zentrel/EntryKeys.h"

#include "zentrel/KeyPath.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr PropertyId kEntryProperties[] = {Prop::CacheId, Prop::GzipRecord, Prop::DeflateRecord,
                                           Prop::Statistics};
constexpr std::ptrdiff_t kSlashesBelowRoot = 4;  // LM/W3SVC/1/Root/x

bool Has(const KeyRow& row, PropertyId id)
{
    return FindProperty(row.properties, id).has_value();
}

bool IsBelowSiteRoot(std::string_view path)
{
    return std::count(path.begin(), path.end(), '/') >= kSlashesBelowRoot;
}

}  // namespace

bool IsEntry(const KeyRow& row)
{
    return Has(row, Prop::CacheId);
}

bool IsVariant(const KeyRow& row)
{
    return !IsEntry(row) && !Has(row, Prop::KeyType) && HasRecord(row) && ParseQueryHash(row.name);
}

bool HasRecord(const KeyRow& row)
{
    return Has(row, Prop::GzipRecord) || Has(row, Prop::DeflateRecord);
}

void AppendFiles(const KeyRow& row, std::uint32_t parentCacheId, std::vector<CachedFile>& files)
{
    const auto own = FindProperty(row.properties, Prop::CacheId);
    if (!own && !IsVariant(row)) return;
    const auto id = own ? Record(*own).Number() : parentCacheId;
    const auto query = own ? 0 : ParseQueryHash(row.name).value_or(0);
    if (static_cast<std::int32_t>(id) <= 0) return;
    for (const auto encoding : kEncodings)
        if (Has(row, RecordProperty(encoding))) files.push_back({id, encoding, query});
}

Done StripEntry(WriteTxn& txn, std::string_view path, const KeyRow& row)
{
    PropertySet left(row.properties);
    bool changed = false;
    for (const auto id : kEntryProperties) changed |= left.Remove(id);
    if (left.Packed().empty() && row.childCount == 0 && IsBelowSiteRoot(path)) return txn.RemoveKey(path);
    return changed ? txn.SetProperties(path, left) : Done{};
}

Done TidyUpwards(WriteTxn& txn, std::string_view path)
{
    for (; IsBelowSiteRoot(path); path = ParentPath(path)) {
        const auto row = txn.Find(path);
        if (!row) return Fail(row.error());
        if (!*row) continue;
        if ((*row)->childCount != 0 || HasRecord(**row)) return {};
        if (auto stripped = StripEntry(txn, path, **row); !stripped) return stripped;
    }
    return {};
}

}  // namespace zentrel
