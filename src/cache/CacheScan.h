#pragma once

#include "cache/CacheTree.h"
#include "cache/FileTypeTable.h"
#include "cache/TreeBuilder.h"
#include "contracts/MessageBoxes.h"
#include "contracts/MessagePump.h"
#include "contracts/StatusLine.h"
#include "contracts/WaitCursor.h"
#include "zentrel/Admin.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

// What a scan found. Lives from one ClearAll to the next.
struct CacheContents {
    explicit CacheContents(FormatLocale locale) : tree(std::move(locale)) {}

    CacheTree tree;
    FileInfo totals;      // over every cached URL
    FileTypeTable types;  // the same by file type
};

// What a scan needs of the window that shows it.
class ScanScreen {
public:
    virtual ~ScanScreen() = default;
    virtual void HideTree() = 0;
    virtual void ShowTree() = 0;
    virtual void ForgetContents() = 0;  // the contents are about to be changed or dropped
    virtual void ShowContents() = 0;    // the contents are complete: tree, types and totals can be shown
    virtual std::string Caption() const = 0;  // the window's caption, the title of message boxes
};

struct ScanHost {
    ScanScreen& screen;
    StatusLine& status;
    MessageBoxes& boxes;
    MessagePump& pump;
    ScreenPointer& pointer;
};

// Set by the user's Stop, read by a running scan.
struct StopFlag {
    bool isSet = false;
};

// Reads the cache of chosen sites into a tree. The routine runs on the caller's thread and lets messages
// run after every key; whatever they call, a second scan does not start.
class CacheScan {
public:
    CacheScan(zentrel::ServerAdmin& server, zentrel::CacheAdmin& cache, ScanHost host, StopFlag& stop,
              CacheContents& contents)
        : m_server(server),
          m_cache(cache),
          m_host(host),
          m_stop(stop),
          m_contents(contents),
          m_builder(contents.tree, server)
    {
    }

    // sites: the selected site set in slot order; numbers below 1 are free slots.
    void Rescan(std::span<const std::int32_t> sites, const bool& isConnected);
    void LoadInfo2(std::span<const std::int32_t> sites);
    void ClearAll();  // not while a scan runs

    // Reads the record of one URL node again; not while a scan runs. Its text and the file types stay as they
    // are.
    void RefreshFileNode(NodeId node);

    bool IsBusy() const { return m_isBusy; }

private:
    struct Level {
        zentrel::KeyCollection keys;
        std::size_t pathEnd;                           // of this key in m_path
        std::shared_ptr<const VirtualRootMatch> root;  // that this key lies under
    };

    void Clear();
    void Load(std::span<const std::int32_t> sites);
    void ScanKey(const std::string& top);
    void EnterKey();
    void LeaveKey();
    void LookAtKey();
    void AddEntry(std::uint32_t cacheId, const std::optional<zentrel::Record>& statistics);
    std::optional<zentrel::Record> Read(const std::string& path, zentrel::PropertyId id);
    std::optional<zentrel::Record> ReadCacheRecord(const std::string& path);
    void SetMetaPath();
    std::shared_ptr<const VirtualRootMatch> RootAbove() const;
    std::string_view TreeKey() const;

    zentrel::ServerAdmin& m_server;
    zentrel::CacheAdmin& m_cache;
    ScanHost m_host;
    StopFlag& m_stop;
    CacheContents& m_contents;
    TreeBuilder m_builder;

    bool m_isBusy = false;
    std::string m_path;           // the key that the scan is at
    std::vector<Level> m_levels;  // the keys above it whose children are being scanned
    FileInfo m_info;              // used again for every entry
    std::string m_loadingInfo;    // what every status text of a scan begins with
    std::string m_statusText;
};
