#include "controls/PaneWalk.h"
#include "controls/PropertyBag.h"
#include "controls/SplitterCore.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace {

class FakeSplitter;

// What stands for a control: never looked into as a window.
struct FakeControl {
    std::string name;
    FakeSplitter* splitter = nullptr;
    bool isTabStop = true;

    QWidget* Handle() { return reinterpret_cast<QWidget*>(this); }
    static FakeControl& Of(const QWidget* handle)
    {
        return *const_cast<FakeControl*>(reinterpret_cast<const FakeControl*>(handle));
    }
};

class FakeSplitter : public SplitterCore {
public:
    explicit FakeSplitter(std::vector<FakeControl*> controls = {}) : contained(std::move(controls)) {}
    ~FakeSplitter() override { End(); }

    using SplitterCore::Forget;
    using SplitterCore::Hidden;
    using SplitterCore::Shown;

    std::int64_t Width() const override { return width; }
    std::int64_t Height() const override { return height; }
    void SetOwnWidth(std::int64_t value) override { width = value; }
    void SetOwnHeight(std::int64_t value) override { height = value; }
    void Place(const SplitterLayout&) override
    {
        ++layouts;
        if (onPlace) onPlace();
    }
    void PlaceBar(const SplitterRect& rect) override { bar = rect; }
    void ApplyColors() override {}
    void ApplyCursor() override { ++cursors; }
    void RaiseBar() override { log += "raise "; }
    void TellSplitBegin() override { log += "begin "; }
    void TellSplitComplete() override { log += "complete " + std::to_string(layouts) + " "; }
    std::vector<QWidget*> ContainedControls() const override
    {
        std::vector<QWidget*> handles;
        for (auto* const control : contained) handles.push_back(control->Handle());
        return handles;
    }
    std::string ControlName(const QWidget* control) const override { return FakeControl::Of(control).name; }
    ::Panes* PanesOf(QWidget* control) const override
    {
        auto* const splitter = FakeControl::Of(control).splitter;
        return splitter ? &splitter->Panes() : nullptr;
    }
    bool TabStop(const QWidget* control) const override { return FakeControl::Of(control).isTabStop; }
    void SetTabStop(QWidget* control, bool isStop) override { FakeControl::Of(control).isTabStop = isStop; }
    QWidget* Placeholder(int index) const override { return labels[index - 1].Handle(); }
    void ShowPlaceholder(int index, bool isShown) override { shownLabels[index - 1] = isShown; }

    std::int64_t width = 1000;
    std::int64_t height = 600;
    int layouts = 0;
    int cursors = 0;
    SplitterRect bar;
    std::string log;
    std::function<void()> onPlace;
    std::vector<FakeControl*> contained;
    mutable FakeControl labels[2] = {{"lblFrame(1)"}, {"lblFrame(2)"}};
    bool shownLabels[2] = {};
};

// The window's own tree: main { left { files, panel0 }, info { right { panel2, panel1 }, panel3 } }.
struct Tree {
    FakeControl files{"trvFiles"}, panels[4] = {{"apPane(0)"}, {"apPane(1)"}, {"apPane(2)"}, {"apPane(3)"}};
    FakeSplitter left{{&files, &panels[0]}}, right{{&panels[1], &panels[2]}};
    FakeControl leftControl{"left", &left}, rightControl{"right", &right};
    FakeSplitter info{{&rightControl, &panels[3]}};
    FakeControl infoControl{"info", &info};
    FakeSplitter main{{&infoControl, &leftControl}};

    Tree()
    {
        Bind(left, files, panels[0]);
        Bind(right, panels[2], panels[1]);
        Bind(info, rightControl, panels[3]);
        Bind(main, leftControl, infoControl);
    }
    static void Bind(FakeSplitter& splitter, FakeControl& first, FakeControl& second)
    {
        EXPECT_TRUE(splitter.SetControls(1, first.Handle()));
        EXPECT_TRUE(splitter.SetControls(2, second.Handle()));
    }
    Pane* Find(FakeControl& control) { return main.Panes().FindChildControl(control.Handle()); }
    std::string Visible() const
    {
        std::string shown;
        for (const auto* const pane : VisibleLeaves(main.Panes()))
            shown += FakeControl::Of(pane->Control()).name.back();
        return shown + " " + std::to_string(main.VisiblePanes()) + std::to_string(left.VisiblePanes()) +
               std::to_string(info.VisiblePanes()) + std::to_string(right.VisiblePanes());
    }
};

