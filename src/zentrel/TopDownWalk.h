#pragma once

#include "zentrel/Metabase.h"

#include <optional>
#include <string>
#include <vector>

namespace zentrel {

// Walks all keys below one key, each before its children, siblings in the store's order. It does not need
// one transaction from end to end: it can go on in a later one, where keys may have come and gone.
// Depth costs 16 bytes a level. KeyWalk goes the other way, from the bottom up.
class TopDownWalk {
public:
    // FileNotFound when there is no such key, InvalidName for a bad path.
    static Result<TopDownWalk> Begin(const ReadTxn& txn, std::string_view path);

    // Goes on behind the last key, in another transaction; the former one may have ended.
    Done Resume(const ReadTxn& txn);

    // The next key; empty at the end. The row lasts as long as its transaction.
    Result<std::optional<KeyRow>> Next();
    void SkipChildren() { m_descends = false; }  // of the key that Next answered last

    const std::string& Path() const { return m_path; }     // of that key
    std::size_t Depth() const { return m_levels.size(); }  // of that key; 1 = child of the first key

private:
    struct Level {
        KeyId parent;
        std::size_t pathEnd;  // length of the parent's path
    };

    TopDownWalk(KeyId top, std::string_view path) : m_path(path), m_last(top) {}
    Result<std::optional<KeyRow>> Step();

    std::optional<ChildCursor> m_cursor;
    std::string m_path;
    std::vector<Level> m_levels;
    KeyId m_last;             // the key that Next answered last
    bool m_descends = true;   // its children come next
    bool m_isPlaced = false;  // the cursor stands on it
};

}  // namespace zentrel
