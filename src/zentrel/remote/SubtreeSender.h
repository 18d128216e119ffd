#pragma once

#include "zentrel/SubtreeStream.h"
#include "zentrel/remote/AdminCall.h"
#include "zentrel/remote/AdminEndpoint.h"

namespace zentrel {

// Sends a walk over a subtree. While one message is on its way the next one is filled, never more: the walk
// runs ahead of the client by one message, and a client that does not read on stops it.
class SubtreeSender : public StreamWork {
public:
    static void Run(AdminCall& call);  // answers the call

    SubtreeSender(AdminCall& call, Places::Place place, std::unique_ptr<SubtreeStream> walk);
    ~SubtreeSender() override;

    void OnWritten(bool ok) override;
    void Tick(std::chrono::steady_clock::time_point now) override;

private:
    class Batches;

    void Pump(std::unique_lock<std::mutex>& guard);
    Result<grpc::ByteBuffer> Fill();  // an empty one at the end
    void End();

    AdminCall& m_call;
    const std::chrono::steady_clock::time_point m_begun = std::chrono::steady_clock::now();
    std::shared_ptr<Batches> m_batches;

    std::mutex m_mutex;                     // guards what follows; the walk belongs to who fills
    std::unique_ptr<SubtreeStream> m_walk;  // none: the walk is over
    grpc::ByteBuffer m_next;
    bool m_hasNext = false;
    bool m_isFilling = false;
    bool m_isWriting = false;
    bool m_isBroken = false;
    bool m_isEnded = false;
    grpc::Status m_outcome;
    Places::Place m_place;
};

}  // namespace zentrel
