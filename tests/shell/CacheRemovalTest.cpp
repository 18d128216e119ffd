#include "shell/WindowRig.h"

namespace {

constexpr const char* kQuestion =
    "This will delete all cache for this directory and all contained subdirectories\r\nProceed?";

class CacheRemovalTest : public WindowRig {
public:
    void SetUp() override { DisplayFilled(); }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        window->trvFiles->setFocus();
        QTest::keyClick(window->trvFiles, key, modifiers);
    }

    std::string Title() const { return window->Caption() + ": "; }
};

}  // namespace

TEST_F(CacheRemovalTest, AFileGoesWithoutAQuestionAndTheTotalsFollow)
{
    Select("1/Root/v/x.css");
    Press(Qt::Key_Delete);
    EXPECT_FALSE(IsCached("v/x.css"));
    EXPECT_FALSE(IndexOf("1/Root/v/x.css").isValid());
    EXPECT_TRUE(IndexOf("1/Root/v").isValid());
    EXPECT_EQ(state->contents.totals.Count, 2);
    EXPECT_DOUBLE_EQ(state->contents.totals.UncompressedSize, 1100);
    EXPECT_EQ(LabelText("lblCacheInfo(1)"), "2");

    // A URL with variants is one URL.
    Select("1/Root/list.htm");
    Press(Qt::Key_F8);
    EXPECT_FALSE(IsCached("list.htm/000000000001"));
    EXPECT_EQ(state->contents.totals.Count, 1);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(CacheRemovalTest, AFolderGoesAfterAYesAndTheTotalsStay)
{
    Select("1/Root/dir");
    boxes.answer = BoxAnswer::No;
    Press(Qt::Key_F8);
    EXPECT_EQ(boxes.shown, std::vector<std::string>{Title() + kQuestion});
    EXPECT_TRUE(IsCached("dir/page.htm") && IndexOf("1/Root/dir/page.htm").isValid());

    boxes.answer = BoxAnswer::Yes;
    Trigger("mnuPopUp_Remove");
    EXPECT_FALSE(IsCached("dir/page.htm"));
    EXPECT_EQ(state->contents.totals.Count, 3);
    EXPECT_EQ(TreeText().find("dir"), std::string::npos);
}

TEST_F(CacheRemovalTest, TheRootGoesWithEverythingButItself)
{
    Select("Root");
    Press(Qt::Key_Delete);
    EXPECT_FALSE(IsCached("v/x.css"));
    EXPECT_EQ(TreeText(), "Internet Information Services\n");
    EXPECT_EQ(state->contents.totals, FileInfo());
    EXPECT_EQ(state->contents.types.size(), 0U);
    EXPECT_EQ(LabelText("lblCacheInfo(1)"), "0");
    window->Rescan();
    EXPECT_EQ(TreeText(), "Internet Information Services\n Docs (nothing cached)\n Empty (nothing cached)\n");
}

TEST_F(CacheRemovalTest, TheFullCleanupLeavesTheTreeAsItIs)
{
    const auto before = TreeText();
    for (const auto answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        boxes.answer = answer;
        Press(Qt::Key_F8, Qt::ControlModifier);
        EXPECT_EQ(IsCached("v/x.css"), answer == BoxAnswer::No);
    }
    const auto question = Title() + "This will delete all Zentrel cache on this server\r\nProceed ?";
    EXPECT_EQ(boxes.shown, (std::vector<std::string>{question, question}));
    EXPECT_FALSE(IsCached("list.htm"));
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(state->contents.totals.Count, 3);
}

TEST_F(CacheRemovalTest, AFailureIsToldAndChangesNothing)
{
    ASSERT_TRUE(state->cache.DeleteEntry("/LM/W3SVC/1/Root/v/x.css"));
    Select("1/Root/v/x.css");
    const auto before = TreeText();
    Press(Qt::Key_Delete);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_TRUE(boxes.shown[0].starts_with("Zentrel Quillet: Cannot delete cache entry\r\n(Error 2 - "))
        << boxes.shown[0];
    EXPECT_EQ(TreeText(), before);
    EXPECT_EQ(state->contents.totals.Count, 3);
}

TEST_F(CacheRemovalTest, WhatTheUserDoesWhileAQuestionStandsDoesNoHarm)
{
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
    EXPECT_TRUE(IsCached("dir/page.htm") && IsCached("v/x.css"));

    boxes.onShow = [this] { window->close(); };
    window->RemoveNodeCache();
    EXPECT_TRUE(window->IsUnloaded());
}

TEST_F(CacheRemovalTest, KeysActOnTheTreeAloneAndOnce)
{
    Select("1/Root/v/x.css");
    QTest::keyClick(Find("lstFileTypes"), Qt::Key_Delete);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window->trvFiles, &held);
    EXPECT_TRUE(IsCached("v/x.css"));

    // Pressed again while the server deletes.
    QCoreApplication::postEvent(window->trvFiles,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier));
    pump.isLive = true;
    window->RemoveNodeCache();
    EXPECT_FALSE(IsCached("v/x.css"));
    QCoreApplication::processEvents();
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(state->contents.totals.Count, 2);
}
