#pragma once

#include "shell/BoxStyles.h"
#include "shell/QtScreenPointer.h"
#include "shell/frmMain.h"
#include "support/KeptBoxes.h"
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

// Gives `answer` to every question.
class ScriptedBoxes : public KeptBoxes {
public:
    BoxAnswer Show(const std::string& text, BoxStyle style, const std::string& title) override
    {
        const auto ok = KeptBoxes::Show(text, style, title);
        if (onShow) onShow();
        return Asks(style) ? answer : ok;
    }

    BoxAnswer answer = BoxAnswer::Yes;
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

// The main window and what is around it.
class WindowHost {
public:
    // Opens with the settings that the last window saved in the hive. Unless a test says otherwise, it
    // connects to this machine at once and takes all sites.
    void Open(const std::shared_ptr<zentrel::Transport>& servers, const std::filesystem::path& hive)
    {
        Close();
        std::string trouble;
        registry = RegistryStore::Open(hive, {}, trouble);
        ASSERT_EQ(trouble, "");
        state.emplace(servers, servers, *registry);
        state->settings.RememberLastServer = false;
        state->first.emplace();
        window = std::make_unique<frmMain>(*state, Desktop{boxes, pump, pointer, outside, outside});
    }
    void Close()
    {
        window.reset();
        state.reset();
        registry.reset();
    }

    template <class Widget = QWidget>
    Widget* Find(const char* name) const
    {
        auto* const found = window->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    // Until the status text has followed, which it does at its own pace.
    static void Settle()
    {
        QTest::qWait(60);
        QCoreApplication::processEvents();  // on a busy machine the wait may be over before it looked
    }
    QString LabelText(const char* name) const
    {
        Settle();
        return Find<QLabel>(name)->text();
    }
    void Trigger(const char* name) const { Find<QAction>(name)->trigger(); }

    std::string TreeText() const { return Shown(*window->trvFiles->model()); }
    QModelIndex IndexOf(const char* key) const
    {
        const auto& model = static_cast<const CacheTreeModel&>(*window->trvFiles->model());
        return model.IndexOf(state->contents.tree.Find(key));
    }
    void Select(const char* key) const
    {
        ASSERT_TRUE(IndexOf(key).isValid()) << key;
        window->trvFiles->setCurrentIndex(IndexOf(key));
    }

    ScriptedBoxes boxes;
    ScriptedPump pump;
    QtScreenPointer pointer;
    ScriptedOutside outside;
    std::unique_ptr<RegistryStore> registry;
    std::optional<ProcessState> state;
    std::unique_ptr<frmMain> window;
};

// The main window over a real service; `store` is filled before Open.
class WindowRig : public testing::Test, public WindowHost {
public:
    ~WindowRig() override { Close(); }

    void Open(const std::filesystem::path& folder)
    {
        WindowHost::Open(std::make_shared<zentrel::EmbeddedTransport>(folder, "here"),
                         store.Folder() / "settings.hive");
    }
    void Open() { Open(store.Folder()); }

    // The window in front, with the sites of FillStore.
    void DisplayFilled()
    {
        FillStore();
        Open();
        window->Display();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    // Two sites: one with a folder, a virtual directory and a URL of three variants, and an empty one.
    void FillStore()
    {
        store.PutSite(1, "Docs");
        store.PutSite(2, "Empty");
        const auto root = zentrel::SiteRootKey(1);
        store.PutVirtualDir(root + "/v", "/srv/v");
        store.Put(root + "/v/x.css", TestStore::Entry(1, 1000, 255));
        store.Put(root + "/dir/page.htm", TestStore::Entry(2, 1000, 500));
        store.Put(root + "/list.htm", TestStore::Entry(3, 0, 0));
        for (const char* query : {"000000000001", "000000000002", "000000000003"})
            store.Put(root + "/list.htm/" + query, TestStore::Variant(100, 10));
    }

    bool IsCached(const std::string& path)  // in site 1, on the server
    {
        return state->cache.OpenKey(zentrel::SiteRootKey(1) + '/' + path).has_value();
    }

    TestStore store;
};
