#include "fuzz/Targets.h"

#include "base/Text.h"
#include "zentrel/SubtreeWindow.h"
#include "zentrel/remote/Failures.h"
#include "zentrel/remote/Limits.h"
#include "zentrel/remote/Replies.h"
#include "zentrel/remote/RowCheck.h"

#include <algorithm>
#include <vector>

namespace fuzz {
namespace {

using namespace zentrel;

// Bytes as a server might cut them into batches; looked at first as the client does, or handed on raw.
class ByteStream : public SubtreeStream {
public:
    ByteStream(std::string_view bytes, std::size_t batch, bool isChecked)
        : m_bytes(bytes),
          m_batch(batch),
          m_isChecked(isChecked)
    {
    }
    Done Next(RowBatch& batch) override
    {
        const auto part = m_bytes.substr(0, m_batch);
        m_bytes.remove_prefix(part.size());
        if (m_isChecked)
            if (auto checked = m_check.Check(part); !checked) return checked;
        batch.Assign(std::string(part));
        return {};
    }

private:
    std::string_view m_bytes;
    std::size_t m_batch;
    bool m_isChecked;
    RowCheck m_check;
};

// Walks as a scan does, into whatever the window shows.
void WalkRows(std::string_view bytes, std::size_t batch, bool isChecked)
{
    struct Level {
        std::string path;
        SubtreeWindow::Key key;
    };
    SubtreeWindow window(std::make_unique<ByteStream>(bytes, batch, isChecked), "LM");
    std::vector<Level> levels;
    std::string path = "LM";
    const auto enter = [&] {
        const auto key = window.Find(path);
        if (!key) return;
        Require(key->properties.size() <= bytes.size(), "properties are what was sent");
        ForEachProperty(key->properties, [](const PropertyView& property) { Record record(property); });
        if (key->childCount != 0 && key->visit != 0) levels.push_back({path, *key});
    };
    enter();
    std::size_t steps = 0;
    for (std::string name; !levels.empty() && levels.size() < 1000;) {
        const auto& level = levels.back();
        const auto shown = window.FirstChild(level.key.depth, level.key.visit);
        const auto first = shown ? std::optional<std::string>(*shown) : std::nullopt;
        if (window.NextChild(level.key.depth, level.key.visit, name) != SubtreeWindow::Step::Moved) {
            Require(!first, "a first child that is told can be reached");
            levels.pop_back();
            continue;
        }
        Require(!first || *first == name, "the first child comes first");
        Require(++steps <= bytes.size(), "each step takes a row");
        path = level.path + '/' + name;
        enter();
    }
}

void ReadFailure(std::string_view bytes, int code)
{
    const grpc::Status status(static_cast<grpc::StatusCode>(1 + code % 16), "message", std::string(bytes));
    const auto error = FromStatus(status, "fuzz");
    Require(error.Plain() != 0, "a failure has a code");
    for (const auto& text : {error.source, error.description}) {
        Require(IsValidUtf8(text), "a text is UTF-8");
        Require(text.size() <= 8192, "a text is short");
        Require(std::all_of(text.begin(), text.end(), [](char c) { return c < 0 || c >= ' '; }),
                "a text has no control characters");
    }
    const auto again = FromStatus(ToStatus(error), "fuzz");
    Require(again.code == error.code, "a code comes back");
}

void ReadReplies(std::string_view bytes)
{
    const std::string text(bytes);
    if (v1::GetDataReply reply; reply.ParseFromString(text)) {
        const auto record = ReadRecord(reply, Prop::KeyType);
        Require(record.has_value() == (!reply.exists() || reply.value().size() <= Limit::Record),
                "a record that is not too large is read");
        if (record && *record) Require((*record)->Value().size() == reply.value().size(), "all of it");
    }
    if (v1::ServicesReply reply; reply.ParseFromString(text)) {
        const auto services = ReadServices(reply);
        if (services)
            Require(services->size() == static_cast<std::size_t>(reply.services_size()), "none is lost");
    }
}

}  // namespace

void ServerReply(Input input)
{
    if (input.size() < 2) return;
    const auto mode = std::to_integer<int>(input[0]);
    const auto detail = std::to_integer<std::size_t>(input[1]);
    const auto bytes = TextOf(input.subspan(2));
    switch (mode % 4) {
    case 0: return WalkRows(bytes, 1 + detail * 16, false);
    case 1: return WalkRows(bytes, 1 + detail * 16, true);
    case 2: return ReadFailure(bytes, static_cast<int>(detail));
    default: return ReadReplies(bytes);
    }
}

}  // namespace fuzz
