#pragma once

#include "zentrel/CacheFileReader.h"
#include "zentrel/remote/AdminCall.h"

namespace zentrel {

// Sends a cached file part by part. The next part is read when the last one was taken, so that a slow client
// holds one part in memory.
class CacheFileSender : public StreamWork {
public:
    static void Run(AdminCall& call);  // answers the call

    CacheFileSender(AdminCall& call, Places::Place place, std::unique_ptr<CacheFileReader> file)
        : m_call(call),
          m_place(std::move(place)),
          m_file(std::move(file))
    {
    }

    void OnWritten(bool ok) override;
    void Tick(std::chrono::steady_clock::time_point now) override;

private:
    void SendNext();
    void End(const grpc::Status& status);

    AdminCall& m_call;
    const std::chrono::steady_clock::time_point m_begun = std::chrono::steady_clock::now();
    Places::Place m_place;
    std::unique_ptr<CacheFileReader> m_file;
    bool m_isFirst = true;
};

}  // namespace zentrel
