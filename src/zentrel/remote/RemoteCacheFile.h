#pragma once

#include "zentrel/CacheFileReader.h"
#include "zentrel/remote/ReplyStream.h"

#include <optional>

namespace zentrel {

// A cached file on its way from a server. Besides the part that the caller reads from, two messages and the
// connection's window are held. The server must keep sending: see Patience. Not to be dropped by a hook that
// runs in its own Read.
class RemoteCacheFile : public CacheFileReader {
public:
    // Waits for the size, so that a file that cannot be read is told at once.
    static Result<std::unique_ptr<CacheFileReader>> Open(std::shared_ptr<Connection> connection,
                                                         std::string_view path);

    std::uint64_t Size() const override { return m_size; }
    // Besides the codes of the server: InvalidData when it sends more than it announced or is accepted.
    Result<Bytes> Read(std::size_t most) override;

private:
    RemoteCacheFile(std::shared_ptr<Connection> connection, const v1::CacheFileRequest& request);
    Done Begin();
    Done Fetch();
    Done Keep(v1::CacheFilePart& part);

    ReplyStream<v1::CacheFilePart, v1::CacheFileRequest> m_messages;
    Patience m_patience;
    std::uint64_t m_size = 0;
    std::uint64_t m_left = 0;  // to come, behind m_part
    std::string m_part;
    std::size_t m_read = 0;     // of it
    std::optional<Done> m_end;  // how it ended
};

}  // namespace zentrel
