#include "cache/FileTypeList.h"

#include "Ink.h"
#include "contracts/MessagePump.h"
#include "contracts/WaitCursor.h"
#include "controls/ActivePanel.h"
#include "controls/modSystemImageList.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
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
    panel.grab();
    list.setCurrentIndex(list.model()->index(1, 0));
    ClickHeader(1);
    EXPECT_EQ(Order(), "html png no-such ");
    QTest::keyClick(&list, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(Order(), "html no-such png ");
    EXPECT_EQ(list.header()->sortIndicatorSection(), 0);
    EXPECT_EQ(list.currentIndex().row(), 2);
    EXPECT_EQ(busyRuns, 2);
    EXPECT_EQ(pointer, Default);
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

}  // namespace
