#include "platform/RegistryStore.h"

#include "base/SystemError.h"
#include "base/Text.h"
#include "platform/Hive.h"
#include "platform/HiveFile.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr std::uint32_t kQueryValue = 0x1;
constexpr std::uint32_t kSetValue = 0x2;
constexpr std::uint32_t kEnumerateSubKeys = 0x8;
// To change values or subkeys, to delete, to change owner and rights.
constexpr std::uint32_t kWritingRights = 0xD0026;

constexpr bool IsPredefined(RegistryKey key)
{
    return key == kCurrentUser || key == kLocalMachine;
}

// Characters of a name, the bytes that only continue one not counted.
std::size_t CharacterCount(std::string_view name)
{
    const auto starts = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(name.begin(), name.end(), starts));
}

bool IsName(std::string_view name, std::size_t most)
{
    // The size as well, since bytes that are not UTF-8 may all look like continuations.
    return name.find('\0') == std::string_view::npos && name.size() <= 4 * most &&
           CharacterCount(name) <= most;
}

std::uint32_t SplitPath(std::string_view path, std::vector<std::string_view>& names)
{
    while (path.ends_with('\\')) path.remove_suffix(1);
    if (path.starts_with('\\')) return Code::BadPathName;
    while (!path.empty()) {
        const auto end = std::min(path.find('\\'), path.size());
        if (!IsName(path.substr(0, end), RegistryStore::kMostKeyName)) return Code::InvalidParameter;
        if (end > 0) names.push_back(path.substr(0, end));
        if (names.size() > RegistryStore::kMostNames) return Code::InvalidParameter;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return 0;
}

// A handle on a key that only the platform answers has an id that no key of a hive has, so the hive says
// that it was deleted.
constexpr std::int64_t kInNoHive = 0;

RegistryRead TakeAnswer(const AnsweredValue& value, std::span<std::uint8_t> buffer)
{
    RegistryRead read{0, kRegSz, value.text.size() + 1, value.name};
    if (read.size > buffer.size())
        read.code = Code::MoreData;
    else
        std::copy_n(value.text.c_str(), read.size, buffer.begin());
    return read;
}

RegistryRead AnswerNamed(const AnsweredKey& key, std::string_view name, std::span<std::uint8_t> buffer)
{
    for (const auto& value : key.values())
        if (LowerCase(value.name) == LowerCase(name)) return TakeAnswer(value, buffer);
    return {Code::FileNotFound};
}

// The answered values follow those of the hive, without the names that the hive has.
RegistryRead AnswerAt(const AnsweredKey& key, const Hive& hive, std::int64_t id, std::uint32_t index,
                      std::span<std::uint8_t> buffer)
{
    std::uint32_t before = 0;
    for (auto code = Code::MoreData; code == 0 || code == Code::MoreData;)
        if (code = hive.ValueAt(id, before, {}).code; code == 0 || code == Code::MoreData) ++before;
    for (const auto& value : key.values()) {
        const auto code = hive.ReadValue(id, value.name, {}).code;
        if (code == 0 || code == Code::MoreData) continue;
        if (before++ == index) return TakeAnswer(value, buffer);
    }
    return {Code::NoMoreItems};
}

}  // namespace

std::unique_ptr<RegistryStore> RegistryStore::Open(const std::filesystem::path& userHive,
                                                   const std::filesystem::path& machineHive,
                                                   std::string& trouble, std::vector<AnsweredKey> answered)
{
    trouble.clear();
    auto user = OpenUserHive(userHive, trouble);
    std::string machineTrouble;
    auto machine = OpenMachineHive(machineHive, machineTrouble);
    if (trouble.empty()) trouble = machineTrouble;
    return std::unique_ptr<RegistryStore>(
        new RegistryStore(std::move(user), std::move(machine), std::move(answered)));
}

RegistryStore::RegistryStore(std::unique_ptr<Hive> user, std::unique_ptr<Hive> machine,
                             std::vector<AnsweredKey> answered)
    : m_user(std::move(user)),
      m_machine(std::move(machine)),
      m_answered(std::move(answered))
{
}

RegistryStore::~RegistryStore() = default;

std::uint32_t RegistryStore::Resolve(RegistryKey key, std::uint32_t rights, Handle& handle) const
{
    if (IsPredefined(key)) {
        handle = {key == kCurrentUser ? m_user.get() : m_machine.get(), Hive::kRoot, kKeyAllAccess};
        return 0;
    }
    const auto found = m_handles.find(key);
    if (found == m_handles.end()) return Code::InvalidHandle;
    handle = found->second;
    return (handle.access & rights) == rights ? 0 : Code::AccessDenied;
}

RegistryOpened RegistryStore::GiveHandle(Handle handle, bool created)
{
    while (m_nextHandle == 0 || IsPredefined(m_nextHandle) || m_handles.contains(m_nextHandle))
        m_nextHandle += 4;
    m_handles.emplace(m_nextHandle, handle);
    return {0, std::exchange(m_nextHandle, m_nextHandle + 4), created};
}

