#pragma once

#include "zentrel/SubtreeStream.h"
#include "zentrel/remote/ReplyStream.h"
#include "zentrel/remote/RowCheck.h"

namespace zentrel {

// A subtree on its way from a server. Besides the batch that the caller works on, two messages and
// the connection's window are held. The server must keep sending: see Patience.
class RemoteStream : public SubtreeStream {
public:
    // Waits for the first rows, so that a key that is not there is told at once.
    static Result<std::unique_ptr<SubtreeStream>> Open(std::shared_ptr<Connection> connection,
                                                       std::string_view path);

    Done Next(RowBatch& batch) override;

private:
    RemoteStream(std::shared_ptr<Connection> connection, const v1::KeyRequest& request);
    Done Fetch();

    ReplyStream<v1::SubtreeBatch> m_messages;
    Patience m_patience;
    bool m_isFirst = true;
    bool m_hasRows = false;  // or the end, not handed over yet
    bool m_isOver = false;
    RowCheck m_check;
    std::string m_rows;  // checked, not handed over yet
};

}  // namespace zentrel
