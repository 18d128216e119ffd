#include "cache/CacheTree.h"

#include "base/FillIn.h"
#include "base/Text.h"
#include "format/FormatValue.h"

#include <algorithm>

namespace {

constexpr unsigned kStepsBetweenTicks = 2048;
constexpr std::string_view kRatioPicture = "0.##%";

bool KeepsOrder(NodeKind kind)
{
    return kind == NodeKind::WebSite || kind == NodeKind::Folder || kind == NodeKind::VDir;
}

}  // namespace

std::string_view ImageKey(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Root: return "IIS";
    case NodeKind::WebSite: return "WebSite";
    case NodeKind::Folder: return "Folder";
    case NodeKind::VDir: return "VDir";
    case NodeKind::File: return "File";
    case NodeKind::MultiFile: return "MultiFile";
    }
    return {};
}

std::size_t CacheTree::ChildCount(NodeId node) const
{
    const auto branch = m_nodes[node].branch;
    return branch == kNoBranch ? 0 : m_branches[branch].children.size();
}

NodeId CacheTree::Child(NodeId node, std::size_t row) const
{
    return m_branches[m_nodes[node].branch].children[row];
}

std::string_view CacheTree::Name(NodeId node) const
{
    return {m_nodes[node].name, m_nodes[node].nameSize};
}

std::string CacheTree::Key(NodeId node) const
{
    if (node == Root()) return std::string(Name(node));
    std::vector<NodeId> line;
    std::size_t size = 0;
    for (auto at = node; at != Root(); at = Parent(at)) {
        line.push_back(at);
        size += Name(at).size() + 1;
    }
    std::string key;
    key.reserve(size);
    for (auto at = line.rbegin(); at != line.rend(); ++at) {
        if (at != line.rbegin()) key += '/';
        key += Name(*at);
    }
    return key;
}

std::string CacheTree::Text(NodeId node) const
{
    if (const auto found = m_texts.find(node); found != m_texts.end()) return found->second;
    std::string text(Name(node));
    switch (Kind(node)) {
    case NodeKind::Root: return Translate("CacheTree", "Internet Information Services");
    case NodeKind::WebSite:
    case NodeKind::Folder:
    case NodeKind::VDir: return text;
    case NodeKind::File:
        return FillIn(m_fileText,
                      {text, FormatValue(m_infos.Ratio(m_nodes[node].info), kRatioPicture, m_locale)});
    case NodeKind::MultiFile:
        return FillIn(m_multiFileText, {text, std::to_string(m_infos[m_nodes[node].info].subQueryCount)});
    }
    return text;
}

NodeId CacheTree::Find(std::string_view key) const
{
    if (Root() == kNoNode) return kNoNode;
    if (key == Name(Root())) return Root();
    auto at = Root();
    for (std::size_t begin = 0; begin <= key.size();) {
        // A site's part of the key is two segments, "1/Root".
        auto end = key.find('/', begin);
        if (at == Root() && end != std::string_view::npos) end = key.find('/', end + 1);
        end = std::min(end, key.size());
        const auto name = key.substr(begin, end - begin);
        auto next = kNoNode;
        for (std::size_t row = 0; row < ChildCount(at) && next == kNoNode; ++row)
            if (Name(Child(at, row)) == name) next = Child(at, row);
        if (next == kNoNode) return kNoNode;
        at = next;
        begin = end + 1;
    }
    return at;
}

FileInfo CacheTree::Info(NodeId node) const
{
    return m_infos.Unpack(m_nodes[node].info, "LM/W3SVC/" + Key(node));
}

void CacheTree::SetInfo(NodeId node, const FileInfo& info)
{
    auto& index = m_nodes[node].info;
    if (index == PackedInfos::None)
        index = m_infos.Add(info);
    else
        m_infos.Replace(index, info);
}

