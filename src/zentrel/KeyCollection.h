#pragma once

#include "base/Result.h"
#include "zentrel/Session.h"

#include <memory>
#include <string>
#include <string_view>

namespace zentrel {

class SubtreeWindow;

// The names of a key's children, in the server's order. Names are fetched while they are enumerated, in
// bounded pages, so a key with a million children costs no more memory than one with a thousand.
class KeyCollection {
public:
    KeyCollection() = default;  // no children
    KeyCollection(std::shared_ptr<Session> session, View view, std::string_view path, std::uint32_t count);
    // Enumerates along a read-ahead window, as long as its walk stays at or below the key.
    KeyCollection(std::shared_ptr<Session> session, std::shared_ptr<SubtreeWindow> window,
                  std::string_view path);

    std::uint32_t Count() const { return m_count; }

    // The name at a 1-based index. InvalidParameter when there is none.
    Result<std::string> Item(std::uint32_t index) const;

    // Goes to the next name; false when there is none, also when the server no longer answers.
    bool Next();
    const std::string& Name() const { return m_name; }

private:
    bool NextFromServer();
    bool FetchPage();

    std::shared_ptr<Session> m_session;
    std::shared_ptr<SubtreeWindow> m_window;
    View m_view = View::Cache;
    std::uint32_t m_depth = 0;
    std::uint64_t m_visit = 0;
    std::uint32_t m_count = 0;
    std::string m_path;
    std::string m_name;
    KeyPage m_page;
    std::size_t m_pageAt = 0;
};

}  // namespace zentrel
