#include "zentrel/daemon/DaemonConfig.h"

#include "zentrel/ConfigFile.h"
#include "zentrel/TextFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <set>

namespace zentrel {

namespace {

constexpr std::size_t kLongestPem = 64U << 10U;

tl::unexpected<SystemError> BadLine(int line, const std::string& text)
{
    return Fail(Code::InvalidData, "Config", "line " + std::to_string(line) + ": " + text);
}

// As it is written in the file: an octal number begins with 0.
template <class Number>
std::string Written(Number number, int base)
{
    std::array<char, 24> text{'0'};
    auto* const begin = text.data() + (base == 8 ? 1 : 0);
    return {text.data(), std::to_chars(begin, text.data() + text.size(), number, base).ptr};
}

template <class Number>
Done TakeNumber(const ConfigEntry& entry, Number least, Number most, Number& to, int base = 10)
{
    Number number{};
    const auto* const end = entry.value.data() + entry.value.size();
    const auto [at, error] = std::from_chars(entry.value.data(), end, number, base);
    if (error != std::errc{} || at != end || number < least || number > most)
        return BadLine(entry.line, '"' + entry.key + "\" does not go from " + Written(least, base) + " to " +
                                       Written(most, base) + ": " + entry.value);
    to = number;
    return {};
}

template <class Duration>
Done TakeTime(const ConfigEntry& entry, int most, Duration& to)
{
    int seconds = 0;
    if (auto taken = TakeNumber(entry, 1, most, seconds); !taken) return taken;
    to = std::chrono::seconds(seconds);
    return {};
}

Done TakeStart(const ConfigEntry& entry, ServiceStart& to)
{
    for (const auto& [name, start] :
         {std::pair("automatic", ServiceStart::Automatic), std::pair("manual", ServiceStart::Manual),
          std::pair("disabled", ServiceStart::Disabled)}) {
        if (entry.value != name) continue;
        to = start;
        return {};
    }
    return BadLine(entry.line, "a service starts \"automatic\", \"manual\" or is \"disabled\"");
}

// Names between commas.
std::vector<std::string> List(std::string_view text)
{
    std::vector<std::string> names;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find(',', at), text.size());
        auto name = text.substr(at, end - at);
        while (name.starts_with(' ')) name.remove_prefix(1);
        while (name.ends_with(' ')) name.remove_suffix(1);
        if (!name.empty()) names.emplace_back(name);
        at = end + 1;
    }
    return names;
}

