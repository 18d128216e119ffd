#include "export/ReportPages.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

namespace {

constexpr double kFooterLines = 2;  // height of what a page number takes
constexpr double kHalfLine = 0.5;   // of a table, in units of 1/96 inch; it lies on the edges of rows
constexpr double kUnitsPerInch = 96;

// What stays whole.
struct Strip {
    double top = 0;
    double bottom = 0;
    bool isTitle = false;
    bool isRow = false;
    bool isKept = false;  // on one page with the next one
    double headTop = 0, headBottom = 0;
};

// What the cells of a row hold, without the room around it.
QRectF TextOfRow(const QTextTable& table, int row)
{
    const auto* const layout = table.document()->documentLayout();
    QRectF text;
    for (int column = 0; column < table.columns(); ++column)
        text |= layout->blockBoundingRect(table.cellAt(row, column).firstCursorPosition().block());
    return text;
}

// The layout tells no rows: their edges are halfway between the texts.
std::vector<double> EdgesOf(const QTextTable& table)
{
    std::vector<QRectF> texts;
    texts.reserve(static_cast<std::size_t>(table.rows()));
    for (int row = 0; row < table.rows(); ++row) texts.push_back(TextOfRow(table, row));
    const double room =
        texts.size() > 1 ? (texts[1].top() - texts[0].bottom()) / 2 : table.format().cellPadding();
    std::vector<double> edges{texts.front().top() - room};
    for (std::size_t row = 1; row < texts.size(); ++row)
        edges.push_back((texts[row - 1].bottom() + texts[row].top()) / 2);
    edges.push_back(texts.back().bottom() + room);
    return edges;
}

void AddRows(std::vector<Strip>& strips, const QTextTable& table)
{
    const auto edges = EdgesOf(table);
    const auto heads = static_cast<std::size_t>(table.format().headerRowCount());
    for (std::size_t row = 0; row + 1 < edges.size(); ++row) {
        Strip strip{edges[row], edges[row + 1], false, true};
        strip.isKept = row < heads;
        if (row >= heads) {
            strip.headTop = edges[0];
            strip.headBottom = edges[heads];
        }
        strips.push_back(strip);
    }
}

std::vector<Strip> StripsOf(const QTextDocument& document)
{
    std::vector<Strip> strips;
    const auto* const root = document.rootFrame();
    for (auto part = root->begin(); !part.atEnd(); ++part) {
        if (const auto* const table = qobject_cast<const QTextTable*>(part.currentFrame())) {
            AddRows(strips, *table);
        } else if (const auto block = part.currentBlock(); block.isValid() && block.length() > 1) {
            const auto place = document.documentLayout()->blockBoundingRect(block);
            strips.push_back({place.top(), place.bottom(), block.blockFormat().headingLevel() > 0});
        }
    }
    for (std::size_t i = 0; i + 1 < strips.size(); ++i)
        if (!strips[i].isRow) strips[i].isKept = strips[i].isTitle || !strips[i + 1].isTitle;
    if (!strips.empty()) strips.back().isKept = false;
    return strips;
}

class PagePainter {
public:
    PagePainter(QPagedPaintDevice& device, QTextDocument& document)
        : m_layout(*document.documentLayout()),
          m_painter(&device),
          m_page(0, 0, device.width(), device.height()),
          m_halfLine(kHalfLine * device.logicalDpiY() / kUnitsPerInch)
    {
        m_painter.setFont(document.defaultFont());
        m_painter.setLayoutDirection(document.defaultTextOption().textDirection());
        m_context.palette.setColor(QPalette::Text, Qt::black);
    }

    void Draw(const ReportPage& page, std::size_t number)
    {
        DrawPart(0, page.headTop, page.headBottom);
        DrawPart(page.headBottom - page.headTop, page.top, page.bottom);
        m_painter.drawText(m_page, Qt::AlignRight | Qt::AlignBottom, QString::number(number));
    }

private:
    void DrawPart(double at, double top, double bottom)
    {
        if (top >= bottom) return;
        m_painter.save();
        m_painter.translate(0, at - top);
        m_context.clip = QRectF(0, top, m_page.width(), bottom - top)
                             .adjusted(-m_halfLine, -m_halfLine, m_halfLine, m_halfLine);
        m_painter.setClipRect(m_context.clip);
        m_layout.draw(&m_painter, m_context);
        m_painter.restore();
    }

    QAbstractTextDocumentLayout& m_layout;
    QPainter m_painter;
    QRectF m_page;
    double m_halfLine;
    QAbstractTextDocumentLayout::PaintContext m_context;
};

}  // namespace

std::vector<ReportPage> PagesOf(const QTextDocument& document, double height)
{
    const auto strips = StripsOf(document);
    std::vector<ReportPage> pages;
    for (std::size_t first = 0, last = 0; first < strips.size(); first = ++last) {
        while (strips[last].isKept) ++last;
        if (strips[last].bottom - strips[first].top > height) last = first;  // cannot all be kept
        auto page = pages.empty() ? ReportPage() : pages.back();
        page.bottom = strips[last].bottom;
        if (!pages.empty() && page.Height() <= height) {
            pages.back() = page;
        } else {
            const auto& start = strips[first];
            pages.push_back({start.top, strips[last].bottom, start.headTop, start.headBottom});
        }
    }
    return pages;
}

void DrawPages(QPagedPaintDevice& device, QTextDocument& document)
{
    document.documentLayout()->setPaintDevice(&device);
    document.setTextWidth(device.width());
    const double footer = kFooterLines * QFontMetricsF(document.defaultFont(), &device).lineSpacing();
    const auto pages = PagesOf(document, device.height() - footer);
    PagePainter painter(device, document);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) device.newPage();
        painter.Draw(pages[i], i + 1);
    }
}
