#pragma once

#include "platform/RegistryStore.h"
#include "platform/Sqlite.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

// One hive: keys in a tree with typed values, in one SQLite database. Names arrive checked; the answers are
// those of RegistryStore. Each call is one transaction, complete or not made.
class Hive {
public:
    using KeyId = std::int64_t;  // never given to another key again

    static constexpr KeyId kRoot = 1;
    static constexpr std::int32_t kApplicationId = 0x51484956;  // "QHIV": marks the file as a hive
    static constexpr std::int32_t kVersion = 1;                 // of the tables

    // Makes the tables in an empty database, unless another process was faster. Answers SQLite's code.
    static int MakeTables(sqlite3* db);

    // db: with the tables.
    Hive(sqlite::Connection db, bool readOnly) : m_db(std::move(db)), m_readOnly(readOnly) {}

    bool IsReadOnly() const { return m_readOnly; }

    std::uint32_t FindKey(KeyId from, std::span<const std::string_view> names, KeyId& found) const;
    // names: one at least. Makes what is missing.
    std::uint32_t MakeKey(KeyId from, std::span<const std::string_view> names, KeyId& made, bool& created);
    std::uint32_t DeleteKey(KeyId key);

    RegistryRead ReadValue(KeyId key, std::string_view name, std::span<std::uint8_t> buffer) const;
    std::uint32_t WriteValue(KeyId key, std::string_view name, std::uint32_t type,
                             std::span<const std::uint8_t> data);
    std::uint32_t DeleteValue(KeyId key, std::string_view name);

    RegistryName SubKeyAt(KeyId key, std::uint32_t index) const;
    RegistryRead ValueAt(KeyId key, std::uint32_t index, std::span<std::uint8_t> buffer) const;

private:
    std::uint32_t FindSubKey(KeyId parent, std::string_view name, KeyId& found) const;
    // The code for a step that reached no row: why it failed, `otherwise`, or that the key is gone.
    std::uint32_t WhyNothing(int result, KeyId key, std::uint32_t otherwise) const;
    RegistryRead TakeValue(sqlite::Statement& statement, KeyId key, std::uint32_t otherwise,
                           std::span<std::uint8_t> buffer) const;

    sqlite::Connection m_db;
    bool m_readOnly;
};
