#include "platform/HiveFile.h"

#include "base/SystemError.h"
#include "platform/HivePlace.h"

#include <new>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

using sqlite::Connection;
using sqlite::Statement;

namespace {

constexpr int kBusyMilliseconds = 5000;

// Why a file is or is not a hive that can be used.
enum class Verdict { Good, Empty, NoDatabase, Damaged, Newer, Foreign, Unusable };

struct Opened {
    Connection db;
    Verdict verdict = Verdict::Unusable;
    int result = SQLITE_OK;  // why it is unusable
};

Opened FailedWith(Connection db, int result)
{
    switch (result & 0xFF) {
    case SQLITE_NOTADB: return {std::move(db), Verdict::NoDatabase, result};
    case SQLITE_CORRUPT: return {std::move(db), Verdict::Damaged, result};
    default: return {std::move(db), Verdict::Unusable, result};
    }
}

// A file from elsewhere may hold anything: nothing in it gets to run, and sizes are bounded.
void Harden(sqlite3* db)
{
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_limit(db, SQLITE_LIMIT_LENGTH, static_cast<int>(RegistryStore::kMostValueBytes + (1U << 20U)));
}

// Asks for one row; SQLITE_CORRUPT when there is none, or no such table.
int AskForRow(Statement& statement)
{
    const int result = statement.Step();
    return result == SQLITE_DONE || result == SQLITE_ERROR ? SQLITE_CORRUPT : result;
}

// SQLITE_OK, SQLITE_CORRUPT, or why that cannot be told: a hive that another process keeps locked is not to
// be taken for a damaged one.
int CheckSoundness(sqlite3* db)
{
    Statement check(db, "PRAGMA quick_check(1)");
    Statement tables(db, "SELECT count(*) FROM sqlite_schema WHERE type = 'table' "
                         "AND name IN ('keys', 'key_values')");
    Statement root(db, "SELECT parent, folded, name FROM keys WHERE id = ?", Hive::kRoot);
    Statement values(db, "SELECT count(id + key + type), max(folded || name), max(data) FROM key_values "
                         "WHERE id = 0");
    for (auto* statement : {&check, &tables, &root, &values})
        if (const int result = AskForRow(*statement); result != SQLITE_ROW) return result;
    return check.Text(0) == "ok" && tables.Number(0) == 2 ? SQLITE_OK : SQLITE_CORRUPT;
}

Opened Judge(Connection db)
{
    Statement marks(db.get(), "SELECT application_id, user_version, (SELECT count(*) FROM sqlite_schema) "
                              "FROM pragma_application_id, pragma_user_version");
    if (const int result = marks.Step(); result != SQLITE_ROW) return FailedWith(std::move(db), result);
    const auto application = marks.Number(0);
    const auto version = marks.Number(1);
    if (application == 0 && version == 0 && marks.Number(2) == 0) return {std::move(db), Verdict::Empty};
    if (application != Hive::kApplicationId) return {std::move(db), Verdict::Foreign};
    if (version > Hive::kVersion) return {std::move(db), Verdict::Newer};
    const int result = version == Hive::kVersion ? CheckSoundness(db.get()) : SQLITE_CORRUPT;
    if (result != SQLITE_OK) return FailedWith(std::move(db), result);
    return {std::move(db), Verdict::Good};
}

Opened OpenFile(const std::string& name, int flags)
{
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection db(raw);
    if (!db) throw std::bad_alloc();
    sqlite3_extended_result_codes(raw, 1);
    sqlite3_busy_timeout(raw, kBusyMilliseconds);
    if (result != SQLITE_OK) return FailedWith(std::move(db), result);
    Harden(raw);
    // What turns out to be no hive stays as it is, its log included.
    sqlite3_db_config(raw, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    return Judge(std::move(db));
}

std::string FileUri(const fs::path& file)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "/._-0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    std::string uri = "file:";
    for (const char c : file.native()) {
        const auto byte = static_cast<unsigned char>(c);
        if (kPlain.find(c) != std::string_view::npos)
            uri += c;
        else
            ((uri += '%') += kDigits[byte >> 4]) += kDigits[byte & 0xFU];
    }
    return uri;
}

// Reads without a lock, a log or a file beside it: all that is possible in a folder or on a disk where
// nothing can be written. What is still in the log is missed.
Opened OpenUntouched(const fs::path& file)
{
    return OpenFile(FileUri(file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

std::unique_ptr<Hive> MemoryHive(bool readOnly)
{
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection db(raw);
    if (result != SQLITE_OK || Hive::MakeTables(raw) != SQLITE_OK) throw std::bad_alloc();
    sqlite::Run(raw, "PRAGMA foreign_keys = ON");
    return std::make_unique<Hive>(std::move(db), readOnly);
}

// Makes every write last once its call is over. WAL is a lasting property of the file; where it cannot be
// had, the rollback journal is as safe. Answers why the hive cannot be written.
int MakeReady(const Opened& opened)
{
    sqlite3* db = opened.db.get();
    if (sqlite3_db_readonly(db, "main") == 1) return SQLITE_READONLY;
    sqlite3_db_config(db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    sqlite::Run(db, "PRAGMA journal_mode = WAL");
    const int result = sqlite::Run(db, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON");
    if (result != SQLITE_OK) return result;
    // For a finished hive this changes nothing, but tells whether it could be changed.
    const int written = Hive::MakeTables(db);
    return opened.verdict == Verdict::Good && (written & 0xFF) == SQLITE_BUSY ? SQLITE_OK : written;
}

std::string Named(const fs::path& file)
{
    return "The settings file \"" + file.string() + "\" ";
}

std::unique_ptr<Hive> GiveUp(const fs::path& file, std::string_view why, std::string& trouble)
{
    trouble = Named(file) + std::string(why) + "; changes last until the program ends.";
    return MemoryHive(false);
}

std::unique_ptr<Hive> OnlyRead(Opened opened, const fs::path& file, int result, std::string& trouble)
{
    trouble = Named(file) + "cannot be written (" + sqlite3_errstr(result) + "); it is only read.";
    return std::make_unique<Hive>(std::move(opened.db), true);
}

std::unique_ptr<Hive> UseWritable(Opened opened, const fs::path& file, std::string& trouble)
{
    const int result = MakeReady(opened);
    if (result == SQLITE_OK) return std::make_unique<Hive>(std::move(opened.db), false);
    if (opened.verdict == Verdict::Good) return OnlyRead(std::move(opened), file, result, trouble);
    return GiveUp(file, std::string("cannot be written (") + sqlite3_errstr(result) + ")", trouble);
}

std::unique_ptr<Hive> UseUnwritable(const fs::path& file, int result, std::string& trouble)
{
    auto opened = OpenUntouched(file);
    if (opened.verdict == Verdict::Good) return OnlyRead(std::move(opened), file, result, trouble);
    return GiveUp(file, std::string("cannot be opened (") + sqlite3_errstr(result) + ")", trouble);
}

struct BadKind {
    const char* fileName;  // part of the name that such a file gets
    const char* sentence;
};

BadKind BadKindOf(Verdict verdict)
{
    switch (verdict) {
    case Verdict::NoDatabase: return {"not-a-database", "is no database"};
    case Verdict::Newer: return {"newer-version", "is from a newer version"};
    default: return {"damaged", "is damaged"};
    }
}

// Null when the file was replaced and is to be looked at again.
std::unique_ptr<Hive> UseFile(const HivePlace& place, std::string& trouble)
{
    Opened opened{nullptr, Verdict::NoDatabase};
    if (place.status.st_size != 1)  // SQLite would take a single byte for an empty file
        opened = OpenFile(place.path.string(), SQLITE_OPEN_READWRITE);
    if (opened.verdict == Verdict::Foreign)
        return GiveUp(place.path, "belongs to another program and is left alone", trouble);
    if (opened.verdict == Verdict::Unusable) return UseUnwritable(place.path, opened.result, trouble);
    if (opened.verdict == Verdict::Good || opened.verdict == Verdict::Empty)
        return UseWritable(std::move(opened), place.path, trouble);
    opened.db.reset();
    const auto bad = BadKindOf(opened.verdict);
    const auto moved = MoveHiveAside(place, bad.fileName);
    if (moved) trouble = Named(place.path) + bad.sentence + "; it was moved to \"" + moved->string() + "\".";
    if (moved || moved.error().Is(Code::SharingViolation)) return nullptr;
    return GiveUp(place.path, std::string(bad.sentence) + " and cannot be moved aside", trouble);
}

}  // namespace

std::unique_ptr<Hive> OpenUserHive(const fs::path& file, std::string& trouble)
{
    // A round finds what is there, makes or moves the file, or lost a race for that; a few rounds settle it.
    for (int round = 0; round < 5; ++round) {
        const FolderLock lock(LookAtHive(file).path.parent_path());
        const auto place = LookAtHive(file);
        if (place.kind == HivePlace::Kind::SomethingElse)
            return GiveUp(place.path, "is not an ordinary file", trouble);
        if (place.kind == HivePlace::Kind::File) {
            if (auto hive = UseFile(place, trouble)) return hive;
        } else if (const auto made = MakeHiveFile(place.path); !made) {
            return GiveUp(place.path, "cannot be made (" + made.error().description + ")", trouble);
        }
    }
    return GiveUp(file, "changes all the time", trouble);
}

std::unique_ptr<Hive> OpenMachineHive(const fs::path& file, std::string& trouble)
{
    const auto place = LookAtHive(file);
    if (place.kind == HivePlace::Kind::Nothing) return MemoryHive(true);
    if (place.kind == HivePlace::Kind::File) {
        auto opened = OpenFile(place.path.string(), SQLITE_OPEN_READONLY);
        if (opened.verdict == Verdict::Unusable) opened = OpenUntouched(place.path);
        if (opened.verdict == Verdict::Good) return std::make_unique<Hive>(std::move(opened.db), true);
    }
    trouble = "The machine's settings in \"" + place.path.string() + "\" cannot be read; there are none.";
    return MemoryHive(true);
}