TEST(SplitterCore, LimitsWhatIsSet)
{
    using Limits = std::numeric_limits<std::int32_t>;
    FakeSplitter splitter;
    const auto sized = [&](std::int32_t size, std::int64_t width) {
        splitter.width = width;
        splitter.SetSplitterSize(size);
        return splitter.SplitterSize();
    };
    EXPECT_EQ(sized(0, 1000), 1);
    EXPECT_EQ(sized(999, 1000), 999);
    EXPECT_EQ(sized(Limits::max(), 1000), 999);
    EXPECT_EQ(sized(60, 1), 1);
    EXPECT_EQ(sized(60, 0), 1);
    EXPECT_EQ(sized(50, 1000), 50);

    splitter.SetSplitterPosMin(120);
    EXPECT_EQ(splitter.SplitterPosMin(), 100);
    splitter.SetSplitterPosMin(Limits::min());
    splitter.SetSplitterPosMax(-5);
    EXPECT_EQ(splitter.SplitterPosMax(), 0);
    splitter.SetSplitterPosMax(Limits::max());
    EXPECT_EQ(splitter.SplitterPosMax(), 100);
    splitter.SetSplitterPosMin(40);
    EXPECT_EQ(splitter.SplitterPos(), 40);
    splitter.SetSplitterPos(Limits::min());
    EXPECT_EQ(splitter.SplitterPos(), 40);
    splitter.SetVisiblePanes(7);
    EXPECT_EQ(splitter.VisiblePanes(), 0);
}

TEST(SplitterCore, LaysOutAndMarksOnlyOnAChange)
{
    FakeSplitter splitter;
    splitter.SetSplitterPos(50);
    splitter.SetOrientation(0);
    EXPECT_EQ(splitter.layouts, 0);
    EXPECT_FALSE(splitter.IsChanged("SplitterPos"));
    splitter.SetOrientation(1);
    EXPECT_EQ(splitter.layouts, 1);
    EXPECT_EQ(splitter.cursors, 1);
    EXPECT_EQ(splitter.Panes().Item(2)->Key(), "Bottom");
    EXPECT_EQ(splitter.Panes().Item("Top"), splitter.Panes().Item(1));
    EXPECT_EQ(splitter.Panes().Item("Left"), nullptr);
    splitter.SetBackColor(255);
    splitter.SetSplitterColor(255);
    EXPECT_EQ(splitter.layouts, 1);
    splitter.SetSplitterPosMax(30);
    EXPECT_TRUE(splitter.IsChanged("SplitterPos")) << "the layout's limit marks it";
    splitter.onPlace = [&] { splitter.Refresh(); };
    splitter.Refresh();
    EXPECT_LT(splitter.layouts, 10) << "a control that always asks for a layout";
}

TEST(SplitterCore, DragsWithinLimitsAndGivesBack)
{
    FakeSplitter splitter;
    splitter.SetSplitterPosMin(20);
    splitter.Refresh();
    ASSERT_TRUE(splitter.BeginDrag());
    EXPECT_FALSE(splitter.BeginDrag());
    const int before = splitter.layouts;
    splitter.DragBy(-79);
    EXPECT_EQ(splitter.bar, (SplitterRect{396, 0, 50, 600}));
    EXPECT_NEAR(splitter.ExactPos(), 41.684, 0.001);
    EXPECT_EQ(splitter.SplitterPos(), 42);
    splitter.DragBy(-5000);
    EXPECT_EQ(splitter.bar.left, 190);
    EXPECT_EQ(splitter.layouts, before) << "the panes wait for the end";
    splitter.EndDrag();
    EXPECT_EQ(splitter.log, "raise begin complete " + std::to_string(before + 1) + " ");
    EXPECT_FALSE(splitter.IsChanged("SplitterPos"));

    ASSERT_TRUE(splitter.BeginDrag());
    splitter.DragBy(300);
    splitter.CancelDrag();
    EXPECT_EQ(splitter.SplitterPos(), 20);
    splitter.width = 50;
    ASSERT_TRUE(splitter.BeginDrag());
    splitter.DragBy(10);
    EXPECT_EQ(splitter.SplitterPos(), 20) << "without a free length there is no position";
    splitter.SetEnabled(false);
    EXPECT_FALSE(splitter.IsDragging());
    EXPECT_FALSE(splitter.BeginDrag());
}

