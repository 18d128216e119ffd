#include "support/LyingServer.h"
#include "support/Relay.h"
#include "support/ScanRig.h"
#include "zentrel/remote/Enumerations.h"
#include "zentrel/remote/Limits.h"
#include "zentrel/remote/RowCheck.h"

namespace {

using namespace zentrel;
using Clock = std::chrono::steady_clock;

constexpr auto kUnavailable = Code::ServerUnavailable & 0xFFFFU;

Deadlines Impatient()
{
    using std::chrono::milliseconds;
    Deadlines deadlines;
    deadlines.read = deadlines.change = deadlines.news = deadlines.stall = milliseconds(150);
    return deadlines;
}

// Of a server that lies to it.
std::shared_ptr<Session> Victim(const LyingServer& server, Deadlines deadlines = {})
{
    return *RemoteTransport(server.Target(), {}, deadlines).Connect("liar");
}

template <class Outcome>
std::uint32_t CodeOf(const Outcome& outcome)
{
    return outcome ? 0 : outcome.error().Plain();
}

// The calls that a client can make, one for those that are made alike; each answers the plain code that it
// failed with, or 0.
struct RemoteCall {
    const char* name;
    std::uint32_t (*make)(Session&, ServiceManager&);
};

const RemoteCall kCalls[] = {
    {"OpenKey", [](Session& s, ServiceManager&) { return CodeOf(s.OpenKey("LM")); }},
    {"ListKeys", [](Session& s, ServiceManager&) { return CodeOf(s.ListKeys("LM", View::Cache, "", 9)); }},
    {"GetData", [](Session& s, ServiceManager&) { return CodeOf(s.GetData("LM", Prop::KeyType)); }},
    {"OpenSubtree", [](Session& s, ServiceManager&) { return CodeOf(s.OpenSubtree("LM/W3SVC/1")); }},
    {"DeleteTree", [](Session& s, ServiceManager&) { return CodeOf(s.DeleteTree("LM/W3SVC/1/Root")); }},
    {"ReadCacheFile", [](Session& s, ServiceManager&) { return CodeOf(s.OpenCacheFile("0/1.gzip")); }},
    {"ResetCounters", [](Session& s, ServiceManager&) { return CodeOf(s.ResetCounters()); }},
    {"ReadCounters", [](Session& s, ServiceManager&) { return CodeOf(s.ReadCounters()); }},
    {"ListServices", [](Session&, ServiceManager& m) { return CodeOf(m.ListServices()); }},
    {"OpenService", [](Session&, ServiceManager& m) { return CodeOf(m.OpenService("x", 4)); }},
    {"QueryService",
     [](Session&, ServiceManager& m) {
         const auto service = m.OpenService("RemoteRegistry", 0xA0000000);
         return service ? CodeOf((*service)->QueryStatus()) : CodeOf(service);
     }},
};

// Makes each call against a server that goes wrong in just that call, `codes(call)` being what it may answer;
// then the calls that follow fail at once when the connection is gone, and a new connection works.
struct Fault {
    const char* name;
    std::function<Answer(const RemoteCall&)> answer;
    std::function<void(Relay&)> spoil;  // the wire, when the call has arrived
    std::vector<std::uint32_t> codes;
    bool isLost = false;  // the connection is, afterwards
    Deadlines deadlines = {};
};

void Suffer(const Fault& fault, const RemoteCall& call)
{
    SCOPED_TRACE(std::string(fault.name) + " in " + call.name);
    Relay* wire = nullptr;
    std::atomic<bool> isOn = true;
    LyingServer server([&](const std::string& name, const std::string&) -> std::optional<Answer> {
        if (name != call.name || !isOn) return std::nullopt;
        if (fault.spoil) fault.spoil(*wire);
        return fault.answer(call);
    });
    Relay relay(server.Folder() / "relay.sock", server.Socket());
    wire = &relay;
    auto target = server.Target();
    target.socket = server.Folder() / "relay.sock";
    RemoteTransport transport(target, {}, fault.deadlines);
    const auto session = transport.Connect("liar");
    ASSERT_TRUE(session);
    const auto services = transport.OpenServiceManager("liar", ServiceAccess::GenericRead);
    ASSERT_TRUE(services);

    const auto start = Clock::now();
    const auto code = call.make(**session, **services);
    EXPECT_NE(std::find(fault.codes.begin(), fault.codes.end(), code), fault.codes.end()) << code;
    if (fault.isLost) {
        EXPECT_EQ(CodeOf((*session)->OpenKey("LM")), kUnavailable);
    }
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
    isOn = false;
    relay.Set(Relay::Mode::Pass);
    const auto again = transport.Connect("liar");
    ASSERT_TRUE(again) << again.error().description;
    EXPECT_TRUE((*again)->OpenKey("LM"));
}

// Far beyond what is accepted. Once is enough for the largest: it takes a while to make and send.
std::string Huge(const RemoteCall& call)
{
    return std::string((std::string_view(call.name) == "GetData" ? std::size_t{100} : 5) << 20, 'x');
}

TEST(HostileServer, NoFaultInAnyCallDoesHarm)
{
    const std::vector<std::uint32_t> late{Code::Timeout, kUnavailable};
    const auto always = [](Answer answer) {
        return [answer = std::move(answer)](const RemoteCall&) { return answer; };
    };
    const auto failure = [&](std::uint32_t code, std::string text) {
        return always(Answer::Failed(
            {grpc::StatusCode::UNKNOWN, "unknown", LyingServer::Bytes<v1::Failure>([&](auto& sent) {
                 sent.set_code(code);
                 sent.set_description(text);
             })}));
    };
    const auto packed = [](const RemoteCall& call) {
        auto bomb = Answer::One(Huge(call));
        bomb.isCompressed = true;
        return bomb;
    };
    const auto drips = [](Relay& relay) { relay.Set(Relay::Mode::Drip); };
    const auto isCut = [](Relay& relay) { relay.Cut(); };
    const auto kUnknown = Code::UnknownInterface & 0xFFFFU;
    const Fault faults[] = {
        {"stall", always(Answer::Never()), {}, late, true, Impatient()},
        {"drip", always(Answer::One(std::string(1000, '\0'))), drips, late, true, Impatient()},
        {"reset", always(Answer::Never()), isCut, {kUnavailable}, true},
        {"no protocol buffer", always(Answer::One("\xFF\xFF\xFF")), {}, {Code::InvalidData}},
        {"100 MB", [](const auto& call) { return Answer::One(Huge(call)); }, {}, {Code::InvalidData}},
        {"packed 100 MB", packed, {}, {kUnknown, kUnavailable, Code::InvalidData}},
        {"denial", failure(0x80070005, "no\n\x1b[2J\xFF"), {}, {Code::AccessDenied}},
    };
    for (const auto& fault : faults)
        for (const auto& call : kCalls) Suffer(fault, call);
}

TEST(HostileServer, TheFirstCallOfAConnectionMayGoWrongInEveryWay)
{
    struct Case {
        Answer answer;
        std::uint32_t code;
    };
    const auto hello = [](std::uint32_t version) {
        return Answer::One(
            LyingServer::Bytes<v1::HelloReply>([&](auto& reply) { reply.set_version(version); }));
    };
    const Case cases[] = {
        {Answer::Never(), Code::ServerUnavailable},
        {Answer::One("\xFF"), Code::UnknownInterface},
        {hello(0), Code::InterfaceNotFound},
        {hello(2), Code::InterfaceNotFound},
        {Answer::Failed({grpc::StatusCode::UNAUTHENTICATED, "who?"}), 0x80070005},
    };
    Deadlines deadlines;
    deadlines.connect = std::chrono::milliseconds(200);
    for (const auto& [answer, code] : cases) {
        const LyingServer server(
            [&lie = answer](const std::string&, const std::string&) { return std::optional(lie); });
        RemoteTransport transport(server.Target(), {}, deadlines);
        const auto session = transport.Connect("liar");
        ASSERT_FALSE(session);
        EXPECT_EQ(session.error().code, code);
        const auto services = transport.OpenServiceManager("liar", ServiceAccess::GenericRead);
        ASSERT_FALSE(services);
        EXPECT_EQ(services.error().code, code == 0x80070005 ? Code::AccessDenied : kUnavailable);
    }
}

std::string Page(std::vector<std::string> names, bool isLast)
{
    return LyingServer::Bytes<v1::ListKeysReply>([&](auto& reply) {
        for (auto& name : names) reply.add_names(std::move(name));
        reply.set_is_last(isLast);
    });
}

TEST(HostileServer, PagesOfNamesAdvanceOrAreRefused)
{
    struct Case {
        std::vector<std::string> names;
        bool isLast;
        bool isGood;
    };
    const Case cases[] = {
        {{"n", "o"}, false, true},
        {{std::string("n\0<b>\x1b\xFF", 7)}, true, true},  // names may hold any bytes
        {{}, false, false},
        {{"m"}, false, false},                 // where the page began
        {{"o", "n"}, false, false},            // back again
        {{"n", "o", "p", "q"}, false, false},  // more than asked for
        {{std::string(256, 'x')}, true, false},
    };
    for (const auto& [names, isLast, isGood] : cases) {
        const LyingServer server(LyingServer::Only("ListKeys", Answer::One(Page(names, isLast))));
        const auto page = Victim(server)->ListKeys("LM", View::Server, "m", 3);
        EXPECT_EQ(CodeOf(page), isGood ? 0 : Code::InvalidData) << ::testing::PrintToString(names);
        if (page) {
            EXPECT_EQ(page->names, names);
        }
    }
}

TEST(HostileServer, AnEndlessListEnds)
{
    Enumerations enumerations;
    KeyPage page{std::vector<std::string>(1'000'000), false};
    std::string after;
    std::uint64_t total = 0;
    for (std::uint32_t next = 0; total < 2 * Limit::Names; total += page.names.size()) {
        for (auto& name : page.names) name = std::to_string(1'000'000'000 + next++);
        if (!enumerations.Check("LM", View::Server, after, 1'000'000, page)) break;
        after = page.names.back();
    }
    EXPECT_EQ(total, Limit::Names);
}

std::string Row(std::uint32_t depth, std::string_view name, std::size_t properties = 0)
{
    RowBatch batch;
    const Bytes bytes(properties);
    batch.Add({depth, 1, name, bytes});
    return batch.Packed();
}

TEST(HostileServer, RowsThatDoNotHoldTogetherAreRefused)
{
    const auto top = Row(0, "1");
    const std::pair<std::string, bool> cases[] = {
        {top + Row(1, "a") + Row(2, "b") + Row(1, "c"), true},
        {Row(1, "a"), false},
        {top + top, false},
        {top + Row(2, "a"), false},
        {top + Row(1, std::string(256, 'n')), false},
        {top + "x", false},
        {top + Row(1, "a", 100).substr(0, 50), false},
        {top + Row(1, "a", Limit::Batch), false},
    };
    for (const auto& [rows, isGood] : cases) {
        RowCheck check;
        EXPECT_EQ(CodeOf(check.Check(rows)), isGood ? 0 : Code::InvalidData);
    }
    // However deep and broad it goes, what a reader keeps of each level stays bounded, and it ends.
    RowCheck deep;
    EXPECT_TRUE(deep.Check(top));
    std::size_t levels = 0;
    while (deep.Check(Row(static_cast<std::uint32_t>(levels + 1), "a", Limit::Record / 2))) ++levels;
    EXPECT_EQ(levels, Limit::LevelBytes / (Limit::Record / 2) - 1);
    RowCheck broad;
    EXPECT_TRUE(broad.Check(top));
    std::string many;
    for (int i = 0; i < 50'000; ++i) many += Row(1, "a");
    std::uint64_t rows = 1;
    while (broad.Check(many)) rows += 50'000;
    EXPECT_LE(rows, Limit::Rows);
    EXPECT_GT(rows, Limit::Rows - 50'001);
    const auto most = [&top](const std::string& row) {  // how many of these are taken
        RowCheck check;
        EXPECT_TRUE(check.Check(top));
        std::string block;
        while (block.size() < Limit::Batch / 2) block += row;
        std::uint64_t count = 0;
        while (check.Check(block)) count += block.size() / row.size();
        return count;
    };
    EXPECT_LE(most(Row(1, std::string(255, 'n'))), Limit::RowNames / 255);
    EXPECT_LE(most(Row(1, "a", 100'000)), Limit::RowBytes / 100'000);
}

TEST(HostileServer, AScanEndsWhateverTheStreamDoes)
{
    const auto deep = [](int index) {
        std::string rows;
        for (std::uint32_t i = 0; i < 10'000; ++i)
            rows += Row(static_cast<std::uint32_t>(index) * 10'000 + i, "d");
        return LyingServer::Bytes<v1::SubtreeBatch>([&](auto& batch) { batch.set_rows(rows); });
    };
    const auto one = LyingServer::Bytes<v1::SubtreeBatch>([](auto& batch) { batch.set_rows(Row(0, "1")); });
    auto stall = Answer::One(one);
    stall.end = Answer::End::Stall;
    Answer depth{[deep](int index) { return index < 10 ? std::optional(deep(index)) : std::nullopt; }};
    const Answer answers[] = {
        stall,
        depth,
        Answer::Endless([one](int) { return one; }),
        Answer::Endless([](int) { return std::string(); }),  // nothing, for ever
        Answer::Endless(deep),
    };
    for (const auto& answer : answers) {
        const LyingServer server(LyingServer::Only("OpenSubtree", answer));
        ScanRig rig(std::make_shared<RemoteTransport>(server.Target(), WhileWaiting(), Impatient()));
        EXPECT_TRUE(rig.isConnected);
        const auto start = Clock::now();
        rig.Rescan({1});
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
        EXPECT_EQ(rig.contents.totals.Count, 0);
    }
}

TEST(HostileServer, AStreamMustBringMoreThanADropNowAndThen)
{
    const auto drop = [](int index) {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        return LyingServer::Bytes<v1::SubtreeBatch>(
            [index](auto& batch) { batch.set_rows(Row(index == 0 ? 0 : 1, std::to_string(index))); });
    };
    const LyingServer server(LyingServer::Only("OpenSubtree", Answer::Endless(drop)));
    Deadlines deadlines;
    deadlines.slow = std::chrono::milliseconds(500);
    const auto session = Victim(server, deadlines);
    auto stream = session->OpenSubtree("LM/W3SVC/1");
    ASSERT_TRUE(stream);
    RowBatch batch;
    const auto start = Clock::now();
    Done read;
    while ((read = (*stream)->Next(batch)) && batch.Bytes() != 0) {
    }
    EXPECT_EQ(CodeOf(read), Code::Timeout);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
}

std::string Part(std::uint64_t size, std::size_t bytes)
{
    return LyingServer::Bytes<v1::CacheFilePart>([&](auto& part) {
        part.set_size(size);
        part.set_data(std::string(bytes, 'x'));
    });
}

TEST(HostileServer, AFileIsNoLongerThanAnnouncedAndComesInPartsThatBringSomething)
{
    struct Case {
        Answer answer;
        std::uint64_t read;  // bytes, until the end or the error
        std::uint32_t code;
    };
    const auto kWhole = Limit::FilePart;
    const auto thenEmpty = [](int index) { return index == 0 ? Part(5, 0) : Part(0, 0); };
    const Case cases[] = {
        {Answer::One(Part(5, 5)), 5, 0},
        {Answer::One(Part(9, 5)), 5, 0},  // it shrank
        {Answer{}, 0, Code::InvalidData},
        {Answer::One(Part(4, 5)), 0, Code::InvalidData},
        {Answer::One(Part(Limit::File + 1, 0)), 0, Code::InvalidData},
        {Answer::One(Part(2 * kWhole, kWhole + 1)), 0, Code::InvalidData},
        {Answer::Endless(thenEmpty), 0, Code::InvalidData},
        {Answer::Endless([&](int) { return Part(3 * kWhole, kWhole); }), 3 * kWhole, Code::InvalidData},
    };
    for (const auto& [answer, most, code] : cases) {
        SCOPED_TRACE(std::to_string(&answer - &cases[0].answer));
        const LyingServer server(LyingServer::Only("ReadCacheFile", answer));
        const auto session = Victim(server);
        auto file = session->OpenCacheFile("0/1.gzip");
        std::uint64_t size = 0;
        auto outcome = file ? Done() : Done(Fail(file.error()));
        while (outcome) {
            const auto bytes = (*file)->Read(100'000);
            if (!bytes) outcome = Fail(bytes.error());
            if (!bytes || bytes->empty()) break;
            size += bytes->size();
        }
        EXPECT_EQ(CodeOf(outcome), code);
        EXPECT_EQ(size, most);
    }
}

TEST(HostileServer, ADeletionThatNeverEndsIsGivenUp)
{
    for (const std::uint64_t step : {0U, 1U}) {
        const auto news = [step](int index) {
            return LyingServer::Bytes<v1::DeleteProgress>(
                [&](auto& sent) { sent.set_deleted(step * static_cast<std::uint64_t>(index)); });
        };
        const LyingServer server(LyingServer::Only("DeleteTree", Answer::Endless(news)));
        const auto session = Victim(server);
        EXPECT_EQ(CodeOf(session->DeleteTree("LM")), Code::Timeout);
    }
}

}  // namespace
