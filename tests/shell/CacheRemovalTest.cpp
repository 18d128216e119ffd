#include "shell/WindowRig.h"

#include <QAction>
#include <QLabel>
#include <QTest>

namespace {

constexpr const char* kQuestion =
    "This will delete all cache for this directory and all contained subdirectories\r\nProceed?";

class CacheRemovalTest : public WindowRig {
public:
    void SetUp() override
    {
        FillStore();
        Open(store.Folder());
        window->Display();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        boxes.shown.clear();
    }

    void Select(const char* key)
    {
        const auto node = state->contents.tree.Find(key);
        ASSERT_NE(node, kNoNode) << key;
        const auto& model = static_cast<const CacheTreeModel&>(*window->trvFiles->model());
        window->trvFiles->setCurrentIndex(model.IndexOf(node));
    }

    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        window->trvFiles->setFocus();
        QTest::keyClick(window->trvFiles, static_cast<Qt::Key>(key), modifiers);
    }

    bool HasKey(const char* key)
    {
        zentrel::CacheAdmin cache(state->transport);
        EXPECT_TRUE(cache.Connect("here"));
        return cache.OpenKey(std::string("/LM/W3SVC/") + key).has_value();
    }

    std::string Title() const { return window->Caption() + ": "; }
    std::string Cell(int row)
    {
        return window->findChild<QLabel*>(QStringLiteral("lblCacheInfo(%1)").arg(row))->text().toStdString();
    }
};

}  // namespace

TEST_F(CacheRemovalTest, AFileGoesWithoutAQuestionAndTheTotalsFollow)
{
    Select("1/Root/v/x.css");
    Press(Qt::Key_Delete);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(HasKey("1/Root/v/x.css"));
    EXPECT_EQ(state->contents.tree.Find("1/Root/v/x.css"), kNoNode);
    EXPECT_NE(state->contents.tree.Find("1/Root/v"), kNoNode);
    EXPECT_EQ(state->contents.totals.Count, 2);
    EXPECT_DOUBLE_EQ(state->contents.totals.UncompressedSize, 1100);
    EXPECT_EQ(Cell(1), "2");

    // A URL with variants is one URL.
    Select("1/Root/list.htm");
    Press(Qt::Key_F8);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_FALSE(HasKey("1/Root/list.htm/000000000001"));
    EXPECT_EQ(state->contents.totals.Count, 1);
}

TEST_F(CacheRemovalTest, AFolderGoesAfterAYesAndTheTotalsStay)
{
    Select("1/Root/dir");
    boxes.answer = BoxAnswer::No;
    Press(Qt::Key_F8);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{Title() + kQuestion});
    EXPECT_TRUE(HasKey("1/Root/dir/page.htm"));
    EXPECT_NE(state->contents.tree.Find("1/Root/dir/page.htm"), kNoNode);

    boxes.answer = BoxAnswer::Yes;
    Trigger("mnuPopUp_Remove");
    EXPECT_FALSE(HasKey("1/Root/dir/page.htm"));
    EXPECT_EQ(state->contents.tree.Find("1/Root/dir"), kNoNode);
    EXPECT_EQ(state->contents.totals.Count, 3);
    EXPECT_EQ(TreeText().find("dir"), std::string::npos);
}

TEST_F(CacheRemovalTest, TheRootGoesWithEverythingButItself)
{
    Select("Root");
    boxes.answer = BoxAnswer::Yes;
    Press(Qt::Key_Delete);
    EXPECT_FALSE(HasKey("1/Root/v/x.css"));
    EXPECT_EQ(TreeText(), "Internet Information Services\n");
    EXPECT_EQ(state->contents.totals, FileInfo());
    EXPECT_EQ(state->contents.types.size(), 0U);
    EXPECT_EQ(Cell(1), "0");
    window->Rescan();
    EXPECT_EQ(TreeText(), "Internet Information Services\n Docs (nothing cached)\n Empty (nothing cached)\n");
}

TEST_F(CacheRemovalTest, TheFullCleanupLeavesTheTreeAsItIs)
{
    Select("1/Root/v/x.css");
    const auto before = TreeText();
    boxes.answer = BoxAnswer::No;
    QTest::keyClick(window->trvFiles, Qt::Key_F8, Qt::ControlModifier);
    EXPECT_TRUE(HasKey("1/Root/v/x.css"));
    boxes.answer = BoxAnswer::Yes;
    QTest::keyClick(window->trvFiles, Qt::Key_F8, Qt::ControlModifier);
    const auto question = Title() + "This will delete all Zentrel cache on this server\r\nProceed ?";
    EXPECT_EQ(boxes.shown, (std::vector<std::string>{question, question}));
    EXPECT_FALSE(HasKey("1/Root/v/x.css"));
    EXPECT_FALSE(HasKey("1/Root/list.htm"));
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(state->contents.totals.Count, 3);
}

TEST_F(CacheRemovalTest, AFailureIsToldAndChangesNothing)
{
    zentrel::CacheAdmin other(state->transport);
    ASSERT_TRUE(other.Connect("here"));
    ASSERT_TRUE(other.DeleteEntry("/LM/W3SVC/1/Root/v/x.css"));
    Select("1/Root/v/x.css");
    const auto before = TreeText();
    Press(Qt::Key_Delete);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].rfind("Zentrel Quillet: Cannot delete cache entry\r\n(Error 2 - ", 0), 0U)
        << boxes.shown[0];
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(state->contents.totals.Count, 3);
}

TEST_F(CacheRemovalTest, WhatTheUserDoesWhileAQuestionStandsDoesNoHarm)
{
    boxes.answer = BoxAnswer::Yes;
    Select("1/Root/dir");
    boxes.onShow = [this] {
        window->RemoveNodeCache();
        window->Rescan();
        window->RefreshFileNode();
        window->ConnectToServer();
        Select("1/Root/v");
    };
    window->RemoveNodeCache();
    EXPECT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(HasKey("1/Root/dir/page.htm"));
    EXPECT_TRUE(HasKey("1/Root/v/x.css"));

    boxes.onShow = [this] { window->close(); };
    window->RemoveNodeCache();
    EXPECT_TRUE(window->IsUnloaded());
}

TEST_F(CacheRemovalTest, KeysActOnTheTreeAloneAndOnce)
{
    Select("1/Root/v/x.css");
    QTest::keyClick(window->findChild<QWidget*>("lstFileTypes"), Qt::Key_Delete);
    EXPECT_TRUE(HasKey("1/Root/v/x.css"));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window->trvFiles, &held);
    EXPECT_TRUE(HasKey("1/Root/v/x.css"));
    pump.onRun = [this](int) {
        window->RemoveNodeCache();
        window->CleanCache();
    };
    window->Rescan();  // deleting while it runs
    pump.onRun = nullptr;
    EXPECT_TRUE(HasKey("1/Root/v/x.css"));
}
