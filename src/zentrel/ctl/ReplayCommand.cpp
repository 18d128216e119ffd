#include "zentrel/ctl/Context.h"
#include "zentrel/ctl/LineReader.h"
#include "zentrel/ctl/Progress.h"

#include "zentrel/AccessLog.h"
#include "zentrel/FileHandle.h"
#include "zentrel/KeyPath.h"
#include "zentrel/Responder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>

namespace zentrel {

namespace {

constexpr std::uint64_t kShownBadLines = 5;

struct Options {
    std::uint32_t site = 0;
    std::string log;
};

struct Tally {
    std::uint64_t requests = 0;
    std::uint64_t answered = 0;
    std::uint64_t compressed = 0;
    std::uint64_t fromCache = 0;
    std::uint64_t notFound = 0;
    std::uint64_t refused = 0;
    std::uint64_t otherMethods = 0;
    std::uint64_t badLines = 0;
};

// "-" is standard input.
Result<FileHandle> OpenLog(const std::string& name)
{
    FileHandle file(name == "-" ? fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                : open(name.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return FailErrno(errno, "zentrelctl", "Cannot open " + name);
    return file;
}

// Bytes; 0 when it is no plain file.
std::uint64_t SizeOf(const FileHandle& file)
{
    struct stat info {};
    const bool isFile = fstat(file.Get(), &info) == 0 && S_ISREG(info.st_mode);
    return isFile ? static_cast<std::uint64_t>(info.st_size) : 0;
}

Done CheckSite(const Service& service, std::uint32_t site)
{
    const auto txn = service.Store().BeginRead();
    if (!txn) return Fail(txn.error());
    const auto key = txn->Find(SiteKey(site));
    if (!key) return Fail(key.error());
    if (*key) return {};
    return Fail(Code::PathNotFound, "zentrelctl", "There is no site " + std::to_string(site) + '.');
}

// Sends the requests of a log to the responder.
class Replay {
public:
    Replay(std::shared_ptr<Service> service, std::uint32_t site)
        : m_responder(std::move(service)),
          m_site(site)
    {
    }

    Done Run(LineReader& lines, std::uint64_t totalBytes, StopSignals& signals);
    const Tally& Counts() const { return m_tally; }

private:
    Done TakeLine(std::string_view text, std::uint64_t number);
    void ReportBadLine(std::uint64_t number);
    Done Send(std::string url);

    Responder m_responder;
    std::uint32_t m_site;
    Tally m_tally;
    Progress m_progress{"Replaying"};
};

Done Replay::Run(LineReader& lines, std::uint64_t totalBytes, StopSignals& signals)
{
    while (!signals.Raised()) {
        const auto line = lines.Next();
        if (!line) return Fail(line.error());
        if (!*line) break;
        if (auto taken = TakeLine(**line, lines.LineNumber()); !taken) return taken;
        m_progress.Show(totalBytes == 0 ? lines.LineNumber() : lines.BytesRead(), totalBytes);
    }
    m_progress.Clear();
    return {};
}

Done Replay::TakeLine(std::string_view text, std::uint64_t number)
{
    if (text.empty()) return {};
    auto line = ParseLogLine(text);
    switch (line.kind) {
    case LogLine::Kind::Fetch: return Send(std::move(line.url));
    case LogLine::Kind::Other: ++m_tally.otherMethods; break;
    case LogLine::Kind::Malformed: ReportBadLine(number); break;
    }
    return {};
}

void Replay::ReportBadLine(std::uint64_t number)
{
    if (m_tally.badLines++ >= kShownBadLines) return;
    m_progress.Clear();
    std::cerr << "zentrelctl: line " << number << " is no request of the common or combined format\n";
}

Done Replay::Send(std::string url)
{
    const auto response = m_responder.Answer({m_site, std::move(url), true, true});
    if (!response) return Fail(response.error());
    ++m_tally.requests;
    const auto otherwise = response->status == 404 ? &Tally::notFound : &Tally::refused;
    ++(m_tally.*(response->status == 200 ? &Tally::answered : otherwise));
    if (response->encoding) ++m_tally.compressed;
    if (response->fromCache) ++m_tally.fromCache;
    return {};
}

void WriteSummary(std::ostream& out, const Tally& tally)
{
    out << Counted(tally.requests, "request", "requests") << ": " << tally.answered << " answered ("
        << tally.compressed << " compressed, " << tally.fromCache << " from the cache), " << tally.notFound
        << " not found, " << tally.refused << " refused\n";
    if (tally.otherMethods != 0)
        out << Counted(tally.otherMethods, "line", "lines") << " without GET or HEAD passed over\n";
    if (tally.badLines != 0) out << Counted(tally.badLines, "bad line", "bad lines") << "\n";
}

Done RunReplay(const Context& context, const Options& options)
{
    StopSignals signals;
    const auto log = OpenLog(options.log);
    if (!log) return Fail(log.error());
    const auto service = context.Open(Service::Role::Writer);
    if (!service) return Fail(service.error());
    if (auto checked = CheckSite(**service, options.site); !checked) return checked;

    Replay replay(*service, options.site);
    LineReader lines(log->Get(), signals);
    const auto replayed = replay.Run(lines, SizeOf(*log), signals);
    const auto kept = (*service)->Flush();
    WriteSummary(context.out, replay.Counts());
    if (!replayed) return replayed;
    if (!kept) return kept;
    if (signals.Raised()) return Cancelled("Stopped before the end of the log; what was done stays.");
    if (const auto lost = (*service)->LastError()) return Fail(*lost);
    const auto& tally = replay.Counts();
    if (tally.badLines != 0 && tally.requests + tally.otherMethods == 0)
        return Fail(Code::InvalidData, "zentrelctl", "No line of the log could be read.");
    return {};
}

}  // namespace

void AddReplayCommand(CLI::App& app, Context& context)
{
    const auto options = std::make_shared<Options>();
    auto* command = app.add_subcommand("replay", "Request what a web server's access log says was requested");
    AddSiteNumber(*command, "SITE", options->site);
    command
        ->add_option("LOGFILE", options->log, "A log in the common or combined format; - is standard input")
        ->required();
    command->callback(
        [&context, options] { context.run = [&context, options] { return RunReplay(context, *options); }; });
}

}  // namespace zentrel