TEST(SplitterCore, BindsContainedControlsOnly)
{
    FakeControl inside{"a"}, twin{"a"}, outside{"b"}, nameless;
    FakeSplitter splitter({&inside, &nameless});
    EXPECT_EQ(splitter.Controls(0).error().code, 9U);
    EXPECT_EQ(splitter.SetControls(3, nullptr).error().code, 9U);
    ASSERT_TRUE(splitter.SetLeftOrTopCtl(inside.Handle()));
    EXPECT_TRUE(splitter.IsChanged("LeftOrTopCtl"));
    const auto refused = splitter.SetLeftOrTopCtl(outside.Handle());
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, 0x800403E8U);
    EXPECT_EQ(refused.error().source, "Splitter Control");
    EXPECT_EQ(refused.error().description, "The control must be contained in the Splitter");
    EXPECT_EQ(*splitter.Controls(1), inside.Handle());

    splitter.Shown();
    EXPECT_EQ(splitter.Slot(2), splitter.labels[1].Handle());
    EXPECT_TRUE(splitter.shownLabels[1]);
    splitter.contained.push_back(&twin);
    splitter.Hidden();
    EXPECT_EQ(splitter.Slot(2), nullptr);
    EXPECT_FALSE(splitter.shownLabels[1]);
    splitter.Shown();
    EXPECT_EQ(splitter.Slot(1), twin.Handle()) << "of two with the name the last";
    splitter.Forget(twin.Handle());
    EXPECT_EQ(splitter.Slot(1), splitter.labels[0].Handle());
    EXPECT_TRUE(splitter.Panes().Item(1)->ControlName().empty());
}

TEST(SplitterCore, KeepsWhatDiffersFromTheDefaults)
{
    FakeControl files{"trvFiles"}, panel{"apPane(0)"};
    FakeSplitter splitter({&files, &panel});
    PropertyBag bag;
    splitter.Save(bag);
    EXPECT_EQ(bag.Count(), 0U);

    bag.WriteInt("Orientation", 1, 0);
    bag.WriteInt("SplitterPos", 10, 50);
    bag.WriteInt("SplitterPosMin", 40, 0);
    bag.WriteColor("BackColor", 0x80000005, 0);
    bag.WriteText("PaneControl(1)", "trvFiles", "");
    bag.WriteText("PaneControl(2)", "apPane(0)", "");
    splitter.Load(bag);
    EXPECT_EQ(splitter.SplitterPos(), 40);
    EXPECT_FALSE(splitter.IsChanged("Orientation"));
    EXPECT_TRUE(splitter.IsChanged("SplitterPos"));
    splitter.Shown();
    EXPECT_EQ(splitter.Slot(2), panel.Handle());

    PropertyBag saved;
    splitter.Save(saved);
    EXPECT_EQ(saved.Count(), 6U);
    EXPECT_EQ(saved.ReadFloat("SplitterPos", 0), 40);
    EXPECT_EQ(saved.ReadText("PaneControl(2)", ""), "apPane(0)");
}

TEST(Panes, ComeAndGoWithTheirSiblings)
{
    Tree tree;
    // The leaves' last letters, then VisiblePanes of main, left, info and right.
    EXPECT_EQ(tree.Visible(), "s)))) 0000");
    tree.Find(tree.panels[2])->SetEnabled(false);
    EXPECT_FALSE(tree.panels[2].isTabStop);
    EXPECT_EQ(tree.Visible(), "s))) 0002");
    tree.Find(tree.panels[1])->SetEnabled(false);
    EXPECT_EQ(tree.Visible(), "s)) 0022");
    tree.Find(tree.panels[3])->SetEnabled(false);
    EXPECT_EQ(tree.Visible(), "s) 1022");
    EXPECT_FALSE(tree.info.Panes().Enabled());
    tree.Find(tree.panels[2])->SetEnabled(true);
    EXPECT_EQ(tree.Visible(), "s)) 0011");
    EXPECT_TRUE(tree.panels[2].isTabStop);
    EXPECT_FALSE(tree.Find(tree.panels[3])->Visible());
}

