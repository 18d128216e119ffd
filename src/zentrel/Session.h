#pragma once

#include "base/Result.h"
#include "zentrel/CacheFileReader.h"
#include "zentrel/Counters.h"
#include "zentrel/HostServices.h"
#include "zentrel/Property.h"
#include "zentrel/SubtreeStream.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zentrel {

// The server's keys: all of them, or those that lead to cached URLs (what the cache operations see).
enum class View { Server, Cache };

struct KeyPage {
    std::vector<std::string> names;  // in the server's order
    bool isLast = true;
};

// One connection to a server's administration, whatever carries it. Paths as in CheckPath.
// Any call may fail with ServerUnavailable when the server is gone.
class Session {
public:
    virtual ~Session() = default;

    virtual std::string ServerName() const = 0;
    virtual bool IsLocal() const = 0;

    virtual Done OpenKey(std::string_view path) = 0;  // FileNotFound when there is no such key
    virtual Result<std::uint32_t> CountKeys(std::string_view path, View view) = 0;
    // At most `most` child names that come after `after` in the server's order (from the first if empty).
    virtual Result<KeyPage> ListKeys(std::string_view path, View view, std::string_view after,
                                     std::uint32_t most) = 0;
    // Empty when the key has no such property; FileNotFound when there is no such key.
    virtual Result<std::optional<Record>> GetData(std::string_view path, PropertyId id) = 0;
    virtual Result<std::unique_ptr<SubtreeStream>> OpenSubtree(std::string_view path) = 0;

    virtual Done DeleteEntry(std::string_view path) = 0;
    virtual Done DeleteTree(std::string_view path) = 0;
    virtual Result<std::string> GetCacheDir() = 0;
    // A file of the cache folder, by its path below it with slashes ("12/1234.gzip"). InvalidName for what
    // is no cached file's path, FileNotFound, PathNotFound, AccessDenied. A file that is not read for more
    // than ten seconds may be lost to a server far away; a reader outlives its session.
    virtual Result<std::unique_ptr<CacheFileReader>> OpenCacheFile(std::string_view path) = 0;
    virtual Done ResetCounters() = 0;
    // AccessDenied: the host lets nobody read its counters from afar at present.
    virtual Result<CounterTotals> ReadCounters() = 0;
};

// Makes sessions by server name. One transport serves all administration objects of a process.
class Transport {
public:
    virtual ~Transport() = default;

    virtual std::string LocalName() const = 0;  // this machine's name
    // ServerUnavailable: nothing there under this name; UnknownInterface, InterfaceNotFound: no service of
    // a kind that this program speaks to; AccessDenied.
    virtual Result<std::shared_ptr<Session>> Connect(std::string_view server) = 0;
    // The services of a host (of this machine when `machine` is empty). Fails with the plain code 1722 when
    // the host does not answer, 5 when it refuses.
    virtual Result<std::unique_ptr<ServiceManager>> OpenServiceManager(std::string_view machine,
                                                                       std::uint32_t access) = 0;
};

}  // namespace zentrel
