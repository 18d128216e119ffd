#pragma once

#include "cache/CacheTree.h"
#include "zentrel/Admin.h"

#include <string>
#include <string_view>
#include <vector>

// Hangs cached URLs into the tree by their keys, with the sites and folders on the way to them. Keys that
// come in walk order cost no search.
class TreeBuilder {
public:
    TreeBuilder(CacheTree& tree, zentrel::ServerAdmin& server) : m_tree(tree), m_server(server) {}

    void AddRootNode();

    // key: as in 1/Root/dir/page.htm, two segments or more. A key that has a node already is left as it is.
    void AddFileNode(std::string_view key, const FileInfo& info);

    // Adds a site that has nothing cached, under its comment; nothing for a site that the server lacks.
    void AddEmptySite(std::string_view site);

    // Sorts the children of the node with this key, if there is one; see CacheTree::SortChildren.
    void SortChildren(std::string_view key, const std::function<void()>& tick);

private:
    struct Level {
        NodeId node;
        std::size_t end;  // of the level's part in m_lastKey
    };

    NodeId OnTheWay(std::string_view key) const;
    void KeepSharedLevels(std::string_view key);
    NodeId AddFolder(NodeId parent, std::string_view key, std::string_view name, bool isSite);
    void AddUrl(NodeId parent, std::string_view name, const FileInfo& info);
    std::string Comment(std::string_view site, bool& found) const;

    CacheTree& m_tree;
    zentrel::ServerAdmin& m_server;
    std::string m_lastKey;
    std::vector<Level> m_levels;  // the nodes on the way to m_lastKey, its own included
};
