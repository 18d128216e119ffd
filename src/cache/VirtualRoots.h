#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Where the search for a key's virtual root reads from.
class VirtualRootReader {
public:
    virtual ~VirtualRootReader() = default;

    // Property 3001 of the key (as in LM/W3SVC/1/Root/dir), or nothing when it cannot be read.
    // The text stays valid until the next call.
    virtual std::string_view VirtualRoot(std::string_view key) = 0;
};

// The virtual root that a metabase path lies under.
struct VirtualRootMatch {
    std::string value;        // the root's folder as the server states it; empty = none found
    std::uint32_t level = 0;  // number of "/" in the key that holds it

    // Searches upward from the path itself to the site's key. The value's memory is used again.
    void Search(std::string_view storedPath, VirtualRootReader& reader);
    void Clear();

    friend bool operator==(const VirtualRootMatch&, const VirtualRootMatch&) = default;
};

// storedPath: without a leading "/".
VirtualRootMatch FindVirtualRoot(std::string_view storedPath, VirtualRootReader& reader);

// The path of the file that the URL key stands for, with backslashes; empty when no root was found.
std::string PhysicalPath(std::string_view storedPath, const VirtualRootMatch& match);
