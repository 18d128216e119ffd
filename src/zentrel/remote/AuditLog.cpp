#include "zentrel/remote/AuditLog.h"

#include "zentrel/Printable.h"
#include "zentrel/remote/Certificates.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>

namespace zentrel {

namespace {

constexpr std::size_t kLongestText = 1024;
constexpr std::uint64_t kMostRefusals = 100;  // of one client in so much time
constexpr std::chrono::minutes kRefusalTime{1};
constexpr std::size_t kMostNames = 256;

std::string Now()
{
    const auto now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[32] = {};
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

// A text between quotation marks that it cannot leave.
std::string Quoted(std::string_view text)
{
    const bool isCut = text.size() > kLongestText;
    std::string quoted = "\"";
    for (const char c : Printable(text.substr(0, kLongestText))) {
        if (c == '"')
            quoted += "\\x22";
        else
            quoted += c;
    }
    return quoted + (isCut ? "\"..." : "\"");
}

// Where something went, the caller was let in: it is the server that could not remove a file.
bool IsRefused(const AuditEntry& entry)
{
    return !entry.outcome && entry.outcome.error().Is(Code::AccessDenied) && entry.count.value_or(0) == 0;
}

std::string Line(const Caller& caller, const AuditEntry& entry)
{
    auto line = Now() + " who=" + Quoted(caller.who) + " from=" + Quoted(caller.from) + " role=";
    line.append(RoleName(caller.role)).append(" what=").append(entry.what);
    line += " path=" + Quoted(entry.path);
    if (entry.count) line += " deleted=" + std::to_string(*entry.count);
    if (entry.outcome) return line + " outcome=done\n";
    return line + (IsRefused(entry) ? " outcome=refused" : " outcome=failed") +
           " error=" + std::to_string(entry.outcome.error().Plain()) + '\n';
}

}  // namespace

Result<std::unique_ptr<AuditLog>> AuditLog::Open(const std::filesystem::path& file)
{
    std::unique_ptr<AuditLog> log(new AuditLog);
    if (auto opened = log->Reopen(file); !opened) return Fail(opened.error());
    return log;
}

Done AuditLog::Reopen(const std::filesystem::path& file)
{
    FileHandle opened;
    if (!file.empty()) {
        opened = FileHandle(
            open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0640));
        if (!opened) return FailErrno(errno, "Audit", "Cannot open the audit log " + file.string());
    }
    const std::lock_guard guard(m_mutex);
    m_file = std::move(opened);
    m_isTorn = false;
    return {};
}

void AuditLog::Write(const Caller& caller, const AuditEntry& entry)
{
    auto line = Line(caller, entry);
    const std::lock_guard guard(m_mutex);
    if (!IsRefused(entry) || IsListed(caller, line)) Put(line);
}

// Says in the line, where it is the last one for a while, that it is; and how many were left out before it.
bool AuditLog::IsListed(const Caller& caller, std::string& line)
{
    const auto now = std::chrono::steady_clock::now();
    if (m_refusals.size() >= kMostNames && !m_refusals.contains(caller.who)) m_refusals.clear();
    auto& [since, count] = m_refusals[caller.who];
    const auto addition = [&line](const std::string& text) { line.insert(line.size() - 1, text); };
    if (now - since >= kRefusalTime) {
        if (count > kMostRefusals) addition(" left-out-before=" + std::to_string(count - kMostRefusals));
        since = now;
        count = 0;
    }
    if (++count == kMostRefusals) addition(" more=counted");
    return count <= kMostRefusals;
}

void AuditLog::Put(const std::string& line)
{
    const auto whole = m_isTorn ? '\n' + line : line;
    const auto written = m_file ? write(m_file.Get(), whole.data(), whole.size()) : 0;
    if (written == static_cast<ssize_t>(whole.size())) {
        m_isTorn = false;
        return;
    }
    m_isTorn = m_isTorn || written > 0;
    const auto text = "zentreld: audit: " + line;  // a full disk must not hide what happened
    if (write(STDERR_FILENO, text.data(), text.size()) < 0) return;
}

}  // namespace zentrel
