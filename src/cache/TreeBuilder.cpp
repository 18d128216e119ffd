#include "cache/TreeBuilder.h"

#include "base/FillIn.h"
#include "base/Translate.h"

#include <algorithm>

void TreeBuilder::AddRootNode()
{
    m_lastKey.clear();
    m_levels.clear();
    if (m_tree.Root() == kNoNode) m_tree.AddRoot();
}

void TreeBuilder::SortChildren(std::string_view key, const std::function<void()>& tick)
{
    const auto node = OnTheWay(key);
    if (node != kNoNode) m_tree.SortChildren(node, tick);
}

NodeId TreeBuilder::OnTheWay(std::string_view key) const
{
    const auto level = std::lower_bound(m_levels.begin(), m_levels.end(), key.size(),
                                        [](const Level& at, std::size_t end) { return at.end < end; });
    const bool isThere =
        level != m_levels.end() && level->end == key.size() && std::string_view(m_lastKey).starts_with(key);
    return isThere ? level->node : kNoNode;
}

void TreeBuilder::KeepSharedLevels(std::string_view key)
{
    const std::string_view last = m_lastKey;
    const auto shorter = std::min(last.size(), key.size());
    const auto shared = static_cast<std::size_t>(
        std::mismatch(last.begin(), last.begin() + static_cast<std::ptrdiff_t>(shorter), key.begin()).first -
        last.begin());
    const auto isAbove = [&](std::size_t end) {
        return end <= shared && end < key.size() && key[end] == '/';
    };
    while (!m_levels.empty() && !isAbove(m_levels.back().end)) m_levels.pop_back();
}

void TreeBuilder::AddFileNode(std::string_view key, const FileInfo& info)
{
    KeepSharedLevels(key);
    m_lastKey = key;
    for (;;) {
        const auto at = m_levels.empty() ? m_tree.Root() : m_levels.back().node;
        const auto begin = m_levels.empty() ? 0 : m_levels.back().end + 1;
        auto end = key.find('/', begin);
        if (m_levels.empty() && end != std::string_view::npos) end = key.find('/', end + 1);
        const bool isUrl = end == std::string_view::npos;
        end = std::min(end, key.size());
        const auto name = key.substr(begin, end - begin);

        auto next = m_tree.FindChild(at, name);
        if (isUrl && !m_levels.empty()) {
            if (next == kNoNode) AddUrl(at, name, info);
            return;
        }
        if (next == kNoNode) next = AddFolder(at, key.substr(0, end), name, m_levels.empty());
        m_levels.push_back({next, end});
        if (!isUrl) continue;
        // The site's own key is a cached URL: the site keeps its node and holds the record.
        if (!m_tree.HasInfo(next)) m_tree.SetInfo(next, info);
        return;
    }
}

void TreeBuilder::AddUrl(NodeId parent, std::string_view name, const FileInfo& info)
{
    const auto kind = info.SubQueryCount != 0 ? NodeKind::MultiFile : NodeKind::File;
    const auto node = m_tree.AddChild(parent, name, kind);
    m_tree.SetInfo(node, info);
    m_levels.push_back({node, m_lastKey.size()});
}

NodeId TreeBuilder::AddFolder(NodeId parent, std::string_view key, std::string_view name, bool isSite)
{
    const auto node = m_tree.AddChild(parent, name, NodeKind::Folder);
    if (isSite) {
        bool found = false;
        const auto comment = Comment(key.substr(0, key.find('/')), found);
        m_tree.SetText(node, found ? comment : std::string(name.substr(name.find('/') + 1)));
        m_tree.SetKind(node, NodeKind::WebSite);
        return node;
    }
    const auto type = m_server.GetData("LM/W3SVC/" + std::string(key), zentrel::Prop::KeyType);
    if (type && *type && (*type)->Text() == zentrel::kVirtualDirType) m_tree.SetKind(node, NodeKind::VDir);
    return node;
}

std::string TreeBuilder::Comment(std::string_view site, bool& found) const
{
    const auto comment = m_server.GetData("/LM/W3SVC/" + std::string(site), zentrel::Prop::ServerComment);
    found = comment && *comment;
    return found ? std::string((*comment)->Text()) : std::string();
}

void TreeBuilder::AddEmptySite(std::string_view site)
{
    bool found = false;
    const auto comment = Comment(site, found);
    const auto name = std::string(site) + "/Root";
    if (!found || m_tree.FindChild(m_tree.Root(), name) != kNoNode) return;
    const auto node = m_tree.AddChild(m_tree.Root(), name, NodeKind::WebSite);
    m_tree.SetText(node, FillIn(Translate("CacheTree", "%1 (nothing cached)"), {comment}));
}
