#include "controls/PlainText.h"

#include "controls/PlainLabel.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>
#include <string>

namespace {

TEST(PlainText, ShowsWhatCannotHarm)
{
    const struct {
        std::string bytes;
        const char16_t* shown;
    } cases[] = {
        {"", u""},
        {" Zentrel v1.0   ", u" Zentrel v1.0   "},
        {"<b>&amp;</b>", u"<b>&amp;</b>"},
        {"Größe 日本 \xF0\x9F\x98\x80", u"Größe 日本 \U0001F600"},
        {"a\tb\r\nc\x1B[2J\x7F", u"a\u2409b\u240D\u240Ac\u241B[2J\u2421"},
        {std::string("x\0y", 3), u"x\u2400y"},
        {"\xC2\x85|\xE2\x80\xA8|", u"\uFFFD|\uFFFD|"},
        {"exe.\xE2\x80\xAEgpj \xE2\x81\xA6\xE2\x81\xA9\xE2\x80\x8F\xD8\x9C",
         u"exe.\uFFFDgpj \uFFFD\uFFFD\uFFFD\uFFFD"},
        {"a\xFF\xC3|\xED\xA0\x80", u"a\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& one : cases) EXPECT_EQ(PlainText(one.bytes), QString::fromUtf16(one.shown)) << one.bytes;
}

TEST(PlainText, EndsWithAnEllipsisAfterAThousandCharacters)
{
    EXPECT_EQ(PlainText(std::string(1000, 'x')), QString(1000, u'x'));
    EXPECT_EQ(PlainText(std::string(1001, 'x')), QString(1000, u'x') + u'\u2026');
    std::string smileys;
    for (int i = 0; i < 5000; ++i) smileys += "\xF0\x9F\x98\x80";
    EXPECT_EQ(PlainText(smileys).size(), 2001);
    EXPECT_EQ(PlainText(std::string(50'000'000, '\n')).size(), 1001);
}

TEST(PlainLines, KeepsLineBreaksAlone)
{
    EXPECT_EQ(PlainLines("one\r\ntwo\n\n<i>\rx"), QString::fromUtf16(u"one\ntwo\n\n<i>\u240Dx"));
    EXPECT_EQ(PlainLines(""), QString());
    EXPECT_EQ(PlainLines(std::string(39, '\n')), QString(39, u'\n'));
    EXPECT_EQ(PlainLines(std::string(1'000'000, '\n')), QString(40, u'\n') + u'\u2026');
}

TEST(PlainLabel, BlanksInFrontAreAGapOnTheSideWhereTheTextBegins)
{
    PlainLabel label(u"label"_qs, u"meaning"_qs, nullptr);
    label.ShowText("   H");
    label.resize(100, 20);
    const int gap = label.fontMetrics().horizontalAdvance(u"   "_qs);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        label.setLayoutDirection(direction);
        const auto drawn = label.grab().toImage();
        int first = drawn.width(), last = -1;
        for (int x = 0; x < drawn.width(); ++x) {
            for (int y = 0; y < drawn.height(); ++y) {
                if (drawn.pixel(x, y) == drawn.pixel(50, 0)) continue;
                first = std::min(first, x);
                last = x;
            }
        }
        const int before = direction == Qt::LeftToRight ? first : drawn.width() - 1 - last;
        EXPECT_NEAR(before, gap, 3) << direction;
    }
}

}  // namespace
