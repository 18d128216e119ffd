#include "zentrel/Responder.h"

#include "zentrel/KeyPath.h"

namespace zentrel {

namespace {

constexpr std::uint64_t kLargestBody = std::uint64_t{256} << 20U;  // bytes; held in memory
constexpr std::string_view kIndexPages[] = {"index.html", "index.htm"};

enum Status : int { Ok = 200, BadRequest = 400, Forbidden = 403, NotFound = 404, TooLarge = 413 };

Response Refused(int status)
{
    Response response;
    response.status = status;
    return response;
}

int StatusOf(const SystemError& error)
{
    const bool isAbsent = error.Is(Code::FileNotFound) || error.Is(Code::PathNotFound) ||
                          error.Is(Code::InvalidName);  // the system's own limits on names
    return isAbsent ? NotFound : Forbidden;
}

std::optional<Encoding> ChooseEncoding(const Request& request, Encoding preferred)
{
    if (request.acceptsGzip && request.acceptsDeflate) return preferred;
    if (request.acceptsGzip) return Encoding::Gzip;
    if (request.acceptsDeflate) return Encoding::Deflate;
    return std::nullopt;
}

Response Plain(Result<Bytes> body)
{
    if (!body) return Refused(StatusOf(body.error()));
    Response response;
    response.body = std::move(*body);
    return response;
}

}  // namespace

// The file that a request means, or the status that refuses it.
struct Responder::Source {
    int status = Ok;
    std::optional<SourceFile> file;
    UrlPlace place;
    std::string urlPath;
};

Responder::Responder(std::shared_ptr<Service> service) : m_service(std::move(service)), m_maker(*m_service) {}

Result<Response> Responder::Answer(const Request& request)
{
    ResponseCount count;
    auto response = MakeResponse(request, count);
    if (!response) return response;
    count.fromCache = response->fromCache;
    count.compressed = response->encoding.has_value();
    count.bytesSent = response->body.size();
    static_cast<void>(m_service->CountResponse(count));  // the service has the error
    return response;
}

Result<Responder::Source> Responder::FindSource(std::uint32_t site, const RequestUrl& url)
{
    std::vector<std::string> candidates;
    if (!url.isFolder) candidates.push_back(url.path);
    for (const auto page : kIndexPages)
        if (url.isFolder) candidates.push_back((url.path.empty() ? "" : url.path + '/') + std::string(page));

    Source source;
    source.status = NotFound;
    for (auto& candidate : candidates) {
        auto place = m_service->FindPlace(site, candidate);
        if (!place) return Fail(place.error());
        if (!*place || (*place)->rest.empty()) return source;
        auto file = SourceFile::Open((*place)->folder, (*place)->rest);
        source.status = file ? Ok : StatusOf(file.error());
        if (source.status == NotFound) continue;
        if (!file) return source;
        source.file.emplace(std::move(*file));
        source.place = std::move(**place);
        source.urlPath = std::move(candidate);
        break;
    }
    return source;
}

Result<Response> Responder::MakeResponse(const Request& request, ResponseCount& count)
{
    const auto url = ParseRequestUrl(request.url);
    if (!url) return Refused(BadRequest);
    const auto source = FindSource(request.site, *url);
    if (!source) return Fail(source.error());
    if (!source->file) return Refused(source->status);

    const auto& stamp = source->file->Stamp();
    const auto encoding = ChooseEncoding(request, source->place.encoding);
    if (!encoding || !VersionMaker::Takes(LastSegment(source->urlPath), stamp)) {
        if (stamp.size > kLargestBody) return Refused(TooLarge);
        return Plain(source->file->Read());
    }
    const VersionKey key{SiteRootKey(request.site) + '/' + source->urlPath, url->query, *encoding};
    return MakeCompressed(*source, key, count);
}

Result<Response> Responder::MakeCompressed(const Source& source, const VersionKey& key, ResponseCount& count)
{
    const auto& stamp = source.file->Stamp();
    auto cached = m_service->ReadVersion(key, stamp);
    if (!cached) return Fail(cached.error());
    Response response;
    count.bytesEquivalent = stamp.size;
    if (*cached) {
        response.encoding = key.encoding;
        response.body = std::move(**cached);
        response.fromCache = true;
        count.version = key;
        return response;
    }
    auto made = m_maker.Make(key, *source.file, source.place.level);
    if (!made) return Refused(StatusOf(made.error()));
    count.version = key;
    count.bytesEquivalent = made->plain.size();
    if (!made->compressed) return Plain(std::move(made->plain));
    response.encoding = key.encoding;
    response.body = std::move(*made->compressed);
    return response;
}

}  // namespace zentrel