const AnsweredKey* RegistryStore::FindAnswered(RegistryKey key, std::span<const std::string_view> names) const
{
    if (key != kLocalMachine) return nullptr;
    std::string path;
    for (const auto name : names) AppendLowerCase(path.empty() ? path : path += '\\', name);
    const auto found = std::find_if(m_answered.begin(), m_answered.end(), [&path](const auto& answered) {
        return LowerCase(answered.path) == path;
    });
    return found == m_answered.end() ? nullptr : &*found;
}

RegistryOpened RegistryStore::OpenKey(RegistryKey key, std::string_view path, std::uint32_t access)
{
    if ((access & ~kKeyAllAccess) != 0) return {Code::InvalidParameter};
    Handle handle;
    std::vector<std::string_view> names;
    if (const auto code = Resolve(key, 0, handle); code != 0) return {code};
    if (const auto code = SplitPath(path, names); code != 0) return {code};
    handle.answered = FindAnswered(key, names);
    const bool writes = (access & kWritingRights) != 0;
    if (const auto code = handle.hive->FindKey(handle.id, names, handle.id); code != 0) {
        if (code != Code::FileNotFound || handle.answered == nullptr || writes) return {code};
        handle.id = kInNoHive;
    }
    if (handle.hive->IsReadOnly() && writes) return {Code::AccessDenied};
    handle.access = access;
    return GiveHandle(handle, false);
}

RegistryOpened RegistryStore::CreateKey(RegistryKey key, std::string_view path, std::uint32_t access)
{
    const auto opened = OpenKey(key, path, access);
    if (opened.code != Code::FileNotFound) return opened;
    Handle handle;
    std::vector<std::string_view> names;
    if (const auto code = Resolve(key, 0, handle); code != 0) return {code};
    if (const auto code = SplitPath(path, names); code != 0) return {code};
    bool created = false;
    if (const auto code = handle.hive->MakeKey(handle.id, names, handle.id, created); code != 0)
        return {code};
    handle.access = access;
    return GiveHandle(handle, created);
}

std::uint32_t RegistryStore::CloseKey(RegistryKey key)
{
    if (IsPredefined(key)) return 0;
    return m_handles.erase(key) == 1 ? 0 : Code::InvalidHandle;
}

RegistryRead RegistryStore::QueryValue(RegistryKey key, std::string_view name,
                                       std::span<std::uint8_t> buffer) const
{
    Handle handle;
    if (const auto code = Resolve(key, kQueryValue, handle); code != 0) return {code};
    if (!IsName(name, kMostValueName)) return {Code::InvalidParameter};
    auto read = handle.hive->ReadValue(handle.id, name, buffer);
    const bool isMissing = read.code == Code::FileNotFound || read.code == Code::KeyDeleted;
    return isMissing && handle.answered != nullptr ? AnswerNamed(*handle.answered, name, buffer) : read;
}

std::uint32_t RegistryStore::SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                                      std::span<const std::uint8_t> data)
{
    Handle handle;
    if (const auto code = Resolve(key, kSetValue, handle); code != 0) return code;
    if (!IsName(name, kMostValueName) || data.size() > kMostValueBytes) return Code::InvalidParameter;
    return handle.hive->WriteValue(handle.id, name, type, data);
}

std::uint32_t RegistryStore::DeleteKey(RegistryKey key, std::string_view path)
{
    Handle handle;
    std::vector<std::string_view> names;
    if (const auto code = Resolve(key, 0, handle); code != 0) return code;
    if (const auto code = SplitPath(path, names); code != 0) return code;
    if (const auto code = handle.hive->FindKey(handle.id, names, handle.id); code != 0) return code;
    return handle.hive->DeleteKey(handle.id);
}

std::uint32_t RegistryStore::DeleteValue(RegistryKey key, std::string_view name)
{
    Handle handle;
    if (const auto code = Resolve(key, kSetValue, handle); code != 0) return code;
    if (!IsName(name, kMostValueName)) return Code::InvalidParameter;
    return handle.hive->DeleteValue(handle.id, name);
}

RegistryName RegistryStore::EnumKey(RegistryKey key, std::uint32_t index, std::size_t nameCapacity) const
{
    Handle handle;
    if (const auto code = Resolve(key, kEnumerateSubKeys, handle); code != 0) return {code};
    auto found = handle.hive->SubKeyAt(handle.id, index);
    if (found.code == 0 && CharacterCount(found.name) >= nameCapacity) return {Code::MoreData};
    if (handle.id == kInNoHive) found.code = Code::NoMoreItems;
    return found;
}

RegistryRead RegistryStore::EnumValue(RegistryKey key, std::uint32_t index, std::size_t nameCapacity,
                                      std::span<std::uint8_t> buffer) const
{
    Handle handle;
    if (const auto code = Resolve(key, kQueryValue, handle); code != 0) return {code};
    auto found = handle.hive->ValueAt(handle.id, index, buffer);
    const bool isBehind = found.code == Code::NoMoreItems || found.code == Code::KeyDeleted;
    if (isBehind && handle.answered != nullptr)
        found = AnswerAt(*handle.answered, *handle.hive, handle.id, index, buffer);
    if (found.code == 0 && CharacterCount(found.name) >= nameCapacity) found.code = Code::MoreData;
    return found;
}
