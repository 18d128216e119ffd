#include "zentrel/Metabase.h"

#include "zentrel/KeyPath.h"
#include "zentrel/KeyRowCodec.h"

#include <lmdb.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace zentrel {

namespace {

constexpr std::size_t kMapSize = std::size_t{64} << 30U;  // an upper bound of address space, not of memory
constexpr std::string_view kFormatName = "format";
constexpr std::string_view kFormat = "zentrel metabase 1";
constexpr std::string_view kNextIdName = "nextId";
constexpr mdb_mode_t kFileMode = 0660;

MDB_val Val(std::string_view text)
{
    return {text.size(), const_cast<char*>(text.data())};
}

MDB_val Val(std::span<const std::byte> bytes)
{
    return {bytes.size(), const_cast<std::byte*>(bytes.data())};
}

std::span<const std::byte> Span(const MDB_val& val)
{
    return {static_cast<const std::byte*>(val.mv_data), val.mv_size};
}

std::filesystem::path StoreFile(const std::filesystem::path& folder)
{
    return folder / "metabase.mdb";
}

// A process that was killed in a read still holds back the pages that it saw, and a place among the readers.
void ForgetDeadReaders(MDB_env* env)
{
    mdb_reader_check(env, nullptr);
}

// What the store takes its file to be long, in bytes.
std::uint64_t ExpectedLength(MDB_env* env)
{
    MDB_envinfo info{};
    MDB_stat stat{};
    mdb_env_info(env, &info);
    mdb_env_stat(env, &stat);
    return (info.me_last_pgno + 1) * std::uint64_t{stat.ms_psize};
}

// Pages at the end that a transaction both took and gave back are never written, although they count: the
// file gets its length without them. It never becomes shorter, whoever else lengthens it.
void Lengthen(MDB_env* env)
{
    mdb_filehandle_t file = -1;
    struct stat status {};
    const auto expected = ExpectedLength(env);
    mdb_env_get_fd(env, &file);
    if (fstat(file, &status) == 0 && static_cast<std::uint64_t>(status.st_size) < expected)
        static_cast<void>(fallocate(file, 0, static_cast<off_t>(expected) - 1, 1));
}

// Reads behind the end of a truncated file would be a bus error, so its length is checked before any.
Done CheckLength(MDB_env* env, const std::filesystem::path& file)
{
    std::error_code error;
    const auto length = std::filesystem::file_size(file, error);
    if (error || length < ExpectedLength(env))
        return Fail(Code::FileCorrupt, "Metabase", "The metabase file is truncated.");
    return {};
}

}  // namespace

tl::unexpected<SystemError> FailStore(int status)
{
    switch (status) {
    case MDB_INVALID:
    case MDB_VERSION_MISMATCH:
    case MDB_CORRUPTED:
    case MDB_PAGE_NOTFOUND:
    case MDB_INCOMPATIBLE:
    case MDB_PANIC:
        return Fail(Code::FileCorrupt, "Metabase",
                    std::string("The metabase file is damaged or is not one: ") + mdb_strerror(status));
    case MDB_MAP_FULL:
    case EFBIG: return Fail(Code::DiskFull, "Metabase");
    case MDB_BAD_VALSIZE: return Fail(Code::InvalidParameter, "Metabase");
    default: break;
    }
    if (status > 0) return FailErrno(status, "Metabase", "The metabase cannot be used");
    return Fail(Code::IoError, "Metabase", mdb_strerror(status));
}

void Metabase::CloseEnv::operator()(MDB_env* env) const
{
    mdb_env_close(env);
}

Metabase::~Metabase() = default;

Done Metabase::Create(const std::filesystem::path& folder)
{
    std::error_code error;
    if (std::filesystem::exists(StoreFile(folder), error)) return Fail(Code::AlreadyExists, "Metabase");

    MDB_env* raw = nullptr;
    if (const int status = mdb_env_create(&raw)) return FailStore(status);
    const std::unique_ptr<MDB_env, CloseEnv> env(raw);
    mdb_env_set_maxdbs(raw, 2);
    if (const int status = mdb_env_open(raw, StoreFile(folder).c_str(), MDB_NOSUBDIR, kFileMode))
        return FailStore(status);

    MDB_txn* txn = nullptr;
    if (const int status = mdb_txn_begin(raw, nullptr, 0, &txn)) return FailStore(status);
    MDB_dbi keys = 0;
    MDB_dbi meta = 0;
    std::string rootRow;
    PackKeyRow(rootRow, 0, 0, {});
    const std::string rootKey = ChildKey(kNoParent, "root");
    auto rootName = Val(rootKey);
    auto rootValue = Val(rootRow);
    auto formatName = Val(kFormatName);
    auto format = Val(kFormat);
    int status = mdb_dbi_open(txn, "keys", MDB_CREATE, &keys);
    if (status == 0) status = mdb_dbi_open(txn, "meta", MDB_CREATE, &meta);
    if (status == 0) status = mdb_put(txn, keys, &rootName, &rootValue, 0);
    if (status == 0) status = mdb_put(txn, meta, &formatName, &format, 0);
    if (status != 0) {
        mdb_txn_abort(txn);
        return FailStore(status);
    }
    if (status = mdb_txn_commit(txn); status != 0) return FailStore(status);
    return {};
}

