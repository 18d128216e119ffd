#pragma once

#include <vector>

class QPagedPaintDevice;
class QTextDocument;

// A page of a document that is laid out without any, in the layout's units.
struct ReportPage {
    double top = 0;
    double bottom = 0;
    // The header row of the table that goes on from the page before, to be drawn above; empty = none.
    double headTop = 0;
    double headBottom = 0;

    double Height() const { return headBottom - headTop + bottom - top; }
};

// Where to break it: rows of tables and pictures stay whole, titles stay with what they are of. A page is
// higher than asked for where one of those is.
std::vector<ReportPage> PagesOf(const QTextDocument& document, double height);

// Lays the document out for the device and draws it there, with page numbers.
void DrawPages(QPagedPaintDevice& device, QTextDocument& document);
