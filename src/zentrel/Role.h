#pragma once

#include <cstdint>

namespace zentrel {

// What a client of the administration may do; each role may do what those before it may.
enum class Role : std::uint32_t {
    Viewer = 1,    // read
    Operator = 2,  // delete entries and trees below a site, reset counters
    Admin = 3,     // delete everything, start and stop services
};

// A client certificate tells its role in a URI of its subject alternative names: this and the role's name in
// lower case. A certificate without one is a viewer's.
inline constexpr const char* kRoleUri = "zentrel:role:";

inline constexpr std::uint16_t kDefaultPort = 5280;

}  // namespace zentrel
