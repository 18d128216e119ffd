#pragma once

#include "base/Result.h"
#include "zentrel/Property.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct MDB_cursor;
struct MDB_env;
struct MDB_txn;

namespace zentrel {

using KeyId = std::uint64_t;  // 0 is the root; never used again once deleted

// One key as it is stored. Views are good for as long as the transaction that gave them and, in a write
// transaction, until its next change.
struct KeyRow {
    KeyId id = 0;
    std::uint32_t childCount = 0;
    std::string_view name;
    std::span<const std::byte> properties;  // packed, see Property.h
};

// Stands in the data folder while somebody changes it.
inline constexpr std::string_view kUncleanMark = "unclean";

class ReadTxn;
class WriteTxn;

// The service's store: a tree of keys with properties, in one LMDB file "metabase.mdb" of the data folder.
// A key is addressed by its parent's id and its name, so that paths of any length and depth fit and the
// children of a key lie side by side in byte order of their names. All properties of a key are one value.
// Readers see the state at their start and never block the writer. A crash loses at most what was not
// committed. An open file must not be opened a second time by the same process (LMDB's rule).
class Metabase {
public:
    enum class Access { Read, Write };

    // Makes a new, empty store in an existing folder. AlreadyExists when there is one.
    static Done Create(const std::filesystem::path& folder);

    // FileNotFound when the folder holds no store, FileCorrupt when the file is truncated or somebody
    // else's, AccessDenied, DiskFull, OutOfMemory. Access::Write falls back to nothing: it fails when the
    // file cannot be written.
    static Result<std::unique_ptr<Metabase>> Open(const std::filesystem::path& folder, Access access);

    ~Metabase();
    Metabase(const Metabase&) = delete;
    Metabase& operator=(const Metabase&) = delete;

    Result<ReadTxn> BeginRead() const;  // any thread; the transaction may move between threads
    Result<WriteTxn> BeginWrite();      // waits for another writer; belongs to the thread that began it
    bool IsWritable() const { return m_access == Access::Write; }

private:
    struct CloseEnv {
        void operator()(MDB_env* env) const;
    };

    Metabase() = default;
    Done CheckFormat();

    std::unique_ptr<MDB_env, CloseEnv> m_env;
    unsigned m_keys = 0;  // database handles
    unsigned m_meta = 0;
    Access m_access = Access::Read;
};

// A view of the store at one moment.
class ReadTxn {
public:
    ReadTxn(ReadTxn&&) noexcept = default;
    ReadTxn& operator=(ReadTxn&&) noexcept = default;

    // The key at a path (see CheckPath); empty when there is none. The root has the empty path.
    Result<std::optional<KeyRow>> Find(std::string_view path) const;

    // The child of a key by name.
    Result<std::optional<KeyRow>> Child(KeyId parent, std::string_view name) const;

    // A named value that is not part of the tree, such as the counters; empty when absent.
    Result<std::optional<Bytes>> Meta(std::string_view name) const;

    MDB_txn* Handle() const { return m_txn.get(); }
    unsigned KeysHandle() const { return m_keys; }

protected:
    friend class Metabase;
    struct AbortTxn {
        void operator()(MDB_txn* txn) const;
    };

    ReadTxn(MDB_txn* txn, unsigned keys, unsigned meta) : m_txn(txn), m_keys(keys), m_meta(meta) {}

    std::unique_ptr<MDB_txn, AbortTxn> m_txn;
    unsigned m_keys;
    unsigned m_meta;
};

// Changes; Commit keeps them, leaving scope drops them. Reads see the transaction's own changes.
class WriteTxn : public ReadTxn {
public:
    // The id of the key at a path, made with its parents when it is not there.
    Result<KeyId> MakeKey(std::string_view path);

    // Replaces all properties of a key, making the key when it is not there.
    Done SetProperties(std::string_view path, const PropertySet& properties);

    // Removes a key without children. NotSupported when it has some; nothing when it is not there.
    Done RemoveKey(std::string_view path);
    // Takes a key off its path whatever is below it; its children stay where they are, under its id.
    Done Detach(std::string_view path);

    Done SetMeta(std::string_view name, std::span<const std::byte> bytes);

    // One row by itself, whatever its parent says: for those that work on many rows of one branch and put the
    // numbers of children right themselves. DropRow does nothing when there is no such row.
    Done PutRow(KeyId parent, const KeyRow& row);
    Done DropRow(KeyId parent, std::string_view name);
    Result<KeyId> NewId();

    Done Commit();  // DiskFull, IoError; the changes are gone when it fails

private:
    friend class Metabase;
    using ReadTxn::ReadTxn;

    struct Place;  // a key and where its row stands
    Result<Place> Locate(std::string_view path, bool make);
    Done AddToChildCount(const Place& parent, int change);
};

// Walks the children of one key in byte order of their names. Lives no longer than its transaction.
class ChildCursor {
public:
    static Result<ChildCursor> Open(const ReadTxn& txn);

    // Goes to the first child of `parent` whose name is not below `from`, or above it when `after`.
    Result<std::optional<KeyRow>> Seek(KeyId parent, std::string_view from = {}, bool after = false);
    Result<std::optional<KeyRow>> Next();  // the next sibling

    // Removes the row that the cursor stands on, in a write transaction; Next goes on behind it.
    Done Drop();

private:
    struct CloseCursor {
        void operator()(MDB_cursor* cursor) const;
    };

    explicit ChildCursor(MDB_cursor* cursor) : m_cursor(cursor) {}
    Result<std::optional<KeyRow>> Move(std::string_view seekKey, int operation);

    std::unique_ptr<MDB_cursor, CloseCursor> m_cursor;
    KeyId m_parent = 0;
};

}  // namespace zentrel
