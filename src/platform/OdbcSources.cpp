#include "platform/Odbc.h"

#include "base/Text.h"
#include "platform/OdbcText.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

#include <pwd.h>
#include <unistd.h>

// The files are read here, since the driver manager's own listing reads them again for each source and takes
// seconds for a thousand.
namespace {

constexpr std::uintmax_t kMostBytes = 1U << 20U;  // of a file; what is longer is no list of a person
constexpr std::size_t kMostSources = 500;

std::string_view TrimSpace(std::string_view text)
{
    constexpr std::string_view kSpace = " \t\r";
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

// Sections that are no data source: an index that other systems keep, and the driver manager's settings.
bool IsReserved(std::string_view section)
{
    return CompareFolded(section, "ODBC Data Sources") == 0 || CompareFolded(section, "ODBC") == 0;
}

class SourceList {
public:
    void AddFile(const std::filesystem::path& file)
    {
        std::error_code error;
        if (!std::filesystem::is_regular_file(file, error)) return;
        if (std::filesystem::file_size(file, error) > kMostBytes) return;
        std::ifstream stream(file, std::ios::binary);
        m_current = nullptr;
        for (std::string line; std::getline(stream, line);) AddLine(TrimSpace(line));
    }

    std::vector<OdbcSource> Take() { return std::move(m_sources); }

private:
    void AddLine(std::string_view line)
    {
        if (line.starts_with('[')) {
            BeginSource(TrimSpace(line.substr(1, line.find(']') - 1)));
            return;
        }
        const auto equals = line.find('=');
        if (m_current == nullptr || equals == std::string_view::npos || !m_current->driver.empty()) return;
        if (CompareFolded(TrimSpace(line.substr(0, equals)), "Driver") != 0) return;
        m_current->driver = odbc::CleanText(TrimSpace(line.substr(equals + 1)));
    }

    void BeginSource(std::string_view name)
    {
        m_current = nullptr;
        const auto isSame = [name](const OdbcSource& other) { return CompareFolded(other.name, name) == 0; };
        // A name that is no text could not be shown and chosen again.
        if (name.empty() || !odbc::IsClean(name) || IsReserved(name)) return;
        if (m_sources.size() == kMostSources || std::ranges::any_of(m_sources, isSame)) return;
        m_current = &m_sources.emplace_back(OdbcSource{std::string(name), {}});
    }

    std::vector<OdbcSource> m_sources;
    OdbcSource* m_current = nullptr;  // whose lines are being read
};

// Where the driver manager has them.
std::filesystem::path UserFile()
{
    if (const char* const file = std::getenv("ODBCINI")) return file;
    std::array<char, 16384> buffer{};
    passwd record{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &record, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return {};
    return std::filesystem::path(found->pw_dir) / ".odbc.ini";
}

std::filesystem::path MachineFile()
{
    const char* const folder = std::getenv("ODBCSYSINI");
    return std::filesystem::path(folder == nullptr ? "/etc" : folder) / "odbc.ini";
}

}  // namespace

std::vector<OdbcSource> OdbcSources()
{
    SourceList list;
    list.AddFile(UserFile());
    list.AddFile(MachineFile());
    return list.Take();
}
