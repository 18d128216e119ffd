#include "zentrel/EntryKeys.h"

#include "zentrel/KeyPath.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr PropertyId kEntryProperties[] = {Prop::CacheId, Prop::GzipRecord, Prop::DeflateRecord,
                                           Prop::Statistics};
constexpr std::size_t kRootDepth = 4;  // LM/W3SVC/1/Root

bool Has(const KeyRow& row, PropertyId id)
{
    return FindProperty(row.properties, id).has_value();
}

bool IsEntryProperty(PropertyId id)
{
    return std::find(std::begin(kEntryProperties), std::end(kEntryProperties), id) !=
           std::end(kEntryProperties);
}

PropertySet Select(const KeyRow& row, bool ofEntry)
{
    PropertySet selected;
    ForEachProperty(row.properties, [&](const PropertyView& property) {
        if (IsEntryProperty(property.id) == ofEntry) selected.Set(property);
    });
    return selected;
}

// A key on a path, as it is to stand in the store.
struct Step {
    KeyId parent = 0;
    KeyId id = 0;
    std::uint32_t childCount = 0;
    std::string name;
    PropertySet properties;

    KeyRow Row() const { return {id, childCount, name, properties.Packed()}; }
};

// The keys from the root down the path, as far as they are there. Front: the root.
Result<std::vector<Step>> FollowPath(const ReadTxn& txn, std::string_view path)
{
    std::vector<Step> steps;
    auto row = txn.Find({});
    KeyId parent = 0;
    for (;;) {
        if (!row) return Fail(row.error());
        if (!*row) return steps;
        const auto id = (*row)->id;
        steps.push_back(
            {parent, id, (*row)->childCount, std::string((*row)->name), PropertySet((*row)->properties)});
        if (path.empty()) return steps;
        parent = id;
        row = txn.Child(parent, TakeSegment(path));
    }
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

std::uint32_t CacheIdOf(const KeyRow& row)
{
    const auto property = FindProperty(row.properties, Prop::CacheId);
    return property ? Record(*property).Number() : 0;
}

bool Stays(const KeyRow& row, std::size_t depth)
{
    if (depth <= kRootDepth) return true;
    auto rest = row.properties;
    for (auto property = TakeProperty(rest); property; property = TakeProperty(rest))
        if (!IsEntryProperty(property->id)) return true;
    return false;
}

PropertySet OwnProperties(const KeyRow& row)
{
    return Select(row, false);
}

PropertySet EntryProperties(const KeyRow& row)
{
    return Select(row, true);
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
    if (row.childCount == 0 && !Stays(row, PathDepth(path))) return txn.RemoveKey(path);
    const auto left = OwnProperties(row);
    return left.Packed().size() == row.properties.size() ? Done{} : txn.SetProperties(path, left);
}

Done TidyUpwards(WriteTxn& txn, std::string_view path)
{
    auto steps = FollowPath(txn, path);
    if (!steps) return Fail(steps.error());
    bool changed = false;
    for (; steps->size() > kRootDepth + 1; steps->pop_back()) {
        auto& last = steps->back();
        const auto row = last.Row();
        if (row.childCount != 0 || HasRecord(row)) break;
        if (Stays(row, steps->size() - 1)) {
            changed |= IsEntry(row);
            last.properties = OwnProperties(row);
            break;
        }
        if (auto dropped = txn.DropRow(last.parent, last.name); !dropped) return dropped;
        --(*steps)[steps->size() - 2].childCount;
        changed = true;
    }
    return changed ? txn.PutRow(steps->back().parent, steps->back().Row()) : Done{};
}

}  // namespace zentrel
