#include "platform/Odbc.h"

#include "base/SystemError.h"
#include "platform/BackgroundJob.h"
#include "platform/OdbcText.h"
#include "support/HiveRig.h"
#include "support/OdbcCalls.h"
#include "support/OdbcRig.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>

#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;

TEST(OdbcFaults, WhatCanOnlyBeReadSaysSo)
{
    OdbcRig rig;
    ASSERT_TRUE(Open(rig.Sqlite())->Execute("CREATE TABLE t (n INTEGER)"));
    const auto folder = std::filesystem::path(rig.SqliteFile()).parent_path();
    ASSERT_EQ(chmod(rig.SqliteFile().c_str(), 0444), 0);
    ASSERT_EQ(chmod(rig.UserFile().c_str(), 0666), 0);  // the driver manager opens it as if to write
    ASSERT_EQ(chmod(folder.c_str(), 0555), 0);
    EXPECT_TRUE(EndsWell(StartChild([&rig] {
        BecomeOrdinaryUser();
        const auto database = Open(rig.Sqlite());
        ASSERT_NE(database, nullptr);
        EXPECT_EQ(Failure(Ask(*database, "SELECT * FROM t")), "");
        const auto written = Failure(database->Execute("INSERT INTO t VALUES (1)"));
        EXPECT_NE(written.find("readonly"), std::string::npos) << written;
    })));
    ASSERT_EQ(chmod(folder.c_str(), 0700), 0);

    ASSERT_TRUE(rig.StartPostgres().IsRunning());
    auto settings = rig.PostgresSettings();
    settings.emplace_back("ReadOnly", "1");
    rig.AddSource(rig.Unique("reading"), settings);
    const auto database = Open(rig.Unique("reading"));
    ASSERT_NE(database, nullptr);
    EXPECT_TRUE(database->IsReadOnly());
    EXPECT_FALSE(database->Execute("CREATE TABLE t (n INTEGER)"));
}

TEST(OdbcFaults, AServerThatHangsIsGivenUp)
{
    OdbcRig rig;
    auto& server = rig.StartPostgres();
    ASSERT_TRUE(server.IsRunning());
    std::shared_ptr<OdbcConnection> database = Open(rig.Postgresql(), 1s);
    ASSERT_NE(database, nullptr);
    const std::weak_ptr<OdbcConnection> watched = database;
    server.Freeze();

    BackgroundJob<Rows> call([database] { return Ask(*database, "SELECT 1"); });
    BackgroundJob<std::unique_ptr<OdbcConnection>> connecting([name = rig.Postgresql()] {
        return OpenOdbc({name, "", ""}, 2s);
    });
    EXPECT_FALSE(call.Wait(500ms));
    // Others go on meanwhile, and telling it to stop does not take part in the wait.
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(One(*Open(rig.Sqlite()), "SELECT 'alive'"), OdbcValue("alive"));
    for (int i = 0; i < 3; ++i) database->Cancel();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    ASSERT_TRUE(connecting.Wait(30s));
    const auto connected = connecting.Take();
    ASSERT_FALSE(connected);
    EXPECT_TRUE(connected.error().Is(Code::ServerUnavailable) || connected.error().Is(Code::Timeout))
        << Failure(connected);

    EXPECT_FALSE(call.IsDone());
    call.Abandon();
    database = nullptr;
    EXPECT_FALSE(watched.expired());
    server.Kill();
    for (int i = 0; i < 3000 && !watched.expired(); ++i) std::this_thread::sleep_for(10ms);
    EXPECT_TRUE(watched.expired());
}

TEST(OdbcFaults, AConnectionThatDropsFailsFromThenOn)
{
    for (const bool isNoticedAtCommit : {true, false}) {
        OdbcRig rig;
        auto& server = rig.StartPostgres();
        ASSERT_TRUE(server.IsRunning());
        const auto database = Open(rig.Postgresql());
        ASSERT_NE(database, nullptr);
        ASSERT_TRUE(database->Execute("CREATE TABLE t (n INTEGER)"));
        ASSERT_TRUE(database->Begin());
        const auto insert = database->Prepare("INSERT INTO t VALUES (?)");
        ASSERT_TRUE(insert && (*insert)->Execute({OdbcValue(1)}));
        server.Kill();
        if (!isNoticedAtCommit) {
            const auto dropped = (*insert)->Execute({OdbcValue(2)});
            ASSERT_FALSE(dropped);
            EXPECT_TRUE(dropped.error().Is(Code::ServerUnavailable)) << Failure(dropped);
        }
        const auto committed = database->Commit();
        ASSERT_FALSE(committed) << isNoticedAtCommit;
        EXPECT_TRUE(committed.error().Is(Code::ServerUnavailable)) << committed.error().description;
        EXPECT_FALSE(database->Columns("t"));
        EXPECT_FALSE(database->Execute("SELECT 1"));
        database->Cancel();
    }
}

TEST(OdbcFaults, ADriverThatLiesIsNotBelieved)
{
    OdbcRig rig;
    rig.AddSource(rig.Unique("lying"), {{"Driver", QUILLET_LYING_DRIVER}});
    const auto database = Open(rig.Unique("lying"));
    ASSERT_NE(database, nullptr);
    EXPECT_LE(database->DatabaseName().size(), 512U);
    struct Row {
        const char* sin;
        std::uint32_t code;
        std::size_t rows;
        std::size_t bytes;  // of the first text
    };
    const Row rows[] = {
        {"lengths", 0, 1, 16383},           {"endless", Code::MoreData, 0, 0},
        {"empty pieces", 0, 1, 0},          {"columns", Code::InvalidData, 0, 0},
        {"minus", Code::InvalidData, 0, 0}, {"needs", Code::InvalidData, 0, 0},
        {"states", Code::IoError, 0, 0},
    };
    for (const auto& row : rows) {
        const auto asked = Ask(*database, row.sin);
        EXPECT_EQ(asked ? 0 : asked.error().code, row.code) << row.sin << Failure(asked);
        if (!asked) {
            EXPECT_LE(asked.error().description.size(), 1100U) << row.sin;
            EXPECT_TRUE(odbc::IsClean(asked.error().description)) << row.sin;
            continue;
        }
        ASSERT_EQ(asked->size(), row.rows) << row.sin;
        EXPECT_EQ(std::get<std::string>(asked->front().front()).size(), row.bytes) << row.sin;
    }
}

}  // namespace
