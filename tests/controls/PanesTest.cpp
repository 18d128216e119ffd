#include "controls/PaneWalk.h"
#include "controls/Splitter.h"

#include <gtest/gtest.h>

#include <QLineEdit>

namespace {

// The window's own tree: main { left { files, panel0 }, info { right { panel2, panel1 }, panel3 } }.
class PanesTest : public testing::Test {
protected:
    PanesTest()
    {
        main.resize(403, 203);
        Bind(*left, files, panels[0]);
        Bind(*right, panels[2], panels[1]);
        Bind(*info, right, panels[3]);
        Bind(main, left, info);
    }

    static void Bind(Splitter& splitter, QWidget* first, QWidget* second)
    {
        EXPECT_TRUE(splitter.SetControls(1, first) && splitter.SetControls(2, second));
    }
    Pane* Find(const QWidget* control) const { return main.Panes().FindChildControl(control); }

    // The visible leaves by their panel's number, "f" for the files; then VisiblePanes of all splitters.
    std::string Visible() const
    {
        std::string shown;
        for (const auto* const pane : VisibleLeaves(main.Panes()))
            shown += pane->Control()->objectName().toStdString();
        shown += ' ';
        for (const auto* const splitter : std::initializer_list<const Splitter*>{&main, left, info, right})
            shown += std::to_string(splitter->VisiblePanes());
        return shown;
    }

    static QLineEdit* Named(const QString& name, QWidget* parent)
    {
        auto* const edit = new QLineEdit(parent);
        edit->setObjectName(name);
        return edit;
    }

    Splitter main{u"main"_qs};
    Splitter* const left = new Splitter(u"left"_qs, &main);
    Splitter* const info = new Splitter(u"info"_qs, &main);
    Splitter* const right = new Splitter(u"right"_qs, info);
    QLineEdit* const files = Named(u"f"_qs, left);
    QLineEdit* const panels[4] = {Named(u"0"_qs, left), Named(u"1"_qs, right), Named(u"2"_qs, right),
                                  Named(u"3"_qs, info)};
};

TEST_F(PanesTest, ComeAndGoWithTheirSiblings)
{
    EXPECT_EQ(Visible(), "f0213 0000");
    Find(panels[2])->SetEnabled(false);
    EXPECT_FALSE(panels[2]->focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(Visible(), "f013 0002");
    Find(panels[1])->SetEnabled(false);
    EXPECT_EQ(Visible(), "f03 0022");
    Find(panels[3])->SetEnabled(false);
    EXPECT_EQ(Visible(), "f0 1022");
    EXPECT_FALSE(info->Panes().Enabled());
    Find(panels[2])->SetEnabled(true);
    EXPECT_EQ(Visible(), "f02 0011");
    EXPECT_TRUE(panels[2]->focusPolicy() & Qt::TabFocus);
    EXPECT_FALSE(Find(panels[3])->Visible());
}

}  // namespace
