#include "zentrel/remote/CacheFileSender.h"

#include "zentrel/remote/AdminEndpoint.h"
#include "zentrel/remote/Failures.h"
#include "zentrel/remote/Limits.h"

#include <administration.pb.h>

namespace zentrel {

// Every client may read what the server sends to anybody who asks for the URL.
void CacheFileSender::Run(AdminCall& call)
{
    v1::CacheFileRequest request;
    if (!call.ReadRequest(request)) return call.Finish({grpc::StatusCode::INVALID_ARGUMENT, "bad request"});
    auto place = call.Endpoint().TakeStreamPlace(call.Who().who);
    if (place == nullptr) return call.Finish({grpc::StatusCode::RESOURCE_EXHAUSTED, "too many streams"});
    auto file = call.Core().reads->OpenCacheFile(request.path());
    if (!file) return call.Finish(ToStatus(file.error()));
    auto sender = std::make_unique<CacheFileSender>(call, std::move(place), std::move(*file));
    auto& begun = *sender;
    call.Begin(std::move(sender));
    begun.SendNext();
}

void CacheFileSender::OnWritten(bool ok)
{
    if (!ok) return End(grpc::Status::CANCELLED);
    SendNext();
}

// The last step of its event: once a part is on its way, another thread may hear that it was taken.
void CacheFileSender::SendNext()
{
    const auto bytes = m_file->Read(Limit::FilePart);
    if (!bytes) return End(ToStatus(bytes.error()));
    if (bytes->empty() && !m_isFirst) return End(grpc::Status::OK);
    v1::CacheFilePart part;
    if (std::exchange(m_isFirst, false)) part.set_size(m_file->Size());
    part.set_data(bytes->data(), bytes->size());
    m_call.Write(Packed(part));
}

void CacheFileSender::End(const grpc::Status& status)
{
    m_file.reset();
    m_place.reset();  // before the client hears of the end and asks for the next file
    m_call.Finish(status);
}

void CacheFileSender::Tick(std::chrono::steady_clock::time_point now)
{
    if (now - m_begun > m_call.Core().Limits().longest) m_call.Cancel();
}

}  // namespace zentrel
