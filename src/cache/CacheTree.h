#pragma once

#include "base/ChunkedVector.h"
#include "base/Translate.h"
#include "cache/PackedInfo.h"
#include "format/FormatLocale.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

enum class NodeKind : std::uint8_t { Root, WebSite, Folder, VDir, File, MultiFile };

// One cached URL, be it with variants.
inline bool IsUrl(NodeKind kind)
{
    return kind == NodeKind::File || kind == NodeKind::MultiFile;
}

// The image keys that the kinds are known by: "IIS", "WebSite", "Folder", "VDir", "File", "MultiFile".
std::string_view ImageKey(NodeKind kind);

using NodeId = std::uint32_t;  // good until Clear
inline constexpr NodeId kNoNode = ~NodeId{0};

// The tree of sites, folders, virtual directories and cached URLs: an arena of small nodes, built for a
// million and more. Parent, row, child and counts are answered in constant time; nothing recurses, so keys
// may be as deep as a server likes. Names are a server's bytes; see Text for what may be shown.
class CacheTree {
public:
    explicit CacheTree(FormatLocale locale) : m_locale(std::move(locale)) {}

    NodeId Root() const { return m_nodes.size() == 0 ? kNoNode : 0; }
    std::size_t Size() const { return m_nodes.size(); }
    NodeKind Kind(NodeId node) const { return m_nodes[node].kind; }
    NodeId Parent(NodeId node) const { return m_nodes[node].parent; }  // kNoNode for the root
    std::size_t Row(NodeId node) const { return m_nodes[node].row; }
    std::size_t ChildCount(NodeId node) const;
    NodeId Child(NodeId node, std::size_t row) const;                  // row < ChildCount
    unsigned Depth(NodeId node) const { return m_nodes[node].depth; }  // 0 = the root; 65535 = that or more

    // The last part of the node's key: a path segment, "1/Root" for a site, "Root" for the root.
    std::string_view Name(NodeId node) const;
    std::string Key(NodeId node) const;       // as in 1/Root/img/logo.gif; "Root" for the root
    std::string Text(NodeId node) const;      // what the tree shows; the server's bytes in it as they are
    NodeId Find(std::string_view key) const;  // kNoNode when there is no such node; slow, not for a scan

    bool HasInfo(NodeId node) const { return m_nodes[node].info != PackedInfos::None; }
    FileInfo Info(NodeId node) const;  // HasInfo
    void SetInfo(NodeId node, const FileInfo& info);

    // Building. Adding the name that a node has already is the caller's fault; see FindChild.
    NodeId AddRoot();
    NodeId AddChild(NodeId parent, std::string_view name, NodeKind kind);
    void SetKind(NodeId node, NodeKind kind) { m_nodes[node].kind = kind; }
    void SetText(NodeId node, std::string text) { m_texts[node] = std::move(text); }

    // The child of that name or kNoNode. Fast for names that come in ascending order, as from a server.
    NodeId FindChild(NodeId parent, std::string_view name);

    // Sorts the children of a site, folder or virtual directory by text; to be called when they are all
    // there. `tick` is called every few thousand steps.
    void SortChildren(NodeId parent, const std::function<void()>& tick);

    // Takes a node out, with all below it; not the root. Only its siblings get other rows. What is left can
    // be read as before, but nothing is added any more until Clear, which frees what was taken out.
    void Remove(NodeId node);

    void Clear();

private:
    static constexpr std::uint32_t kNoBranch = ~std::uint32_t{0};

    struct Node {
        const char* name;
        std::uint32_t nameSize;
        NodeId parent;
        std::uint32_t row;
        PackedInfos::Index info;
        std::uint32_t branch;  // index into m_branches; kNoBranch without children
        NodeKind kind;
        std::uint16_t depth;
    };

    // The children of a node that has some.
    using NamesToNodes = std::unordered_map<std::string_view, NodeId>;
    struct Branch {
        std::vector<NodeId> children;
        NodeId lastAdded = kNoNode;            // has the greatest name as long as byName is not needed
        std::unique_ptr<NamesToNodes> byName;  // made when names stop coming in ascending order
    };

    NodeId NewNode(NodeId parent, std::string_view name, NodeKind kind);
    int Compare(NodeId left, NodeId right) const;
    void IndexNames(Branch& branch) const;

    FormatLocale m_locale;
    std::string m_fileText = Translate("CacheTree", "%1 (%2) Remains");
    std::string m_multiFileText = Translate("CacheTree", "%1 (%2 entries)");
    ChunkedVector<Node> m_nodes;
    TextPool m_names;
    PackedInfos m_infos;
    std::vector<Branch> m_branches;
    std::unordered_map<NodeId, std::string> m_texts;  // that do not follow from name and record
};
