#pragma once

#include "export/CacheReport.h"
#include "format/FormatLocale.h"

#include <QFont>
#include <QImage>
#include <QPalette>
#include <QTextDocument>

// How a report is drawn where it is not a page for a browser.
struct ReportLook {
    QPalette palette;
    QFont font;
    double pixelRatio = 1;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

// The report with its chart as a document for a view or for paper. It loads nothing from anywhere.
class ReportDocument : public QTextDocument {
    Q_OBJECT

public:
    explicit ReportDocument(QObject* parent = nullptr) : QTextDocument(parent) {}

    void Show(const CacheReport& report, const FormatLocale& locale, const ReportLook& look);

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    void MirrorTables();

    QImage m_chart;
};
