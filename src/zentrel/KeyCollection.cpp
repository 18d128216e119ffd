#include "zentrel/KeyCollection.h"

#include "zentrel/KeyPath.h"
#include "zentrel/SubtreeWindow.h"

#include <algorithm>

namespace zentrel {

namespace {

constexpr std::uint32_t kPage = 1000;

// A walk holds one collection for each level. Were each to keep its path, a deep tree would cost the square
// of its depth; so beyond this length the names end where the read-ahead does.
constexpr std::size_t kLongestFallback = 4096;

}  // namespace

KeyCollection::KeyCollection(std::shared_ptr<Session> session, View view, std::string_view path,
                             std::uint32_t count)
    : m_session(std::move(session)),
      m_view(view),
      m_count(count),
      m_path(path)
{
    m_page.isLast = count == 0;
}

KeyCollection::KeyCollection(std::shared_ptr<Session> session, std::shared_ptr<SubtreeWindow> window,
                             std::string_view path)
    : m_session(std::move(session)),
      m_window(std::move(window))
{
    if (const auto key = m_window->Find(path)) {
        m_depth = key->depth;
        m_visit = key->visit;
        m_count = key->childCount;
    }
    if (path.size() <= kLongestFallback) m_path = path;
    m_page.isLast = m_count == 0 || path.size() > kLongestFallback;
}

Result<std::string> KeyCollection::Item(std::uint32_t index) const
{
    if (index < 1 || index > m_count) return Fail(Code::InvalidParameter, "KeyCollection");
    if (index == 1 && m_window != nullptr)
        if (const auto name = m_window->FirstChild(m_depth, m_visit)) return std::string(*name);

    if (m_window != nullptr && m_path.empty()) return Fail(Code::ServerUnavailable, "KeyCollection");
    std::string after;
    for (std::uint32_t passed = 0;;) {
        const auto most = std::min(kPage, index - passed);
        auto page = m_session->ListKeys(m_path, m_view, after, most);
        if (!page) return Fail(page.error());
        passed += static_cast<std::uint32_t>(page->names.size());
        if (passed >= index) return page->names[page->names.size() - 1 - (passed - index)];
        if (page->isLast || page->names.empty()) return Fail(Code::InvalidParameter, "KeyCollection");
        after = page->names.back();
    }
}

bool KeyCollection::Next()
{
    if (m_count == 0) return false;
    if (m_window != nullptr) {
        switch (m_window->NextChild(m_depth, m_visit, m_name)) {
        case SubtreeWindow::Step::Moved: return true;
        case SubtreeWindow::Step::AtEnd: return false;
        case SubtreeWindow::Step::NotHere: m_window.reset(); break;
        }
    }
    return NextFromServer();
}

bool KeyCollection::NextFromServer()
{
    if (m_pageAt == m_page.names.size() && !FetchPage()) return false;
    m_name = std::move(m_page.names[m_pageAt++]);
    return IsSegment(m_name);  // a server that sends anything else makes it up
}

bool KeyCollection::FetchPage()
{
    if (m_page.isLast) return false;
    auto page = m_session->ListKeys(m_path, m_view, m_name, kPage);
    m_pageAt = 0;
    m_page = page ? std::move(*page) : KeyPage{};
    if (m_page.names.empty()) m_page.isLast = true;
    return !m_page.names.empty();
}

}  // namespace zentrel