class Reader {
public:
    explicit Reader(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    Result<DaemonConfig> Read(const std::vector<ConfigSection>& sections);

private:
    using Take = std::function<Done(const ConfigEntry& entry)>;
    using Keys = std::vector<std::pair<std::string_view, Take>>;

    Done ReadSection(const ConfigSection& section);
    Done ReadGeneral(const ConfigSection& section);
    Done ReadSocket(const ConfigSection& section, Role role);
    Done ReadNetwork(const ConfigSection& section);
    Done ReadLimits(const ConfigSection& section);
    Done ReadService(const ConfigSection& section);
    static Done TakeAll(const ConfigSection& section, const Keys& keys);
    Take Path(std::filesystem::path& to) const;
    Take Pem(std::string& to) const;
    static Take Count(std::size_t most, std::size_t& to);
    template <class Duration>
    static Take Seconds(int most, Duration& to);

    std::filesystem::path m_folder;
    DaemonConfig m_config;
};

Result<DaemonConfig> Reader::Read(const std::vector<ConfigSection>& sections)
{
    std::set<std::pair<std::string, std::string>> seen;
    for (const auto& section : sections) {
        if (!seen.emplace(section.kind, section.name).second)
            return BadLine(section.line, "there is a section of this name already");
        if (auto read = ReadSection(section); !read) return Fail(read.error());
    }
    return std::move(m_config);
}

Done Reader::ReadSection(const ConfigSection& section)
{
    const bool isNamed = !section.name.empty();
    if (section.kind == "service" && isNamed) return ReadService(section);
    if (section.kind == "network") return ReadNetwork(section);
    if (section.kind.empty() && !isNamed) return ReadGeneral(section);
    if (section.kind == "local" && !isNamed) return ReadSocket(section, Role::Admin);
    if (section.kind == "viewers" && !isNamed) return ReadSocket(section, Role::Viewer);
    if (section.kind == "limits" && !isNamed) return ReadLimits(section);
    return BadLine(section.line,
                   "there is no section [" + section.kind + (isNamed ? " " + section.name : "") + ']');
}

Done Reader::TakeAll(const ConfigSection& section, const Keys& keys)
{
    std::set<std::string_view> seen;
    for (const auto& entry : section.entries) {
        const auto key =
            std::find_if(keys.begin(), keys.end(), [&](const auto& one) { return one.first == entry.key; });
        if (key == keys.end()) return BadLine(entry.line, "there is no key \"" + entry.key + "\" here");
        if (!seen.insert(entry.key).second) return BadLine(entry.line, '"' + entry.key + "\" stands twice");
        if (auto taken = key->second(entry); !taken) return taken;
    }
    return {};
}

Reader::Take Reader::Path(std::filesystem::path& to) const
{
    return [this, &to](const ConfigEntry& entry) -> Done {
        to = entry.value.empty() ? std::filesystem::path() : m_folder / entry.value;
        return {};
    };
}

Reader::Take Reader::Pem(std::string& to) const
{
    return [this, &to](const ConfigEntry& entry) -> Done {
        auto text = ReadTextFile(m_folder / entry.value, kLongestPem);
        if (!text) return BadLine(entry.line, text.error().description);
        to = std::move(*text);
        return {};
    };
}

Reader::Take Reader::Count(std::size_t most, std::size_t& to)
{
    return [most, &to](const ConfigEntry& entry) { return TakeNumber(entry, std::size_t{1}, most, to); };
}

template <class Duration>
Reader::Take Reader::Seconds(int most, Duration& to)
{
    return [most, &to](const ConfigEntry& entry) { return TakeTime(entry, most, to); };
}

Done Reader::ReadGeneral(const ConfigSection& section)
{
    return TakeAll(section, {{"data", Path(m_config.data)},
                             {"audit", Path(m_config.admin.audit)},
                             {"metrics",
                              [this](const ConfigEntry& entry) -> Done {
                                  auto place = ReadMetricsPlace(entry.value);
                                  if (!place) return BadLine(entry.line, place.error().description);
                                  m_config.metrics = std::move(*place);
                                  return {};
                              }},
                             {"interval", [this](const ConfigEntry& entry) {
                                  return TakeTime(entry, 86'400, m_config.interval.emplace());
                              }}});
}

Done Reader::ReadSocket(const ConfigSection& section, Role role)
{
    AdminListener listener;
    listener.role = role;
    listener.mode = role == Role::Admin ? 0660 : 0666;
    int modeLine = 0;
    auto read = TakeAll(section, {{"socket", Path(listener.path)}, {"mode", [&](const ConfigEntry& entry) {
                                                                        modeLine = entry.line;
                                                                        return TakeNumber(entry, 0600U, 0777U,
                                                                                          listener.mode, 8);
                                                                    }}});
    if (!read) return read;
    const auto isSocket = [](const ConfigEntry& entry) { return entry.key == "socket"; };
    if (std::none_of(section.entries.begin(), section.entries.end(), isSocket))
        return BadLine(section.line, "this needs a socket; \"socket =\" says that there is none");
    if (role == Role::Admin && (listener.mode & 07U) != 0)
        return BadLine(modeLine, "everybody would be an admin");
    if (auto checked = CheckListener(listener); !listener.path.empty() && !checked)
        return BadLine(section.line, checked.error().description);
    m_config.hasLocal = m_config.hasLocal || role == Role::Admin;
    if (!listener.path.empty()) m_config.admin.listeners.push_back(std::move(listener));
    return {};
}

Done Reader::ReadNetwork(const ConfigSection& section)
{
    AdminListener listener;
    listener.port = kDefaultPort;
    AdminTls tls;
    bool isPlain = false;
    auto read = TakeAll(section, {{"address",
                                   [&](const ConfigEntry& entry) -> Done {
                                       listener.address = entry.value;
                                       return {};
                                   }},
                                  {"port",
                                   [&](const ConfigEntry& entry) {
                                       constexpr std::uint16_t kLeast = 1;
                                       return TakeNumber(entry, kLeast, std::uint16_t{65'535}, listener.port);
                                   }},
                                  {"certificate", Pem(tls.certificate)},
                                  {"key", Pem(tls.key)},
                                  {"client-ca", Pem(tls.clientAuthority)},
                                  {"without-tls", [&](const ConfigEntry& entry) -> Done {
                                       isPlain = entry.value == "yes";
                                       if (isPlain || entry.value == "no") return {};
                                       return BadLine(entry.line, "\"without-tls\" is \"yes\" or \"no\"");
                                   }}});
    if (!read) return read;
    const auto parts = {!tls.certificate.empty(), !tls.key.empty(), !tls.clientAuthority.empty()};
    const auto given = std::count(parts.begin(), parts.end(), true);
    if (given != (isPlain ? 0 : 3))
        return BadLine(section.line,
                       "this needs certificate, key and client-ca, or else \"without-tls = yes\"");
    if (!isPlain) listener.tls = std::move(tls);
    if (auto checked = CheckListener(listener); !checked)
        return BadLine(section.line, checked.error().description);
    m_config.admin.listeners.push_back(std::move(listener));
    return {};
}

Done Reader::ReadLimits(const ConfigSection& section)
{
    auto& limits = m_config.admin.limits;
    return TakeAll(section, {{"connections", Count(10'000, limits.connections)},
                             {"calls", Count(10'000, limits.calls)},
                             {"streams", Count(32, limits.streams)},  // each is a reader of the store
                             {"streams-per-client", Count(32, limits.streamsPerClient)},
                             {"stall", Seconds(600, limits.stall)},
                             {"stream-time", Seconds(86'400, limits.longest)}});
}

Done Reader::ReadService(const ConfigSection& section)
{
    ServiceSetup setup;
    auto read =
        TakeAll(section, {{"start", [&](const ConfigEntry& entry) { return TakeStart(entry, setup.start); }},
                          {"needs",
                           [&](const ConfigEntry& entry) -> Done {
                               setup.needs = List(entry.value);
                               return {};
                           }},
                          {"account",
                           [&](const ConfigEntry& entry) -> Done {
                               setup.account = entry.value;
                               return {};
                           }},
                          {"check-in", Seconds(600, setup.checkInTime)}});
    if (read) m_config.services.emplace_back(section.name, std::move(setup));
    return read;
}

}  // namespace

Result<DaemonConfig> ReadDaemonConfig(const std::filesystem::path& file)
{
    auto sections = ReadConfig(file);
    auto config =
        sections ? Reader(file.parent_path()).Read(*sections) : Result<DaemonConfig>(Fail(sections.error()));
    if (config) return config;
    auto error = config.error();
    if (error.description.find(file.string()) == std::string::npos)
        error.description = file.string() + ": " + error.description;
    return Fail(std::move(error));
}

}  // namespace zentrel
