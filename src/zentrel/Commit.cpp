#include "zentrel/Commit.h"

#include <lmdb.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace zentrel {

namespace {

constexpr std::uint64_t kRoomForACommit = std::uint64_t{16} << 20U;  // more than any of ours writes

bool HasRoom(MDB_env* store)
{
    mdb_filehandle_t file = -1;
    struct statvfs disk {};
    struct stat status {};
    rlimit limit{};
    mdb_env_get_fd(store, &file);
    if (fstatvfs(file, &disk) != 0 || fstat(file, &status) != 0 || getrlimit(RLIMIT_FSIZE, &limit) != 0)
        return true;
    const auto grown = static_cast<std::uint64_t>(status.st_size) + kRoomForACommit;
    return disk.f_bavail * disk.f_frsize >= kRoomForACommit && limit.rlim_cur >= grown;
}

}  // namespace

Done CommitChange(WriteTxn& txn)
{
    auto* store = mdb_txn_env(txn.Handle());
    auto kept = txn.Commit();
    if (!kept && kept.error().Is(Code::IoError) && !HasRoom(store)) return Fail(Code::DiskFull, "Metabase");
    return kept;
}

}  // namespace zentrel
