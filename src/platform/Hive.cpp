#include "platform/Hive.h"

#include "base/SystemError.h"
#include "base/Text.h"

#include <algorithm>

using sqlite::Statement;
using sqlite::SystemCodeOf;
using sqlite::WriteTransaction;

namespace {

// `folded` is the name in lower case, which names are found by.
constexpr const char* kTables = R"(
    CREATE TABLE keys(
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        parent INTEGER REFERENCES keys(id),
        folded TEXT NOT NULL,
        name TEXT NOT NULL,
        UNIQUE(parent, folded)) STRICT;
    CREATE TABLE key_values(
        id INTEGER PRIMARY KEY,
        key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
        folded TEXT NOT NULL,
        name TEXT NOT NULL,
        type INTEGER NOT NULL,
        data BLOB NOT NULL,
        UNIQUE(key, folded)) STRICT;
    CREATE INDEX values_in_order ON key_values(key, id);
    INSERT INTO keys(id, parent, folded, name) VALUES(1, NULL, '', '');
    PRAGMA application_id = 0x51484956;
    PRAGMA user_version = 1;
)";
static_assert(Hive::kRoot == 1 && Hive::kApplicationId == 0x51484956 && Hive::kVersion == 1);

}  // namespace

int Hive::MakeTables(sqlite3* db)
{
    WriteTransaction transaction(db);
    if (const int result = transaction.Begin(); result != SQLITE_OK) return result;
    Statement tables(db, "SELECT count(*) FROM sqlite_schema");
    if (const int result = tables.Step(); result != SQLITE_ROW) return result;
    if (tables.Number(0) != 0) return SQLITE_OK;
    if (const int result = sqlite::Run(db, kTables); result != SQLITE_OK) return result;
    return transaction.Commit();
}

std::uint32_t Hive::WhyNothing(int result, KeyId key, std::uint32_t otherwise) const
{
    if (result != SQLITE_DONE) return SystemCodeOf(result);
    const int there = Statement(m_db.get(), "SELECT 1 FROM keys WHERE id = ?", key).Step();
    if (there == SQLITE_ROW) return otherwise;
    return there == SQLITE_DONE ? Code::KeyDeleted : SystemCodeOf(there);
}

std::uint32_t Hive::FindSubKey(KeyId parent, std::string_view name, KeyId& found) const
{
    Statement find(m_db.get(), "SELECT id FROM keys WHERE parent = ? AND folded = ?", parent,
                   LowerCase(name));
    const int result = find.Step();
    if (result != SQLITE_ROW) return WhyNothing(result, parent, Code::FileNotFound);
    found = find.Number(0);
    return 0;
}

std::uint32_t Hive::FindKey(KeyId from, std::span<const std::string_view> names, KeyId& found) const
{
    if (names.empty()) {
        found = from;
        return WhyNothing(SQLITE_DONE, from, 0);
    }
    KeyId at = from;
    for (const auto name : names) {
        const auto code = FindSubKey(at, name, at);
        // A parent that vanished while the path was walked is no key that the caller had open.
        if (code != 0) return code == Code::KeyDeleted && at != from ? Code::FileNotFound : code;
    }
    found = at;
    return 0;
}

std::uint32_t Hive::MakeKey(KeyId from, std::span<const std::string_view> names, KeyId& made, bool& created)
{
    if (m_readOnly) return Code::AccessDenied;
    WriteTransaction transaction(m_db.get());
    if (const int result = transaction.Begin(); result != SQLITE_OK) return SystemCodeOf(result);
    KeyId at = from;
    for (const auto name : names) {
        const auto code = FindSubKey(at, name, at);
        created = code == Code::FileNotFound;
        if (code == 0) continue;
        if (!created) return code;
        const int result = Statement(m_db.get(), "INSERT INTO keys(parent, folded, name) VALUES(?, ?, ?)", at,
                                     LowerCase(name), name)
                               .Step();
        if (result != SQLITE_DONE) return SystemCodeOf(result);
        at = sqlite3_last_insert_rowid(m_db.get());
    }
    made = at;
    return SystemCodeOf(transaction.Commit());
}

std::uint32_t Hive::DeleteKey(KeyId key)
{
    if (m_readOnly || key == kRoot) return Code::AccessDenied;
    // The values go along. Subkeys forbid it.
    const int result = Statement(m_db.get(), "DELETE FROM keys WHERE id = ?", key).Step();
    if (result == SQLITE_CONSTRAINT_FOREIGNKEY) return Code::AccessDenied;
    if (result != SQLITE_DONE) return SystemCodeOf(result);
    return sqlite3_changes(m_db.get()) == 0 ? Code::KeyDeleted : 0;
}

RegistryRead Hive::TakeValue(Statement& statement, KeyId key, std::uint32_t otherwise,
                             std::span<std::uint8_t> buffer) const
{
    const int result = statement.Step();
    if (result != SQLITE_ROW) return {WhyNothing(result, key, otherwise)};
    const auto bytes = statement.Bytes(1);
    RegistryRead read{0, static_cast<std::uint32_t>(statement.Number(0)), bytes.size(),
                      std::string(statement.Text(2))};
    if (bytes.size() <= buffer.size())
        std::copy(bytes.begin(), bytes.end(), buffer.begin());
    else
        read.code = Code::MoreData;
    return read;
}

RegistryRead Hive::ReadValue(KeyId key, std::string_view name, std::span<std::uint8_t> buffer) const
{
    Statement find(m_db.get(), "SELECT type, data, name FROM key_values WHERE key = ? AND folded = ?", key,
                   LowerCase(name));
    return TakeValue(find, key, Code::FileNotFound, buffer);
}

std::uint32_t Hive::WriteValue(KeyId key, std::string_view name, std::uint32_t type,
                               std::span<const std::uint8_t> data)
{
    if (m_readOnly) return Code::AccessDenied;
    Statement write(m_db.get(),
                    "INSERT INTO key_values(key, folded, name, type, data) VALUES(?, ?, ?, ?, ?) "
                    "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data",
                    key, LowerCase(name), name, std::int64_t{type}, data);
    return SystemCodeOf(write.Step());
}

std::uint32_t Hive::DeleteValue(KeyId key, std::string_view name)
{
    if (m_readOnly) return Code::AccessDenied;
    const int result =
        Statement(m_db.get(), "DELETE FROM key_values WHERE key = ? AND folded = ?", key, LowerCase(name))
            .Step();
    const bool removed = result == SQLITE_DONE && sqlite3_changes(m_db.get()) != 0;
    return removed ? 0 : WhyNothing(result, key, Code::FileNotFound);
}

RegistryName Hive::SubKeyAt(KeyId key, std::uint32_t index) const
{
    Statement list(m_db.get(), "SELECT name FROM keys WHERE parent = ? ORDER BY folded LIMIT 1 OFFSET ?", key,
                   std::int64_t{index});
    const int result = list.Step();
    if (result != SQLITE_ROW) return {WhyNothing(result, key, Code::NoMoreItems), {}};
    return {0, std::string(list.Text(0))};
}

RegistryRead Hive::ValueAt(KeyId key, std::uint32_t index, std::span<std::uint8_t> buffer) const
{
    // The inner query looks at the index only, so that skipping reads no data.
    Statement list(m_db.get(),
                   "SELECT type, data, name FROM key_values WHERE id = "
                   "(SELECT id FROM key_values WHERE key = ? ORDER BY id LIMIT 1 OFFSET ?)",
                   key, std::int64_t{index});
    return TakeValue(list, key, Code::NoMoreItems, buffer);
}
