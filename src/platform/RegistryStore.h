#pragma once

#include "platform/AnsweredKeys.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class Hive;

// A key: one of the predefined roots, or a handle that the store gave out.
using RegistryKey = std::uint32_t;

inline constexpr RegistryKey kCurrentUser = 0x80000001;   // the user's own hive
inline constexpr RegistryKey kLocalMachine = 0x80000002;  // the machine's, which users cannot write

// Value types, by their codes. Others can be stored and read too; nothing is known about their bytes.
inline constexpr std::uint32_t kRegSz = 1;        // a text and a zero byte
inline constexpr std::uint32_t kRegExpandSz = 2;  // the same, with references to environment variables
inline constexpr std::uint32_t kRegBinary = 3;    // any bytes
inline constexpr std::uint32_t kRegDword = 4;     // four bytes, the lowest first
inline constexpr std::uint32_t kRegMultiSz =
    7;  // texts with a zero byte behind each, and one more at the end

// What a handle may do, as bits: 1 reads and lists values, 2 writes and deletes values, 8 lists subkeys.
inline constexpr std::uint32_t kKeyRead = 0x20019;
inline constexpr std::uint32_t kKeyWrite = 0x20006;
inline constexpr std::uint32_t kKeyAllAccess = 0xF003F;

// The answers of RegistryStore. `code` is 0 or the system's code; the rest means something for 0 only, but
// for what is said otherwise.
struct RegistryOpened {
    std::uint32_t code = 0;
    RegistryKey key = 0;   // to be closed
    bool created = false;  // by this call; else it was there
};

struct RegistryName {
    std::uint32_t code = 0;
    std::string name{};
};

struct RegistryRead {
    std::uint32_t code = 0;
    std::uint32_t type = 0;  // for code 234 too
    std::size_t size = 0;    // bytes of the value; for code 234 too
    std::string name{};      // of EnumValue
};

// Keys in a tree, each with named values that have a type and bytes: the user's hive and the machine's. Keys
// that the platform answers itself are read under their whole path; no listing of subkeys names them.
//
// Names are UTF-8 without zero characters. They keep the case in which they were made and are found in any.
// A path joins the names of keys with backslashes. Trailing ones are ignored and several in a row count as
// one; a path that begins with one and has a name behind it is refused with 161.
//
// Codes: 2 no such key or value, 5 access denied (a right that the handle lacks, a hive that cannot be
// written, a key that has subkeys), 6 no such handle, 14 not enough memory, 32 another program kept the hive
// locked for 5 seconds, 87 a name that is too long or holds a zero character, a path of more than 512 names,
// a value that is too large, unknown rights, 112 disk full, 161 see above, 234 the buffer is too small, 259
// nothing more to list, 1015 the hive's file is corrupt, 1016 it cannot be read or written, 1018 the key was
// deleted while the handle was open.
//
// A write is on the disk when its call returns 0, and seen by the next read of every process; whatever stops
// the process loses at most the write in progress. Nothing is cached here. For one thread at a time.
class RegistryStore {
public:
    static constexpr std::size_t kMostKeyName = 255;      // characters
    static constexpr std::size_t kMostValueName = 16383;  // characters
    static constexpr std::size_t kMostNames = 512;        // in one path
    static constexpr std::size_t kMostValueBytes = 16U << 20U;

    // Always gives a usable store. A missing user's hive is made, in a folder and a file for this user only;
    // a missing machine hive is an empty one. `trouble` gets one sentence for the log when a hive could not
    // be used as it is, else stays empty:
    // - A user's hive that is no database, damaged or from a newer version is moved aside under a name that
    //   says so, and a new one takes its place.
    // - A hive that cannot be written is read; writes answer 5.
    // - Where nothing can be read, and where something else than a hive stands (a folder, a pipe, another
    //   program's database), that is left alone and the hive lives in memory.
    static std::unique_ptr<RegistryStore> Open(const std::filesystem::path& userHive,
                                               const std::filesystem::path& machineHive, std::string& trouble,
                                               std::vector<AnsweredKey> answered = AnsweredKeys());
    ~RegistryStore();
    RegistryStore(const RegistryStore&) = delete;
    RegistryStore& operator=(const RegistryStore&) = delete;

    // With an empty path, the key itself, with the rights that are asked for.
    RegistryOpened OpenKey(RegistryKey key, std::string_view path, std::uint32_t access);
    // Makes what is missing of the path, all or nothing.
    RegistryOpened CreateKey(RegistryKey key, std::string_view path, std::uint32_t access);
    std::uint32_t CloseKey(RegistryKey key);  // predefined roots stay open

    // Copies the value into the buffer. 234 when it does not fit; an empty buffer asks for the size.
    RegistryRead QueryValue(RegistryKey key, std::string_view name, std::span<std::uint8_t> buffer) const;
    // Makes or replaces a value; a replaced one keeps its place and the case of its name.
    std::uint32_t SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                           std::span<const std::uint8_t> data);

    // The key below, with its values. Whoever has it open gets 1018 from then on.
    std::uint32_t DeleteKey(RegistryKey key, std::string_view path);
    std::uint32_t DeleteValue(RegistryKey key, std::string_view name);

    // Subkeys in the order of their names, values in the order in which they were made; index counts from 0.
    // 234 when the name has not fewer characters than nameCapacity, or the value does not fit the buffer.
    RegistryName EnumKey(RegistryKey key, std::uint32_t index, std::size_t nameCapacity) const;
    RegistryRead EnumValue(RegistryKey key, std::uint32_t index, std::size_t nameCapacity,
                           std::span<std::uint8_t> buffer) const;

private:
    struct Handle {
        Hive* hive = nullptr;
        std::int64_t id = 0;  // of the key in its hive
        std::uint32_t access = 0;
        const AnsweredKey* answered = nullptr;
    };

    RegistryStore(std::unique_ptr<Hive> user, std::unique_ptr<Hive> machine,
                  std::vector<AnsweredKey> answered);

    // 6 for what is no key, 5 when it lacks one of the rights.
    std::uint32_t Resolve(RegistryKey key, std::uint32_t rights, Handle& handle) const;
    RegistryOpened GiveHandle(Handle handle, bool created);
    const AnsweredKey* FindAnswered(RegistryKey key, std::span<const std::string_view> names) const;

    const std::unique_ptr<Hive> m_user;
    const std::unique_ptr<Hive> m_machine;
    const std::vector<AnsweredKey> m_answered;
    std::map<RegistryKey, Handle> m_handles;
    RegistryKey m_nextHandle = 4;
};
