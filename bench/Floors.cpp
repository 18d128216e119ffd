#include "Floors.h"

#include "zentrel/KeyRowCodec.h"

#include <algorithm>
#include <lmdb.h>
#include <memory>

namespace {

// Calls `take(parent, row)` for each stored key.
template <class Take>
void ForEachKey(const zentrel::Metabase& store, Take&& take)
{
    const auto txn = store.BeginRead();
    if (!txn) return;
    MDB_cursor* raw = nullptr;
    if (mdb_cursor_open(txn->Handle(), txn->KeysHandle(), &raw) != 0) return;
    const std::unique_ptr<MDB_cursor, decltype(&mdb_cursor_close)> cursor(raw, mdb_cursor_close);
    MDB_val key{};
    MDB_val value{};
    while (mdb_cursor_get(raw, &key, &value, MDB_NEXT) == 0) {
        zentrel::KeyId parent = 0;
        std::memcpy(&parent, key.mv_data, sizeof parent);
        const std::string_view name(static_cast<const char*>(key.mv_data) + 8, key.mv_size - 8);
        const auto row =
            zentrel::UnpackKeyRow(name, {static_cast<const std::byte*>(value.mv_data), value.mv_size});
        if (row && *row) take(__builtin_bswap64(parent), **row);
    }
}

void ReadRecords(BareArena::Node& node, const zentrel::KeyRow& row)
{
    zentrel::ForEachProperty(row.properties, [&node](const zentrel::PropertyView& property) {
        if (property.id == zentrel::Prop::GzipRecord)
            node.cache = zentrel::ParseCacheRecord(property.bytes).value_or(node.cache);
        else if (property.id == zentrel::Prop::Statistics)
            node.statistics = zentrel::ParseStatisticsRecord(property.bytes).value_or(node.statistics);
    });
}

}  // namespace

std::uint64_t OrderedWalk(const zentrel::Metabase& store)
{
    std::uint64_t sum = 0;
    ForEachKey(store, [&sum](zentrel::KeyId, const zentrel::KeyRow& row) {
        zentrel::ForEachProperty(row.properties, [&sum](const zentrel::PropertyView& property) {
            sum += property.bytes.size() + static_cast<std::uint64_t>(property.bytes.front());
        });
    });
    return sum;
}

BareArena FillBareArena(const zentrel::Metabase& store)
{
    BareArena arena;
    std::vector<std::uint32_t> nodeOfKey;  // ids are dense, and a parent's is below its children's
    ForEachKey(store, [&](zentrel::KeyId parent, const zentrel::KeyRow& row) {
        const auto node = static_cast<std::uint32_t>(arena.nodes.size());
        auto& added = arena.nodes.emplace_back();
        added.name = static_cast<std::uint32_t>(arena.names.size());
        added.nameSize = static_cast<std::uint32_t>(row.name.size());
        arena.names += row.name;
        ReadRecords(added, row);
        arena.uncompressed += static_cast<double>(added.cache.uncompressedSize);
        arena.compressed += static_cast<double>(added.cache.compressedSize);
        arena.hits += added.statistics.totalHits;
        if (row.childCount != 0) {
            if (nodeOfKey.size() <= row.id) nodeOfKey.resize(row.id + 1);
            nodeOfKey[row.id] = node;
        }
        if (parent == 0 || parent == zentrel::kNoParent) return;  // the top, and the root above it
        added.parent = nodeOfKey[parent];
        if (arena.children.size() <= added.parent) arena.children.resize(added.parent + 1);
        arena.children[added.parent].push_back(node);
    });
    const auto name = [&arena](std::uint32_t node) {
        return std::string_view(arena.names).substr(arena.nodes[node].name, arena.nodes[node].nameSize);
    };
    for (auto& children : arena.children)
        std::sort(children.begin(), children.end(), [&](auto a, auto b) { return name(a) < name(b); });
    return arena;
}
