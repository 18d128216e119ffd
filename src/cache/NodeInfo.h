#pragma once

#include "base/Translate.h"
#include "cache/CacheTree.h"

#include <optional>
#include <string>

// What the panel "File Information" shows of a tree node: the record of a file, or the sum of a folder's own
// files, which the caption counts. Without a record the panel is empty.
struct NodeInfo {
    std::optional<FileInfo> info;
    std::string caption;
};

inline constexpr const char* kFileInfoCaption = TRANSLATE_NOOP("frmMain", "File Information");

// node: kNoNode when none is selected.
NodeInfo InfoOfNode(const CacheTree& tree, NodeId node);
