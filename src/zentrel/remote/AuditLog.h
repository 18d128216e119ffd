#pragma once

#include "base/Result.h"
#include "zentrel/FileHandle.h"
#include "zentrel/Role.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace zentrel {

// Who asks, as far as the server knows for sure.
struct Caller {
    std::string who;   // the certificate's name, or "uid 1000" behind a Unix socket
    std::string from;  // "ipv4:10.0.0.5:50112", "unix:"
    Role role = Role::Viewer;
    bool isLocal = false;  // through a Unix socket
};

// A change that somebody asked for.
struct AuditEntry {
    std::string_view what;               // the call's name
    std::string_view path;               // key or service; any bytes
    std::optional<std::uint64_t> count;  // entries that went
    Done outcome;
};

// One line for each change that a client asked for, refused or not. Names cannot forge a line or a part of
// one: whatever is not printable, and quotation marks, stand as \xNN; long ones are cut. Of one who is
// refused again and again, the first refusals of each minute are written and the others counted, lest a
// client without any rights fill the disk. Any thread.
class AuditLog {
public:
    // Appends to a file, made with mode 0640; to standard error when `file` is empty.
    static Result<std::unique_ptr<AuditLog>> Open(const std::filesystem::path& file);

    void Write(const Caller& caller, const AuditEntry& entry);

    // Goes on in another file, or in a new one of the same name. The old one stays in use when it fails.
    Done Reopen(const std::filesystem::path& file);

private:
    struct Refusals {
        std::chrono::steady_clock::time_point since;
        std::uint64_t count = 0;  // since then
    };

    AuditLog() = default;
    bool IsListed(const Caller& caller, std::string& line);
    void Put(const std::string& line);

    std::mutex m_mutex;                          // guards what follows
    FileHandle m_file;                           // none: standard error
    bool m_isTorn = false;                       // a full disk cut the last line short
    std::map<std::string, Refusals> m_refusals;  // by who
};

}  // namespace zentrel
