#include "zentrel/Property.h"

#include "fuzz/Targets.h"

#include <algorithm>
#include <cstdint>

namespace fuzz {
namespace {

using zentrel::PropertySet;

bool SameBytes(Input left, Input right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

bool Same(const zentrel::PropertyView& left, const zentrel::PropertyView& right)
{
    return left.id == right.id && left.type == right.type && SameBytes(left.bytes, right.bytes);
}

void RequireRecord(const zentrel::PropertyView& view)
{
    const zentrel::Record record(view);
    Require(SameBytes(record.Value(), view.bytes), "an owned value has the same bytes");
    Require(record.Text().size() <= view.bytes.size(), "a text lies within its value");
    std::size_t length = 0;
    for (const auto& text : record.TextList()) length += text.size() + 1;
    Require(length <= view.bytes.size() + 1, "a list of texts lies within its value");
    Require(view.bytes.size() == 4 || record.Number() == 0, "a number has four bytes");
}

// Whatever was sent, what is set into it is found again.
void RequireChanges(Input packed, const zentrel::PropertyView& view)
{
    PropertySet set(packed);
    set.SetNumber(view.id, 42);
    const auto found = set.Find(view.id);
    Require(found && zentrel::Record(*found).Number() == 42, "a number that was set is found");
    set.Set(view);
    const auto back = set.Find(view.id);
    Require(back && Same(*back, view), "a value that was set back is found");
    const auto size = set.Packed().size();
    Require(set.Remove(view.id), "what is found can be removed");
    Require(set.Packed().size() + view.bytes.size() + 12 == size, "removal takes one property out");
}

}  // namespace

void Property(Input bytes)
{
    PropertySet built;  // of the pieces
    std::size_t taken = 0;
    auto rest = bytes;
    while (const auto view = zentrel::TakeProperty(rest)) {
        taken += 12 + view->bytes.size();
        Require(taken + rest.size() == bytes.size(), "properties lie side by side");
        Require(view->bytes.data() + view->bytes.size() == rest.data(), "a value lies within its buffer");
        RequireRecord(*view);
        const auto first = zentrel::FindProperty(bytes, view->id);
        Require(first && first->bytes.data() <= view->bytes.data(), "the first of an id is found");
        if (taken < 512) RequireChanges(bytes, *view);
        built.Set(*view);
    }

    std::int64_t before = -1;
    zentrel::ForEachProperty(built.Packed(), [&](const zentrel::PropertyView& view) {
        Require(view.id > before, "ids ascend");
        before = view.id;
        Require(zentrel::FindProperty(bytes, view.id).has_value(), "nothing is made up");
    });
    PropertySet copy(built.Packed());
    zentrel::ForEachProperty(built.Packed(), [&](const zentrel::PropertyView& view) { copy.Set(view); });
    Require(SameBytes(copy.Packed(), built.Packed()), "setting what is there changes nothing");
}

}  // namespace fuzz
