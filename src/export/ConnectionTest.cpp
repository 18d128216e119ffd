#include "export/ConnectionTest.h"

#include "base/FillIn.h"

#include "base/Translate.h"

#include <utility>

namespace {

Result<std::string> Connect(const DatabaseAccess& access, const SharedLogin& login)
{
    const auto opened = access.open(*login, DriverPatience(access.connecting));
    if (!opened) return Fail(opened.error());
    const auto& database = **opened;
    const auto* const text =
        database.IsReadOnly()
            ? TRANSLATE_NOOP("DatabaseExport", "Connected to %1 through %2, for reading only.")
            : TRANSLATE_NOOP("DatabaseExport", "Connected to %1 through %2.");
    return FillIn(Translate("DatabaseExport", text), {database.DatabaseName(), database.DriverName()});
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
        return Outcome{
            false, FillIn(Translate("DatabaseExport", "Not connected: %1"), {connected.error().description})};
    }
    if (std::chrono::steady_clock::now() < m_giveUp) return std::nullopt;
    m_job.Abandon();
    return Outcome{false, Translate("DatabaseExport", "The data source does not answer.")};
}
