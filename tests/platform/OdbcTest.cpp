#include "platform/Odbc.h"

#include "base/SystemError.h"
#include "platform/BackgroundJob.h"
#include "platform/OdbcText.h"
#include "support/OdbcCalls.h"
#include "support/OdbcRig.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using namespace std::chrono_literals;

// What holds for every driver.
class OdbcDatabase : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (GetParam() == "PostgreSQL") {
            ASSERT_TRUE(rig.StartPostgres().IsRunning());
        }
        database = Open(Source());
        ASSERT_NE(database, nullptr);
        EXPECT_EQ(database->DatabaseName(), GetParam());
        EXPECT_NE(database->DriverName(), "");
        EXPECT_FALSE(database->IsReadOnly());
    }

    std::string Source() const { return GetParam() == "SQLite" ? rig.Sqlite() : rig.Postgresql(); }

    void Do(const std::string& sql)
    {
        const auto done = database->Execute(sql);
        EXPECT_TRUE(done) << sql << ": " << Failure(done);
    }

    OdbcRig rig;
    std::unique_ptr<OdbcConnection> database;
};

TEST_P(OdbcDatabase, ValuesComeBackAsTheyWentIn)
{
    const std::string name = "odd \"%_' ] [täble] 😀";
    const auto table = database->Quote(name);
    const auto column = database->Quote("tëxt 😀");
    Do("CREATE TABLE " + table + " (id BIGINT NOT NULL, " + column + " TEXT, r DOUBLE PRECISION)");

    std::string mixed;  // every place of a piece's end falls into a character once
    while (mixed.size() < 100'000) mixed += "aä€😀";
    constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    const Rows rows = {
        {kLeast, "", 1e15},
        {kMost, "Äpfel \"x\" 'y' [z] {w} \\ \t\r\n%_? 日本 😀", 0.1},
        {std::int64_t{0}, {}, {}},
        {std::int64_t{5}, mixed, -1.5e-300},
        {std::int64_t{6}, std::string(100'001, 'x'), 1.5e308},
        {std::int64_t{8}, std::string(16384, 'z'), 123456789.012345},
    };
    const auto insert = database->Prepare("INSERT INTO " + table + " VALUES (?, ?, ?)");
    const auto read = database->Prepare("SELECT * FROM " + table + " WHERE id = ?");
    ASSERT_TRUE(insert && read);
    for (const auto& row : rows) {
        EXPECT_EQ((*insert)->Execute(row).value_or(-2), 1);
        ASSERT_TRUE((*read)->Execute({row[0]}));
        std::vector<OdbcValue> got;
        EXPECT_TRUE((*read)->Fetch(got).value_or(false));
        EXPECT_TRUE(got == row) << std::get<std::int64_t>(row[0]);
        EXPECT_FALSE((*read)->Fetch(got).value_or(true));
    }
    // All digits arrive there, though not every driver reads more than 15 of them.
    const std::vector<OdbcValue> precise{std::int64_t{9}, "p", 0.30000000000000004};
    EXPECT_TRUE((*insert)->Execute(precise));
    EXPECT_EQ(Ask(*database, "SELECT id FROM " + table + " WHERE r = ?", {precise[2]}).value_or(Rows()),
              Rows{{precise[0]}});

    EXPECT_TRUE((*insert)->Execute({std::int64_t{1}, std::string("x\0y\xFFz", 5), {}}));
    const auto replaced = OdbcValue("x\uFFFDy\uFFFDz");
    EXPECT_EQ(One(*database, "SELECT " + column + " FROM " + table + " WHERE id = 1"), replaced);
    EXPECT_EQ(One(*database, "SELECT sum(id) FROM " + table + " WHERE id BETWEEN 2 AND 9"), OdbcValue(28));

    const auto columns = database->Columns(name);
    ASSERT_TRUE(columns);
    std::string names;
    for (const auto& found : *columns) names += found.name + "|";
    EXPECT_EQ(names, "id|tëxt 😀|r|");
}

TEST_P(OdbcDatabase, ATransactionIsKeptWholeOrNotAtAll)
{
    Do("CREATE TABLE t (n INTEGER NOT NULL PRIMARY KEY)");
    const auto count = [this] { return One(*Open(Source()), "SELECT CAST(count(*) AS INTEGER) FROM t"); };
    struct Case {
        bool fails;
        bool commits;
        bool isKept;
    };
    for (const auto& [fails, commits, isKept] : {Case{false, false, false}, Case{true, false, false},
                                                 Case{true, true, false}, Case{false, true, true}}) {
        ASSERT_TRUE(database->Begin());
        Do("INSERT INTO t VALUES (1)");
        EXPECT_EQ(Ask(*database, "INSERT INTO t VALUES (?)", {std::int64_t{fails ? 1 : 2}}).has_value(),
                  !fails);
        const auto done = commits ? database->Commit() : database->Rollback();
        EXPECT_EQ(done.has_value(), isKept || !commits);
        EXPECT_EQ(count(), OdbcValue(isKept ? 2 : 0));
    }
    Do("INSERT INTO t VALUES (4)");
    EXPECT_EQ(count(), OdbcValue(3));
    ASSERT_TRUE(database->Begin());
    Do("DELETE FROM t");
    database = nullptr;
    EXPECT_EQ(count(), OdbcValue(3));
}

TEST_P(OdbcDatabase, MistakesFailWithAStateAndLeaveItUsable)
{
    Do("CREATE TABLE \"großer Name\" (n INTEGER NOT NULL)");
    EXPECT_NE(Failure(database->Execute("INSERT INTO \"großer Name\" VALUES (NULL)")).find("großer Name"),
              std::string::npos);
    for (const std::string sql :
         {"", "SELEKT 1", "SELECT * FROM none", "INSERT INTO \"großer Name\" VALUES ('x"}) {
        const auto done = Ask(*database, sql);
        ASSERT_FALSE(done) << sql;
        EXPECT_EQ(done.error().source, "ODBC");
        EXPECT_EQ(done.error().description.find(": "), 5U) << done.error().description;
    }
    const auto select = database->Prepare("SELECT n FROM \"großer Name\" WHERE n = ?");
    ASSERT_TRUE(select);
    EXPECT_FALSE((*select)->Execute({}));
    EXPECT_FALSE((*select)->Execute({OdbcValue(1), OdbcValue(2)}));
    EXPECT_FALSE((*select)->Execute({std::string((16U << 20U) + 1, 'x')}));
    EXPECT_FALSE(database->Execute(std::string((16U << 20U) + 1, ' ')));
    EXPECT_TRUE((*select)->Execute({OdbcValue(1)}));
    EXPECT_EQ(database->Quote(""), "");
    EXPECT_EQ(database->Quote(std::string("a\0b", 3)), "");
}

TEST_P(OdbcDatabase, ALongQueryIsCancelled)
{
    const std::shared_ptr<OdbcConnection> shared = std::move(database);
    shared->Cancel();  // nothing to cancel
    BackgroundJob<Rows> job([shared] {
        return Ask(*shared, "WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT (x + 1) % 1000 FROM c) "
                            "SELECT count(*) FROM c");
    });
    EXPECT_FALSE(job.Wait(200ms));
    for (int i = 0; i < 300 && !job.Wait(100ms); ++i) shared->Cancel();
    ASSERT_TRUE(job.IsDone());
    const auto result = job.Take();
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().Is(Code::Cancelled)) << Failure(result);
    EXPECT_EQ(One(*shared, "SELECT CAST('8' AS INTEGER)"), One(*shared, "SELECT 8"));
}

INSTANTIATE_TEST_SUITE_P(Drivers, OdbcDatabase, testing::Values("SQLite", "PostgreSQL"),
                         [](const auto& tested) { return tested.param; });

TEST(Odbc, ALoginThatIsRefusedSaysWhy)
{
    OdbcRig rig;
    ASSERT_TRUE(rig.StartPostgres().IsRunning());
    const auto server = rig.Postgresql();
    const auto noDriver = rig.Unique("no driver");
    const auto noServer = rig.Unique("no server");
    rig.AddSource(noDriver, {{"Driver", "/nowhere.so"}});
    rig.AddSource(noServer, {{"Driver", OdbcRig::Driver("psqlodbcw.so")}, {"Servername", "/nowhere"}});
    const std::string password = "pä; ss}w{o'r=d";
    ASSERT_TRUE(Open(server)->Execute("CREATE ROLE guarded LOGIN PASSWORD 'pä; ss}w{o''r=d'"));
    struct Row {
        OdbcLogin login;
        std::string told;
        std::uint32_t code;
    };
    const Row rows[] = {
        {{server, "guarded", password}, "", 0},
        {{server, "guarded", "wrong"}, "08001: ", Code::ServerUnavailable},
        {{server, "nobody there", "role"}, "*** \"nobody there\" does not exist", Code::ServerUnavailable},
        {{"No such source", "", "x"}, "IM002: [unixODBC]", Code::FileNotFound},
        {{noDriver, "", "x"}, "'/nowhere.so'", Code::IoError},
        {{noServer, "u", "x"}, "08001: ", Code::ServerUnavailable},
        {{rig.Sqlite(), std::string(2000, 'u'), ""}, "", Code::InvalidParameter},
        {{server, "guarded", std::string(1024, 'p')}, "08001: ", Code::ServerUnavailable},
    };
    for (const auto& row : rows) {
        const auto opened = OpenOdbc(row.login, 20s);
        EXPECT_EQ(opened ? 0 : opened.error().code, row.code) << row.login.source << Failure(opened);
        EXPECT_NE(Failure(opened).find(row.told), std::string::npos) << Failure(opened);
    }
}

TEST(OdbcText, MessagesAreOneCleanLineWithoutTheSecret)
{
    EXPECT_EQ(odbc::CleanLine(" a\r\n\t b\1\377\177c\n", 100), "a b \xEF\xBF\xBD c");
    EXPECT_EQ(odbc::CleanLine("abä", 3), "ab");
    EXPECT_EQ(odbc::UndoTwiceEncoded("tÃ¤ble"), "täble");
    for (const auto* const text : {"plain", "täble", "€ Ã¤", "cut\xC3", "Ã"})
        EXPECT_EQ(odbc::UndoTwiceEncoded(text), text);
    EXPECT_EQ(odbc::WithoutSecret("pwd=geheim;geheim", "geheim"), "pwd=***;***");
    EXPECT_EQ(odbc::WithoutSecret("pass, password=ass; ASS", "ass"), "pass, password=***; ASS");
    EXPECT_EQ(odbc::WithoutSecret("a****b", "****"), "a***b");
    EXPECT_EQ(odbc::WithoutSecret("as it is", ""), "as it is");
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
    OdbcRig rig;
    auto& server = rig.StartPostgres();
    ASSERT_TRUE(server.IsRunning());
    const auto database = Open(rig.Postgresql());
    ASSERT_NE(database, nullptr);
    ASSERT_TRUE(database->Execute("CREATE TABLE t (n INTEGER)"));
    ASSERT_TRUE(database->Begin());
    ASSERT_TRUE(database->Execute("INSERT INTO t VALUES (1)"));
    server.Kill();
    const auto committed = database->Commit();
    ASSERT_FALSE(committed);
    EXPECT_TRUE(committed.error().Is(Code::ServerUnavailable)) << committed.error().description;
    EXPECT_FALSE(database->Columns("t"));
    EXPECT_FALSE(database->Execute("SELECT 1"));
    database->Cancel();
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
        std::size_t bytes;  // of the one text
    };
    const Row rows[] = {
        {"lengths", 0, 16383},           {"endless", Code::MoreData, 0},
        {"empty pieces", 0, 0},          {"columns", Code::InvalidData, 0},
        {"minus", Code::InvalidData, 0}, {"needs", Code::InvalidData, 0},
        {"states", Code::IoError, 0},
    };
    for (const auto& row : rows) {
        const auto asked = Ask(*database, row.sin);
        EXPECT_EQ(asked ? 0 : asked.error().code, row.code) << row.sin << Failure(asked);
        if (!asked) {
            EXPECT_LE(asked.error().description.size(), 1100U) << row.sin;
            EXPECT_TRUE(odbc::IsClean(asked.error().description)) << row.sin;
            continue;
        }
        ASSERT_EQ(asked->size(), 1U) << row.sin;
        EXPECT_EQ(std::get<std::string>(asked->front().front()).size(), row.bytes) << row.sin;
    }
}

}  // namespace
