#include "zentrel/remote/SubtreeSender.h"

#include "zentrel/remote/Failures.h"

#include <administration.pb.h>

#include <array>

namespace zentrel {

namespace {

// Of one message. 64 KiB cost a quarter more time, 1 MiB gained nothing.
constexpr std::size_t kMessageBytes = std::size_t{256} << 10U;
constexpr std::size_t kMostSpares = 8;

// What stands before the rows in a serialized SubtreeBatch: the field's tag, and its length as a varint.
grpc::Slice Heading(std::size_t bytes)
{
    std::array<char, 11> text{};
    std::size_t size = 0;
    text[size++] = (v1::SubtreeBatch::kRowsFieldNumber << 3) | 2;
    for (; bytes >= 0x80; bytes >>= 7U) text[size++] = static_cast<char>(0x80U | (bytes & 0x7FU));
    text[size++] = static_cast<char>(bytes);
    return {text.data(), size};
}

}  // namespace

// Batches that gRPC sends from where they lie, and that are used again afterwards.
class SubtreeSender::Batches : public std::enable_shared_from_this<Batches> {
public:
    std::unique_ptr<RowBatch> Take()
    {
        const std::lock_guard guard(m_mutex);
        if (m_spares.empty()) return std::make_unique<RowBatch>();
        auto batch = std::move(m_spares.back());
        m_spares.pop_back();
        return batch;
    }

    grpc::Slice Lend(std::unique_ptr<RowBatch> batch)
    {
        const auto& bytes = batch->Packed();
        auto* data = const_cast<char*>(bytes.data());  // gRPC only reads it
        const auto size = bytes.size();
        auto loan = std::make_unique<Loan>(Loan{shared_from_this(), std::move(batch)});
        return {data, size, &GiveBack, loan.release()};
    }

private:
    struct Loan {
        std::shared_ptr<Batches> owner;
        std::unique_ptr<RowBatch> batch;
    };

    static void GiveBack(void* lent)
    {
        const std::unique_ptr<Loan> loan(static_cast<Loan*>(lent));
        const std::lock_guard guard(loan->owner->m_mutex);
        if (loan->owner->m_spares.size() < kMostSpares)
            loan->owner->m_spares.push_back(std::move(loan->batch));
    }

    std::mutex m_mutex;
    std::vector<std::unique_ptr<RowBatch>> m_spares;
};

SubtreeSender::SubtreeSender(AdminCall& call, Places::Place place, std::unique_ptr<SubtreeStream> walk)
    : m_call(call),
      m_batches(std::make_shared<Batches>()),
      m_walk(std::move(walk)),
      m_place(std::move(place))
{
}

SubtreeSender::~SubtreeSender() = default;

void SubtreeSender::Run(AdminCall& call)
{
    v1::KeyRequest request;
    if (!call.ReadRequest(request)) return call.Finish({grpc::StatusCode::INVALID_ARGUMENT, "bad request"});
    auto place = call.Endpoint().TakeStreamPlace(call.Who().who);
    if (place == nullptr) return call.Finish({grpc::StatusCode::RESOURCE_EXHAUSTED, "too many streams"});
    auto walk = call.Core().reads->OpenSubtree(request.path());
    if (!walk) return call.Finish(ToStatus(walk.error()));
    auto sender = std::make_unique<SubtreeSender>(call, std::move(place), std::move(*walk));
    auto& begun = *sender;
    call.Begin(std::move(sender));
    std::unique_lock guard(begun.m_mutex);
    begun.Pump(guard);
}

void SubtreeSender::OnWritten(bool ok)
{
    std::unique_lock guard(m_mutex);
    m_isWriting = false;
    if (!ok) m_isBroken = true;
    if (!m_isFilling) Pump(guard);
}

// Goes on until the message under way has to be waited for. One thread at a time: the others see m_isFilling.
void SubtreeSender::Pump(std::unique_lock<std::mutex>& guard)
{
    for (;;) {
        if (!m_isWriting && (m_isBroken || (m_walk == nullptr && !m_hasNext))) return End();
        if (!m_isWriting && m_hasNext) {
            m_isWriting = true;
            m_hasNext = false;
            m_call.Write(std::exchange(m_next, {}));
        }
        if (m_hasNext || m_walk == nullptr || m_isBroken) return;
        m_isFilling = true;
        guard.unlock();
        auto filled = Fill();
        guard.lock();
        m_isFilling = false;
        m_hasNext = filled && filled->Valid() && filled->Length() != 0;
        if (m_hasNext) m_next = *filled;
        if (!m_hasNext) m_walk.reset();
        if (!filled) m_outcome = ToStatus(filled.error());
    }
}

Result<grpc::ByteBuffer> SubtreeSender::Fill()
{
    std::vector<grpc::Slice> slices(1);  // the heading comes to stand there
    std::size_t size = 0;
    while (size < kMessageBytes) {
        auto batch = m_batches->Take();
        if (auto more = m_walk->Next(*batch); !more) return Fail(more.error());
        const auto bytes = batch->Bytes();
        if (bytes == 0) break;
        size += bytes;
        slices.push_back(m_batches->Lend(std::move(batch)));
    }
    if (size == 0) return grpc::ByteBuffer();
    slices[0] = Heading(size);
    return grpc::ByteBuffer(slices.data(), slices.size());
}

void SubtreeSender::End()
{
    if (std::exchange(m_isEnded, true)) return;
    m_walk.reset();   // the store's pages are free from here on
    m_place.reset();  // before the client hears of the end and begins the next walk
    m_call.Finish(m_isBroken ? grpc::Status::CANCELLED : m_outcome);
}

void SubtreeSender::Tick(std::chrono::steady_clock::time_point now)
{
    if (now - m_begun > m_call.Core().Limits().longest) m_call.Cancel();
}

}  // namespace zentrel
