#pragma once

#include <cstdint>
#include <span>
#include <vector>

// The numbers of the web sites that the user chose, in slots; a slot that holds 0 is free. One set serves
// all servers.
class SiteSet {
public:
    SiteSet() : m_slots(1, 0) {}
    explicit SiteSet(std::vector<std::int32_t> slots);  // as they are; no slot at all: one free slot

    bool Contains(std::int32_t site) const;
    void Add(std::int32_t site);     // into the lowest free slot; four more slots when there is none
    void Remove(std::int32_t site);  // frees the first slot that holds it
    void Trim();                     // drops free slots at the end, but for slot 0

    std::span<const std::int32_t> Slots() const { return m_slots; }

private:
    std::vector<std::int32_t> m_slots;  // never empty
};
