#pragma once

#include "base/Result.h"
#include "zentrel/Metabase.h"

namespace zentrel {

// Keeps a transaction's changes, as WriteTxn::Commit does. Where that cannot tell a full disk from a broken
// one, because a part of a write still fitted, this looks and fails with DiskFull.
Done CommitChange(WriteTxn& txn);

}  // namespace zentrel