Result<std::unique_ptr<Metabase>> Metabase::Open(const std::filesystem::path& folder, Access access)
{
    const auto file = StoreFile(folder);
    std::error_code error;
    const auto length = std::filesystem::file_size(file, error);
    if (error) return Fail(CodeFromErrno(error.value()), "Metabase");
    // An empty file would be taken for a new store and filled.
    if (length == 0) return Fail(Code::FileCorrupt, "Metabase", "The metabase file is empty.");

    MDB_env* raw = nullptr;
    if (const int status = mdb_env_create(&raw)) return FailStore(status);
    std::unique_ptr<Metabase> store(new Metabase);
    store->m_env.reset(raw);
    store->m_access = access;
    mdb_env_set_maxdbs(raw, 2);
    mdb_env_set_mapsize(raw, kMapSize);
    const unsigned flags = MDB_NOSUBDIR | MDB_NOTLS | (access == Access::Read ? MDB_RDONLY : 0U);
    if (const int status = mdb_env_open(raw, file.c_str(), flags, kFileMode)) return FailStore(status);
    ForgetDeadReaders(raw);
    // A writer that is at work, or was cut short, may not have come to it.
    if (access == Access::Write && std::filesystem::exists(folder / kUncleanMark, error)) Lengthen(raw);
    if (auto checked = CheckLength(raw, file); !checked) return Fail(checked.error());
    if (auto checked = store->CheckFormat(); !checked) return Fail(checked.error());
    return store;
}

Done Metabase::CheckFormat()
{
    MDB_txn* txn = nullptr;
    if (const int status = mdb_txn_begin(m_env.get(), nullptr, MDB_RDONLY, &txn)) return FailStore(status);
    int status = mdb_dbi_open(txn, "keys", 0, &m_keys);
    if (status == 0) status = mdb_dbi_open(txn, "meta", 0, &m_meta);
    auto name = Val(kFormatName);
    MDB_val value{};
    if (status == 0) status = mdb_get(txn, m_meta, &name, &value);
    const bool isOurs = status == 0 && KeyRowText(Span(value)) == kFormat;
    // Committing, not aborting, keeps the database handles open.
    if (const int committed = mdb_txn_commit(txn); committed != 0) return FailStore(committed);
    if (isOurs) return {};
    if (status != 0 && status != MDB_NOTFOUND) return FailStore(status);
    return Fail(Code::FileCorrupt, "Metabase", "The file is not a metabase of this version.");
}

Result<ReadTxn> Metabase::BeginRead() const
{
    MDB_txn* txn = nullptr;
    int status = mdb_txn_begin(m_env.get(), nullptr, MDB_RDONLY, &txn);
    if (status == MDB_READERS_FULL) {
        ForgetDeadReaders(m_env.get());
        status = mdb_txn_begin(m_env.get(), nullptr, MDB_RDONLY, &txn);
    }
    if (status != 0) return FailStore(status);
    return ReadTxn(txn, m_keys, m_meta);
}

Result<WriteTxn> Metabase::BeginWrite()
{
    if (m_access != Access::Write) return Fail(Code::AccessDenied, "Metabase");
    ForgetDeadReaders(m_env.get());
    MDB_txn* txn = nullptr;
    if (const int status = mdb_txn_begin(m_env.get(), nullptr, 0, &txn)) return FailStore(status);
    return WriteTxn(txn, m_keys, m_meta);
}

void ReadTxn::AbortTxn::operator()(MDB_txn* txn) const
{
    mdb_txn_abort(txn);
}

Result<std::optional<KeyRow>> ReadTxn::Child(KeyId parent, std::string_view name) const
{
    // What is longer than any stored name is simply not there.
    if (name.size() > kLongestName) return std::nullopt;
    KeyBuffer buffer;
    auto key = Val(ChildKey(buffer, parent, name));
    MDB_val value{};
    const int status = mdb_get(m_txn.get(), m_keys, &key, &value);
    if (status == MDB_NOTFOUND) return std::nullopt;
    if (status != 0) return FailStore(status);
    return UnpackKeyRow(name, Span(value));
}

Result<std::optional<KeyRow>> ReadTxn::Find(std::string_view path) const
{
    auto row = Child(kNoParent, "root");
    if (!row || !*row) return row;
    auto rest = path;
    while (!rest.empty()) {
        const auto parent = (*row)->id;
        row = Child(parent, TakeSegment(rest));
        if (!row || !*row) return row;
    }
    (*row)->name = LastSegment(path);
    return row;
}

Result<std::optional<Bytes>> ReadTxn::Meta(std::string_view name) const
{
    auto key = Val(name);
    MDB_val value{};
    const int status = mdb_get(m_txn.get(), m_meta, &key, &value);
    if (status == MDB_NOTFOUND) return std::nullopt;
    if (status != 0) return FailStore(status);
    const auto bytes = Span(value);
    return Bytes(bytes.begin(), bytes.end());
}

