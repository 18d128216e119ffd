#pragma once

#include "cache/CacheScan.h"
#include "help/QtOutside.h"
#include "shell/ProcessState.h"
#include "shell/QtMessagePump.h"
#include "shell/QtScreenPointer.h"
#include "shell/frmMain.h"
#include "zentrel/EmbeddedTransport.h"

#include <filesystem>

// The real main window on a data folder, connected and shown, with nothing scanned yet.
class BenchWindow : private MessageBoxes {
public:
    explicit BenchWindow(const std::filesystem::path& dataFolder) : BenchWindow(dataFolder, ownPump) {}
    BenchWindow(const std::filesystem::path& dataFolder, MessagePump& pump)
        : BenchWindow(std::make_shared<zentrel::EmbeddedTransport>(dataFolder, "bench"), pump)
    {
    }
    explicit BenchWindow(std::shared_ptr<zentrel::Transport> transport)
        : BenchWindow(std::move(transport), ownPump)
    {
    }
    BenchWindow(std::shared_ptr<zentrel::Transport> transport, MessagePump& pump)
        : registry(RegistryStore::Open({}, {}, trouble)),
          state(transport, transport, *registry),
          window(state, {*this, pump, pointer, web, starter})
    {
        state.settings.Sites.Add(1);
        window.resize(1000, 700);
        window.show();
        window.ConnectToServer();
        Paint();
    }

    void Rescan() { window.Rescan(); }
    std::int32_t Urls() const { return state.contents.totals.Count; }

    // What a rescan does first.
    void Empty()
    {
        window.ForgetContents();
        state.contents.tree.Clear();
        state.contents.types.Clear();
        state.contents.totals = FileInfo();
    }

    void Paint() { window.trvFiles->viewport()->repaint(); }

    QtMessagePump ownPump;
    QtScreenPointer pointer;
    QtWebOpener web;
    QtProgramStarter starter;
    std::string trouble;
    std::unique_ptr<RegistryStore> registry;  // in memory
    ProcessState state;
    frmMain window;

private:
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string&) override
    {
        std::puts(text.c_str());
        return BoxAnswer::Ok;
    }
};
