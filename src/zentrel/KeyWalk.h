#pragma once

#include "base/Result.h"
#include "zentrel/Metabase.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// Walks a key and everything below it in one transaction, children before their parents and in byte order of
// their names. It holds no more than the path to where it stands.
class KeyWalk {
public:
    struct Visit {
        std::string_view path;  // good until the next call
        KeyRow row;
        std::uint32_t parentCacheId = 0;  // 0 when the parent is no cache entry
    };

    // FileNotFound when there is no such key. path: checked.
    static Result<KeyWalk> Begin(const ReadTxn& txn, std::string_view path);

    // The next key; empty at the end.
    Result<std::optional<Visit>> Next(const ReadTxn& txn);

private:
    struct Level {
        KeyId id = 0;
        std::size_t pathSize = 0;  // of this key's path in m_path
        std::uint32_t cacheId = 0;
    };

    explicit KeyWalk(std::string_view path) : m_path(path) {}
    void Push(const KeyRow& row);
    Result<std::optional<KeyRow>> NextChild(const ReadTxn& txn);
    Result<std::optional<Visit>> Leave(const ReadTxn& txn);

    std::string m_path;  // of the key on top of the levels, or of its child that is being visited
    std::string m_last;  // name of the top key's child that was passed last
    std::vector<Level> m_levels;
    std::optional<ChildCursor> m_cursor;
    bool m_isPlaced = false;  // the cursor stands at m_last
};

}  // namespace zentrel
