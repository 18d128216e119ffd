#include "cache/NodeInfo.h"

#include "base/FillIn.h"

namespace {

bool IsFolder(NodeKind kind)
{
    return kind == NodeKind::Folder || kind == NodeKind::VDir || kind == NodeKind::WebSite;
}

// The files right below; neither those of its folders nor URLs that have several versions.
FileInfo SumOfFiles(const CacheTree& tree, NodeId folder)
{
    FileInfo sum;
    for (std::size_t row = 0; row < tree.ChildCount(folder); ++row) {
        const auto child = tree.Child(folder, row);
        if (tree.Kind(child) == NodeKind::File && tree.HasInfo(child)) sum.Add(tree.Info(child));
    }
    return sum;
}

}  // namespace

NodeInfo InfoOfNode(const CacheTree& tree, NodeId node)
{
    NodeInfo shown{{}, Translate("frmMain", kFileInfoCaption)};
    if (node == kNoNode) return shown;
    const auto kind = tree.Kind(node);
    if (kind == NodeKind::File || kind == NodeKind::MultiFile) {
        if (tree.HasInfo(node)) shown.info = tree.Info(node);
    } else if (IsFolder(kind)) {
        auto sum = SumOfFiles(tree, node);
        if (sum.Count == 0) return shown;
        sum.SetRelPath(tree.Key(node));
        shown.caption =
            FillIn(Translate("NodeInfo", "Directory Information (%1 Files)"), {std::to_string(sum.Count)});
        shown.info = std::move(sum);
    }
    return shown;
}
