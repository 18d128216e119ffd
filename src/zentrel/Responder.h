#pragma once

#include "base/Result.h"
#include "zentrel/RequestUrl.h"
#include "zentrel/Service.h"
#include "zentrel/VersionMaker.h"

#include <memory>
#include <optional>
#include <string>

namespace zentrel {

struct Request {
    std::uint32_t site = 0;
    std::string url;  // path as a client sends it: percent-encoded, begins with "/", may carry "?query"
    bool acceptsGzip = true;
    bool acceptsDeflate = true;
};

struct Response {
    int status = 200;                  // 200, 400 (bad path), 403 (unreadable), 404 (no file or site), 413
    std::optional<Encoding> encoding;  // empty: the body is the file as it is
    Bytes body;
    bool fromCache = false;
};

// Answers requests for a service's sites: from the cache, or by reading the site's real file, compressing
// it and keeping the result with its records. Counts everything that the counters need.
// A responder answers one request at a time; threads have one each and share the service.
class Responder {
public:
    explicit Responder(std::shared_ptr<Service> service);  // the service is a writer

    // An error only when the store cannot be read; what is wrong with the request or with the site's file
    // is a status. When the answer cannot be kept (a full disk), it is given all the same, and the service
    // has the error (LastError).
    Result<Response> Answer(const Request& request);

private:
    struct Source;

    Result<Response> MakeResponse(const Request& request, ResponseCount& count);
    Result<Source> FindSource(std::uint32_t site, const RequestUrl& url);
    Result<Response> MakeCompressed(const Source& source, const VersionKey& key, ResponseCount& count);

    std::shared_ptr<Service> m_service;
    VersionMaker m_maker;
};

}  // namespace zentrel
