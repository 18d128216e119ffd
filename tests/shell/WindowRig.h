#pragma once

#include "shell/QtScreenPointer.h"
#include "shell/frmMain.h"
#include "support/TestStore.h"
#include "zentrel/EmbeddedTransport.h"

#include <QCoreApplication>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

// Takes down what the program would have opened outside of itself.
class ScriptedOutside : public WebOpener, public ProgramStarter {
public:
    void Open(const std::string& address) override { opened.push_back(address); }
    bool Start(const std::filesystem::path& program) override
    {
        opened.push_back(program.string());
        return true;
    }

    std::vector<std::string> opened;
};

class ScriptedBoxes : public MessageBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle, const std::string& title) override
    {
        shown.push_back(title + ": " + text);
        if (onShow) onShow();
        return answer;
    }

    std::vector<std::string> shown;
    BoxAnswer answer = BoxAnswer::Ok;
    std::function<void()> onShow;  // while the box stands
};

// Runs a script instead of the event loop, which it enters at each call too when `isLive`.
class ScriptedPump : public MessagePump {
public:
    void Run() override
    {
        ++runs;
        if (onRun) onRun(runs);
        if (isLive) QCoreApplication::processEvents();
    }

    std::function<void(int)> onRun;
    bool isLive = false;
    int runs = 0;
};

inline std::string Shown(const QAbstractItemModel& model, const QModelIndex& parent = {}, int depth = 0)
{
    std::string text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const auto index = model.index(row, 0, parent);
        text += std::string(static_cast<std::size_t>(depth), ' ') +
                index.data(Qt::DisplayRole).toString().toStdString() + '\n' + Shown(model, index, depth + 1);
    }
    return text;
}

// The main window over a real service; `store` is filled before Open.
class WindowRig : public testing::Test {
public:
    // Opens with the settings that the last window saved. Unless a test says otherwise, it connects to this
    // machine at once and takes all sites.
    void Open(const std::filesystem::path& folder)
    {
        window.reset();
        std::string trouble;
        registry = RegistryStore::Open(store.Folder() / "settings.hive", {}, trouble);
        ASSERT_EQ(trouble, "");
        const auto servers = std::make_shared<zentrel::EmbeddedTransport>(folder, "here");
        state.emplace(servers, servers, *registry);
        state->settings.RememberLastServer = false;
        state->first.emplace();
        window = std::make_unique<frmMain>(*state, Desktop{boxes, pump, pointer, outside, outside});
    }

    // Two sites: one with a folder, a virtual directory and a URL of three variants, and an empty one.
    void FillStore()
    {
        using zentrel::SiteRootKey;
        store.PutSite(1, "Docs");
        store.PutSite(2, "Empty");
        const auto root = SiteRootKey(1);
        store.PutVirtualDir(root + "/v", "/srv/v");
        store.Put(root + "/v/x.css", TestStore::Entry(1, 1000, 255));
        store.Put(root + "/dir/page.htm", TestStore::Entry(2, 1000, 500));
        auto several = TestStore::Entry(3, 0, 0);
        store.Put(root + "/list.htm", several);
        for (const char* query : {"000000000001", "000000000002", "000000000003"})
            store.Put(root + "/list.htm/" + query, TestStore::Variant(100, 10));
    }

    QString LabelText(const char* name)
    {
        QTest::qWait(60);  // the status text follows at its own pace
        return window->findChild<QLabel*>(QLatin1String(name))->text();
    }

    void Trigger(const char* name) { window->findChild<QAction*>(QLatin1String(name))->trigger(); }
    std::string TreeText() const { return Shown(*window->trvFiles->model()); }

    TestStore store;
    ScriptedBoxes boxes;
    ScriptedPump pump;
    QtScreenPointer pointer;
    ScriptedOutside outside;
    std::unique_ptr<RegistryStore> registry;
    std::optional<ProcessState> state;
    std::unique_ptr<frmMain> window;
};