TEST(Panes, FindTheirWayInTheTree)
{
    Tree tree;
    FakeControl stray;
    auto* const deep = tree.Find(tree.panels[1]);
    ASSERT_TRUE(deep);
    EXPECT_EQ(deep->Index(), 2);
    EXPECT_EQ(deep->Parent(), &tree.right.Panes());
    EXPECT_EQ(deep->ParentPane(), tree.info.Panes().Item(1));
    EXPECT_EQ(deep->TopPane(), tree.main.Panes().Item(2));
    EXPECT_EQ(deep->Sibling(), tree.Find(tree.panels[2]));
    EXPECT_EQ(deep->Splitter(), &tree.right);
    EXPECT_EQ(deep->FromControl(tree.panels[3].Handle()), tree.Find(tree.panels[3]));
    EXPECT_EQ(deep->FromControl(tree.files.Handle()), nullptr) << "below another top pane";
    EXPECT_EQ(tree.right.Panes().FromControl(tree.panels[3].Handle()), &tree.info.Panes());
    EXPECT_EQ(tree.main.Panes().FromControl(tree.panels[3].Handle()), nullptr);
    EXPECT_EQ(tree.Find(stray), nullptr);
    EXPECT_EQ(tree.main.Panes().TopPane(), nullptr);

    EXPECT_EQ(NextLeaf(tree.main.Panes(), deep, true), tree.Find(tree.panels[3]));
    EXPECT_EQ(NextLeaf(tree.main.Panes(), tree.Find(tree.files), false), tree.Find(tree.panels[3]));
    ASSERT_TRUE(tree.info.SetControls(1, nullptr));
    EXPECT_EQ(tree.Find(tree.panels[1]), nullptr);
    EXPECT_EQ(tree.right.Panes().Parent(), nullptr);
}

TEST(Panes, LoseALinkWithItsEnd)
{
    FakeControl leaf{"leaf"}, other{"other"};
    auto inner = std::make_unique<FakeSplitter>(std::vector<FakeControl*>{&leaf});
    FakeControl innerControl{"inner", inner.get()};
    auto outer = std::make_unique<FakeSplitter>(std::vector<FakeControl*>{&innerControl, &other});
    Tree::Bind(*outer, innerControl, other);
    EXPECT_EQ(outer->Panes().Item(1)->Child(), &inner->Panes());
    inner.reset();
    EXPECT_EQ(outer->Panes().Item(1)->Child(), nullptr);
    inner = std::make_unique<FakeSplitter>();
    innerControl.splitter = inner.get();
    outer->Forget(innerControl.Handle());
    ASSERT_TRUE(outer->SetControls(1, innerControl.Handle()));
    outer.reset();
    EXPECT_EQ(inner->Panes().Parent(), nullptr);
    EXPECT_EQ(inner->Panes().Count(), 0);
}

TEST(Panes, TakeTheRoomTheyAreGiven)
{
    Tree tree;
    auto* const files = tree.Find(tree.files);
    EXPECT_EQ(files->Width(), 475);
    EXPECT_EQ(files->SetWidth(-1).error().code, 5U);
    EXPECT_EQ(files->SetHeight(-1).error().source, "Splitter.Pane");
    ASSERT_TRUE(files->SetWidth(300));
    EXPECT_EQ(files->Width(), 300);
    EXPECT_FALSE(tree.left.IsChanged("SplitterPos"));
    ASSERT_TRUE(files->Sibling()->SetWidth(9999));
    EXPECT_EQ(files->Width(), 0);
    files->SetEnabled(false);
    ASSERT_TRUE(files->SetWidth(200));
    EXPECT_TRUE(files->Enabled());
    EXPECT_EQ(files->Width(), 200);

    tree.main.SetOrientation(1);
    ASSERT_TRUE(files->SetHeight(100)) << "across: the pane that the splitter lies in gets it";
    EXPECT_EQ(tree.main.Panes().Item(1)->Height(), 100);
    tree.left.width = 30;
    ASSERT_TRUE(files->SetWidth(10));
    EXPECT_EQ(files->Width(), 0) << "thinner than the bar: the position stays";
    ASSERT_TRUE(tree.main.Panes().Item(1)->SetWidth(700));
    EXPECT_EQ(tree.main.Panes().Width(), 700);
}

}  // namespace
