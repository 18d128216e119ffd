#pragma once

#include "zentrel/Metabase.h"
#include "zentrel/RecordLayout.h"

#include <cstdint>
#include <string>
#include <vector>

// What the scan is measured against: the least that any program would have to do with the same data.

// Visits every key of the store in stored order and looks at each property. Answers the sum of their sizes.
std::uint64_t OrderedWalk(const zentrel::Metabase& store);

// A tree without anything around it: names in one pool, one full record for each node, children sorted by
// name, totals over everything.
struct BareArena {
    struct Node {
        std::uint32_t parent = 0;
        std::uint32_t name = 0;  // offset into names
        std::uint32_t nameSize = 0;
        zentrel::CacheRecord cache;
        zentrel::StatisticsRecord statistics;
    };

    std::vector<Node> nodes;
    std::string names;
    std::vector<std::vector<std::uint32_t>> children;  // by node
    double uncompressed = 0;
    double compressed = 0;
    std::int64_t hits = 0;
};

BareArena FillBareArena(const zentrel::Metabase& store);
