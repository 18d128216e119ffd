#include "export/ConnectionTest.h"

#include "export/FillIn.h"

#include "base/Translate.h"

#include <utility>

namespace {

constexpr const char* kContext = "DatabaseExport";

Result<std::string> Connect(const DatabaseAccess& access, const SharedLogin& login)
{
    const auto opened = access.open(*login, DriverPatience(access.connecting));
    if (!opened) return Fail(opened.error());
    const auto& database = **opened;
    const auto* const text = database.IsReadOnly() ? "Connected to %1 through %2, for reading only."
                                                   : "Connected to %1 through %2.";
    return FillIn(Translate(kContext, text), {database.DatabaseName(), database.DriverName()});
}

}  // namespace

ConnectionTest::ConnectionTest(const DatabaseAccess& access, SharedLogin login)
    : m_giveUp(std::chrono::steady_clock::now() + access.connecting),
      m_job([access, login = std::move(login)] { return Connect(access, login); })
{
}

std::optional<ConnectionTest::Outcome> ConnectionTest::Poll()
{
    if (m_job.IsDone()) {
        const auto connected = m_job.Take();
        if (connected) return Outcome{true, *connected};
        return Outcome{false,
                       FillIn(Translate(kContext, "Not connected: %1"), {connected.error().description})};
    }
    if (std::chrono::steady_clock::now() < m_giveUp) return std::nullopt;
    m_job.Abandon();
    return Outcome{false, Translate(kContext, "The data source does not answer.")};
}
