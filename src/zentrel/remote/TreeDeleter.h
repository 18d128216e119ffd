#pragma once

#include "zentrel/remote/AdminCall.h"

#include <administration.pb.h>

#include <optional>

namespace zentrel {

// Deletes a tree and sends news every second while it waits for its turn and works. A client that goes away
// before its turn has asked for nothing; one that goes away later has its tree deleted to the end.
class TreeDeleter : public StreamWork {
public:
    static void Run(AdminCall& call);  // answers the call

    TreeDeleter(AdminCall& call, v1::KeyRequest request) : m_call(call), m_request(std::move(request)) {}

    void OnWritten(bool ok) override;
    void Tick(std::chrono::steady_clock::time_point now) override;

private:
    void Delete();
    void Conclude();

    AdminCall& m_call;
    const v1::KeyRequest m_request;

    std::mutex m_mutex;  // guards what follows
    std::optional<Result<std::uint64_t>> m_outcome;
    std::uint64_t m_soFar = 0;
    bool m_isWriting = false;
};

}  // namespace zentrel
