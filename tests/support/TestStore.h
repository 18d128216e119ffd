#pragma once

#include "platform/TempFolder.h"
#include "zentrel/CachedFile.h"
#include "zentrel/KeyPath.h"
#include "zentrel/Metabase.h"
#include "zentrel/RecordLayout.h"
#include "zentrel/Service.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

// A real data folder whose keys a test writes itself, to the byte.
class TestStore {
public:
    TestStore() : m_folder(std::move(*TempFolder::Make("quillet-test")))
    {
        EXPECT_TRUE(zentrel::Service::Init(Folder()));
    }

    std::filesystem::path Folder() const { return m_folder.Path() / "data"; }

    // All in one transaction: `fill` is called with it.
    template <class Fill>
    void Write(const Fill& fill) const
    {
        auto store = zentrel::Metabase::Open(Folder(), zentrel::Metabase::Access::Write);
        ASSERT_TRUE(store);
        auto txn = (*store)->BeginWrite();
        ASSERT_TRUE(txn);
        fill(*txn);
        ASSERT_TRUE(txn->Commit());
    }

    void Put(std::string_view path, const zentrel::PropertySet& properties) const
    {
        Write([&](auto& txn) { ASSERT_TRUE(txn.SetProperties(path, properties)); });
    }

    void PutSite(std::uint32_t site, std::string_view comment)
    {
        zentrel::PropertySet properties;
        properties.SetText(zentrel::Prop::KeyType, zentrel::kWebServerType);
        properties.SetText(zentrel::Prop::ServerComment, comment);
        Put(zentrel::SiteKey(site), properties);
        PutVirtualDir(zentrel::SiteRootKey(site), "/srv/site" + std::to_string(site));
    }

    void PutVirtualDir(std::string_view path, std::string_view target)
    {
        zentrel::PropertySet properties;
        properties.SetText(zentrel::Prop::KeyType, zentrel::kVirtualDirType);
        properties.SetText(zentrel::Prop::VirtualRoot, target);
        Put(path, properties);
    }

    // What an entry's id leads to, packed by gzip.
    void PutCacheFile(std::uint32_t id, const zentrel::Bytes& bytes) const
    {
        const auto file = Folder() / "cache" / zentrel::CachedFile{id, zentrel::Encoding::Gzip, 0}.Path();
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    static zentrel::PropertySet Entry(std::uint32_t id, std::uint64_t size, std::uint64_t compressed,
                                      zentrel::PropertyId encoding = zentrel::Prop::GzipRecord)
    {
        zentrel::StatisticsRecord statistics;
        statistics.totalHits = 10;
        zentrel::PropertySet properties = Variant(size, compressed, encoding);
        properties.SetNumber(zentrel::Prop::CacheId, id);
        properties.SetBytes(zentrel::Prop::Statistics, zentrel::WriteStatisticsRecord(statistics));
        return properties;
    }

    static zentrel::PropertySet Variant(std::uint64_t size, std::uint64_t compressed,
                                        zentrel::PropertyId encoding = zentrel::Prop::GzipRecord)
    {
        zentrel::CacheRecord record;
        record.level = 6;
        record.uncompressedSize = size;
        record.compressedSize = compressed;
        zentrel::PropertySet properties;
        properties.SetBytes(encoding, zentrel::WriteCacheRecord(record));
        return properties;
    }

private:
    TempFolder m_folder;
};
