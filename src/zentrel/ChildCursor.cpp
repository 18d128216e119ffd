#include "zentrel/KeyRowCodec.h"

#include <lmdb.h>

namespace zentrel {

void ChildCursor::CloseCursor::operator()(MDB_cursor* cursor) const
{
    mdb_cursor_close(cursor);
}

Result<ChildCursor> ChildCursor::Open(const ReadTxn& txn)
{
    MDB_cursor* cursor = nullptr;
    if (const int status = mdb_cursor_open(txn.Handle(), txn.KeysHandle(), &cursor)) return FailStore(status);
    return ChildCursor(cursor);
}

Result<std::optional<KeyRow>> ChildCursor::Seek(KeyId parent, std::string_view from, bool after)
{
    m_parent = parent;
    KeyBuffer buffer;
    auto row = Move(ChildKey(buffer, parent, from), MDB_SET_RANGE);
    if (!after || !row || !*row || (*row)->name != from) return row;
    return Next();
}

Result<std::optional<KeyRow>> ChildCursor::Next()
{
    return Move({}, MDB_NEXT);
}

Done ChildCursor::Drop()
{
    if (const int status = mdb_cursor_del(m_cursor.get(), 0)) return FailStore(status);
    return {};
}

Result<std::optional<KeyRow>> ChildCursor::Move(std::string_view seekKey, int operation)
{
    MDB_val key{seekKey.size(), const_cast<char*>(seekKey.data())};
    MDB_val value{};
    const int status = mdb_cursor_get(m_cursor.get(), &key, &value, static_cast<MDB_cursor_op>(operation));
    if (status == MDB_NOTFOUND) return std::nullopt;
    if (status != 0) return FailStore(status);

    const std::string_view stored(static_cast<const char*>(key.mv_data), key.mv_size);
    KeyId parent = 0;
    if (stored.size() < sizeof parent) return Fail(Code::FileCorrupt, "Metabase");
    std::memcpy(&parent, stored.data(), sizeof parent);
    if (__builtin_bswap64(parent) != m_parent) return std::nullopt;
    return UnpackKeyRow(stored.substr(sizeof parent),
                        {static_cast<const std::byte*>(value.mv_data), value.mv_size});
}

}  // namespace zentrel
