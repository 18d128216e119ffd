// What the main window's commands do to the cache and its tree.
#include "shell/Operation.h"

NodeId frmMain::SelectedNode() const
{
    return CacheTreeModel::NodeOf(trvFiles->currentIndex());
}

void frmMain::RefreshFileNode()
{
    if (m_isClosing || IsOccupied() || !IsConnected()) return;
    const Operation running(*this);
    const auto node = SelectedNode();
    if (node == kNoNode) return;
    m_scan.RefreshFileNode(node);
    m_info.SetCacheInfo();
    m_info.ShowNode(node);
}

// ---- removal

void frmMain::RemoveNodeCache()
{
    if (m_isClosing || IsOccupied()) return;
    const Operation running(*this);
    m_removal.RemoveNodeCache();
}

// Also while a scan runs: the tree shows what the scan found, whatever was deleted since.
void frmMain::CleanCache()
{
    if (m_isClosing || !IsConnected() || m_connection.IsBusy()) return;
    const Operation running(*this);
    m_removal.CleanCache();
}

void frmMain::ResetCounters()
{
    if (m_isClosing || !IsConnected() || m_connection.IsBusy()) return;
    const Operation running(*this);
    m_removal.ResetCounters();
}

std::optional<RemovalTarget> frmMain::SelectedTarget() const
{
    const auto node = SelectedNode();
    if (node == kNoNode) return std::nullopt;
    const auto& tree = m_state.contents.tree;
    const bool isUrl = IsUrl(tree.Kind(node));
    if (isUrl && !tree.HasInfo(node)) return std::nullopt;
    return RemovalTarget{node, isUrl, node == tree.Root() ? std::string() : tree.Key(node)};
}

void frmMain::TakeOut(const RemovalTarget& target)
{
    auto& contents = m_state.contents;
    if (target.node == contents.tree.Root()) {
        m_scan.ClearAll();
        contents.tree.AddRoot();
        ShowContents();
        return;
    }
    if (target.isUrl) contents.totals.Subtract(contents.tree.Info(target.node));
    m_model.TakeOut(contents.tree, target.node);
    m_info.SetCacheInfo();
}