NodeId CacheTree::NewNode(NodeId parent, std::string_view name, NodeKind kind)
{
    const auto id = static_cast<NodeId>(m_nodes.size());
    const auto above = parent == kNoNode ? -1 : m_nodes[parent].depth;
    const auto depth = static_cast<std::uint16_t>(std::min(above + 1, 0xFFFF));
    m_nodes.push_back({m_names.Keep(name.data(), name.size()), static_cast<std::uint32_t>(name.size()),
                       parent, 0, PackedInfos::None, kNoBranch, kind, depth});
    return id;
}

NodeId CacheTree::AddRoot()
{
    return NewNode(kNoNode, "Root", NodeKind::Root);
}

NodeId CacheTree::AddChild(NodeId parent, std::string_view name, NodeKind kind)
{
    const auto id = NewNode(parent, name, kind);
    auto& branchIndex = m_nodes[parent].branch;
    if (branchIndex == kNoBranch) {
        branchIndex = static_cast<std::uint32_t>(m_branches.size());
        m_branches.emplace_back();
    }
    auto& branch = m_branches[branchIndex];
    m_nodes[id].row = static_cast<std::uint32_t>(branch.children.size());
    branch.children.push_back(id);
    if (branch.byName != nullptr)
        branch.byName->emplace(Name(id), id);
    else if (branch.lastAdded != kNoNode && Name(branch.lastAdded) >= name)
        IndexNames(branch);
    branch.lastAdded = id;
    return id;
}

void CacheTree::IndexNames(Branch& branch) const
{
    branch.byName = std::make_unique<NamesToNodes>();
    branch.byName->reserve(branch.children.size());
    for (const auto child : branch.children) branch.byName->emplace(Name(child), child);
}

NodeId CacheTree::FindChild(NodeId parent, std::string_view name)
{
    const auto index = m_nodes[parent].branch;
    if (index == kNoBranch) return kNoNode;
    auto& branch = m_branches[index];
    if (branch.byName == nullptr) {
        const auto order = Name(branch.lastAdded).compare(name);
        if (order == 0) return branch.lastAdded;
        if (order < 0) return kNoNode;
        IndexNames(branch);
    }
    const auto found = branch.byName->find(name);
    return found == branch.byName->end() ? kNoNode : found->second;
}

// By text. Where one name does not begin with the other, the names alone tell.
int CacheTree::Compare(NodeId left, NodeId right) const
{
    const auto a = Name(left);
    const auto b = Name(right);
    const auto shared = std::min(a.size(), b.size());
    const int order = CompareFolded(a.substr(0, shared), b.substr(0, shared));
    return order != 0 ? order : CompareText(Text(left), Text(right));
}

void CacheTree::SortChildren(NodeId parent, const std::function<void()>& tick)
{
    const auto index = m_nodes[parent].branch;
    if (index == kNoBranch || !KeepsOrder(Kind(parent))) return;
    auto& children = m_branches[index].children;
    unsigned steps = 0;
    const auto isBefore = [&](NodeId left, NodeId right) {
        if (++steps % kStepsBetweenTicks == 0) tick();
        return Compare(left, right) < 0;
    };
    children.shrink_to_fit();
    if (std::is_sorted(children.begin(), children.end(), isBefore)) return;
    std::stable_sort(children.begin(), children.end(), isBefore);
    for (std::size_t row = 0; row < children.size(); ++row)
        m_nodes[children[row]].row = static_cast<std::uint32_t>(row);
}

void CacheTree::Remove(NodeId node)
{
    auto& branch = m_branches[m_nodes[Parent(node)].branch];
    auto& children = branch.children;
    auto row = Row(node);
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(row));
    for (; row < children.size(); ++row) m_nodes[children[row]].row = static_cast<std::uint32_t>(row);
    if (branch.byName != nullptr) branch.byName->erase(Name(node));
}

void CacheTree::Clear()
{
    m_nodes.clear();
    m_names.clear();
    m_infos.Clear();
    m_branches.clear();
    m_branches.shrink_to_fit();
    m_texts.clear();
}
