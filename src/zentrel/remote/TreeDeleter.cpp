#include "zentrel/remote/TreeDeleter.h"

#include "zentrel/remote/AdminWork.h"
#include "zentrel/remote/Failures.h"

namespace zentrel {

void TreeDeleter::Run(AdminCall& call)
{
    v1::KeyRequest request;
    if (!call.ReadRequest(request)) return call.Finish({grpc::StatusCode::INVALID_ARGUMENT, "bad request"});
    if (const auto allowed = admin::AllowTree(call.Core(), call.Who(), request); !allowed)
        return call.Finish(ToStatus(allowed.error()));
    auto deleter = std::make_unique<TreeDeleter>(call, std::move(request));
    auto& begun = *deleter;
    call.Begin(std::move(deleter));
    call.Core().trees.Add([&begun, keep = call.shared_from_this()] { begun.Delete(); });
}

void TreeDeleter::Delete()
{
    const auto soFar = [this](std::uint64_t count) {
        const std::lock_guard guard(m_mutex);
        m_soFar = count;
    };
    auto outcome = m_call.IsOver() ? admin::CancelTree(m_call.Core(), m_call.Who(), m_request)
                                   : admin::DeleteTree(m_call.Core(), m_call.Who(), m_request, soFar);
    const std::lock_guard guard(m_mutex);
    m_outcome = std::move(outcome);
    if (!m_isWriting) Conclude();
}

void TreeDeleter::OnWritten(bool)
{
    const std::lock_guard guard(m_mutex);
    m_isWriting = false;
    if (m_outcome) Conclude();
}

void TreeDeleter::Tick(std::chrono::steady_clock::time_point)
{
    const std::lock_guard guard(m_mutex);
    if (m_isWriting || m_outcome || m_call.IsOver()) return;
    m_isWriting = true;
    v1::DeleteProgress news;
    news.set_deleted(m_soFar);
    m_call.Write(Packed(news));
}

void TreeDeleter::Conclude()
{
    if (!*m_outcome) return m_call.Finish(ToStatus(m_outcome->error()));
    v1::DeleteProgress last;
    last.set_deleted(**m_outcome);
    last.set_is_done(true);
    m_call.Reply(last);
}

}  // namespace zentrel