// ---- changes

struct WriteTxn::Place {
    KeyId parent = kNoParent;
    std::string name = "root";
    KeyId id = 0;
    std::uint32_t childCount = 0;
    Bytes properties;
    bool found = true;
};

Done WriteTxn::PutRow(KeyId parent, const KeyRow& row)
{
    KeyBuffer buffer;
    std::string packed;
    PackKeyRow(packed, row.id, row.childCount, row.properties);
    auto key = Val(ChildKey(buffer, parent, row.name));
    auto value = Val(packed);
    if (const int status = mdb_put(m_txn.get(), m_keys, &key, &value, 0)) return FailStore(status);
    return {};
}

Done WriteTxn::DropRow(KeyId parent, std::string_view name)
{
    KeyBuffer buffer;
    auto key = Val(ChildKey(buffer, parent, name));
    const int status = mdb_del(m_txn.get(), m_keys, &key, nullptr);
    if (status != 0 && status != MDB_NOTFOUND) return FailStore(status);
    return {};
}

Result<KeyId> WriteTxn::NewId()
{
    auto stored = Meta(kNextIdName);
    if (!stored) return Fail(stored.error());
    const KeyId id = *stored && (*stored)->size() == sizeof(KeyId) ? LoadLittle<KeyId>((*stored)->data()) : 1;
    std::array<std::byte, sizeof(KeyId)> next{};
    StoreLittle(next.data(), id + 1);
    if (auto kept = SetMeta(kNextIdName, next); !kept) return Fail(kept.error());
    return id;
}

Done WriteTxn::AddToChildCount(const Place& parent, int change)
{
    const auto count = static_cast<std::uint32_t>(static_cast<std::int64_t>(parent.childCount) + change);
    return PutRow(parent.parent, {parent.id, count, parent.name, parent.properties});
}

// Goes down the path; with `make`, what is missing is made on the way.
Result<WriteTxn::Place> WriteTxn::Locate(std::string_view path, bool make)
{
    Place place;
    const auto fill = [&place](const KeyRow& row) {
        place.id = row.id;
        place.childCount = row.childCount;
        place.properties.assign(row.properties.begin(), row.properties.end());
    };
    auto row = Child(kNoParent, place.name);
    if (!row) return Fail(row.error());
    if (!*row) return Fail(Code::FileCorrupt, "Metabase");
    fill(**row);

    auto rest = path;
    while (!rest.empty()) {
        const auto name = TakeSegment(rest);
        row = Child(place.id, name);
        if (!row) return Fail(row.error());
        if (!*row) {
            if (!make) {
                place.found = false;
                return place;
            }
            if (auto checked = CheckName(name); !checked) return Fail(checked.error());
            const auto id = NewId();
            if (!id) return Fail(id.error());
            if (auto counted = AddToChildCount(place, 1); !counted) return Fail(counted.error());
            if (auto put = PutRow(place.id, {*id, 0, name, {}}); !put) return Fail(put.error());
            place = Place{place.id, std::string(name), *id, 0, {}, true};
            continue;
        }
        place.parent = place.id;
        place.name = name;
        fill(**row);
    }
    return place;
}

Result<KeyId> WriteTxn::MakeKey(std::string_view path)
{
    return Locate(path, true).map([](const Place& place) { return place.id; });
}

Done WriteTxn::SetProperties(std::string_view path, const PropertySet& properties)
{
    const auto place = Locate(path, true);
    if (!place) return Fail(place.error());
    return PutRow(place->parent, {place->id, place->childCount, place->name, properties.Packed()});
}

Done WriteTxn::RemoveKey(std::string_view path)
{
    const auto row = Find(path);
    if (!row) return Fail(row.error());
    if (!*row) return {};
    if ((*row)->childCount != 0) return Fail(Code::NotSupported, "Metabase");
    return Detach(path);
}

Done WriteTxn::Detach(std::string_view path)
{
    if (path.empty()) return Fail(Code::NotSupported, "Metabase");
    const auto parent = Locate(ParentPath(path), false);
    if (!parent) return Fail(parent.error());
    const auto name = LastSegment(path);
    const auto row = Child(parent->id, name);
    if (!row) return Fail(row.error());
    if (!parent->found || !*row) return {};
    if (auto dropped = DropRow(parent->id, name); !dropped) return dropped;
    return AddToChildCount(*parent, -1);
}

Done WriteTxn::SetMeta(std::string_view name, std::span<const std::byte> bytes)
{
    auto key = Val(name);
    auto value = Val(bytes);
    if (const int status = mdb_put(m_txn.get(), m_meta, &key, &value, 0)) return FailStore(status);
    return {};
}

Done WriteTxn::Commit()
{
    auto* env = mdb_txn_env(m_txn.get());
    if (const int status = mdb_txn_commit(m_txn.release())) return FailStore(status);
    Lengthen(env);
    return {};
}

}  // namespace zentrel
