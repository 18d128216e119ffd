#include "cache/FileTypeList.h"

#include "Ink.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "controls/ActivePanel.h"
#include "controls/modSystemImageList.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTest>

namespace {

class FileTypeListTest : public testing::Test, protected ScreenPointer, protected MessagePump {
protected:
    FileTypeListTest()
    {
        panel.resize(400, 200);
        icons.AttachSystemImageList(list);
    }
    int Get() const override { return pointer; }
    void Set(int value) override { pointer = value; }
    void Run() override { busyRuns += pointer == Hourglass; }

    void Add(const std::string& extension, int count, double size)
    {
        auto& type = table.Find(extension);
        type.Count = count;
        type.CompressedSize = size;
        type.UncompressedSize = 4 * size;
    }

    QString Order() const
    {
        QString order;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            order += list.model()->index(row, 0).data().toString() + ' ';
        return order;
    }

    void ClickHeader(int column)
    {
        auto* const header = list.header();
        const QPoint at(header->sectionViewportPosition(column) + 5, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    }

    int pointer = Default, busyRuns = 0;
    FileTypeTable table;
    modSystemImageList icons;
    ActivePanel panel;
    FileTypeList list{panel, {*this, *this, icons}, FormatLocale{}};
};

TEST_F(FileTypeListTest, ShowsARowForEachTypeAndSorts)
{
    const QAbstractItemModelTester tester(list.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const auto& [extension, count, size] :
         {std::tuple("html", 9, 900.0), {"png", 10, 2048.0}, {"no-such", 100, 1e9}})
        Add(extension, count, size);
    list.FillFileTypes(table);
    panel.show();
    for (const QSize size : {QSize(1, 1), QSize(640, 480)}) {
        panel.resize(size);
        panel.grab();
        EXPECT_NEAR(list.width(), panel.Surface().width(), 1);
        EXPECT_NEAR(list.height(), std::max(0, panel.Surface().height() - 19), 1);
        EXPECT_GE(list.columnWidth(0), list.sizeHintForIndex(list.model()->index(0, 0)).width()) << "html";
    }
    EXPECT_FALSE(panel.AutoScroll() || panel.ShowScrollBars());
    QString captions;
    for (int column = 0; column < 5; ++column)
        captions += list.model()->headerData(column, Qt::Horizontal).toString() + '|';
    EXPECT_EQ(captions, "Ext|Count|Comp|Uncomp|Ratio (%)|");
    const auto icon = [&](int row) {
        return list.model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    const auto png = icons.SystemImageList(1)->Icon(icons.IconIndex(".png", 1)).cacheKey();
    EXPECT_EQ(icon(1), png);
    EXPECT_NE(icon(0), png);

    list.setCurrentIndex(list.model()->index(1, 0));
    ClickHeader(1);
    EXPECT_EQ(Order(), "html png no-such ");
    ClickHeader(1);
    EXPECT_EQ(Order(), "no-such png html ");
    ClickHeader(2);
    QTest::keyClick(&list, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(Order(), "html no-such png ");
    EXPECT_EQ(list.header()->sortIndicatorSection(), 0);
    EXPECT_EQ(icon(2), png) << "icons move with their rows";
    EXPECT_EQ(list.currentIndex().row(), 2);
    EXPECT_EQ(busyRuns, 4);
    EXPECT_EQ(pointer, Default);
    list.Clear();
    EXPECT_EQ(list.model()->rowCount(), 0);
    modSystemImageList::DetachSystemImageList(list);
}

TEST_F(FileTypeListTest, SizesRunAsTheyAreWrittenInEveryWindow)
{
    Add("htm", -1, 6257);
    list.FillFileTypes(table);
    panel.show();
    panel.grab();
    for (const int column : {1, 2, 4}) {
        QImage written[2];
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QGuiApplication::setLayoutDirection(direction);
            panel.grab();
            const auto cell = list.visualRect(list.model()->index(0, column));
            written[direction == Qt::RightToLeft] = Ink(list, cell.translated(list.viewport()->pos()));
        }
        EXPECT_GT(written[0].width(), 5);
        EXPECT_EQ(written[0], written[1]) << column;
    }
    EXPECT_EQ(list.model()->headerData(4, Qt::Horizontal).toString(), u"\u2066Ratio (%)\u2069");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(FileTypeListTest, TakesTenThousandTypes)
{
    for (int i = 0; i < 10'000; ++i) Add("t" + std::to_string(i * 7919 % 10'000), i % 977 + 1, 1.37 * i * i);
    panel.show();
    for (int column = -1; column < 5; ++column) {
        QElapsedTimer clock;
        clock.start();
        column < 0 ? list.FillFileTypes(table) : list.ColumnClick(column);
        panel.grab();
        EXPECT_LT(clock.elapsed(), 1000) << column;  // ten times what is meant, for slow and busy machines
    }
    EXPECT_EQ(list.model()->rowCount(), 10'000);
}

}  // namespace
