#include "export/frmReport.h"

#include "controls/PlainText.h"
#include "export/ReportDocument.h"
#include "export/ReportFile.h"
#include "export/ReportHtml.h"
#include "export/ReportTables.h"
#include "export/ReportText.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr double kMostOfScreen = 0.85;
constexpr int kMostOfName = 64;  // of the server's, in the name of a file
constexpr int kBetweenPolls = 30;
constexpr int kMargin = 12;
// In characters and lines:
constexpr int kUsualWidth = 120;
constexpr int kUsualHeight = 44;

QString WithoutUnseen(QString text)
{
    return text.removeIf([](QChar c) { return QStringView(kUnseen).contains(c); });
}

// Keeps margins beside the document, and hands on texts as the server sent them.
class ReportView : public QTextBrowser {
public:
    explicit ReportView(QWidget* parent) : QTextBrowser(parent)
    {
        setViewportMargins(kMargin, 0, kMargin, 0);
        setBackgroundRole(QPalette::Base);
        setAutoFillBackground(true);
    }

protected:
    QMimeData* createMimeDataFromSelection() const override
    {
        auto* const copied = new QMimeData;
        copied->setText(WithoutUnseen(textCursor().selection().toPlainText()));
        copied->setHtml(WithoutUnseen(textCursor().selection().toHtml()));
        return copied;
    }
};

}  // namespace

// What the window shares with the thread that makes the report.
struct frmReport::Work {
    std::unique_ptr<CacheSnapshot> snapshot;
    std::atomic<bool> isCancelled = false;
};

frmReport::frmReport(ReportHost host, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_host(std::move(host)),
      m_text(new ReportView(this)),
      m_document(new ReportDocument(m_text)),
      m_state(new QLabel(this)),
      m_notice(tr("Nothing was scanned yet."))
{
    setObjectName(QStringLiteral("frmReport"));
    setWindowTitle(tr("Zentrel Cache Report"));
    setAttribute(Qt::WA_QuitOnClose, false);
    m_text->setObjectName(QStringLiteral("Text1"));
    m_text->setAccessibleName(tr("Report"));
    m_text->setOpenLinks(false);
    m_text->setDocument(m_document);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_state->setObjectName(QStringLiteral("lblState"));
    m_state->setTextFormat(Qt::PlainText);

    auto* const row = new QHBoxLayout;
    m_save = AddButton(row, "cmdSave", tr("&Save As..."), &frmReport::SaveAs);
    m_save->setToolTip(QKeySequence(QKeySequence::Save).toString(QKeySequence::NativeText));
    m_copy = AddButton(row, "cmdCopy", tr("&Copy"), &frmReport::CopyReport);
    m_refresh = AddButton(row, "cmdRefresh", tr("&Refresh"), &frmReport::GenerateReport);
    row->addWidget(m_state, 1);
    AddButton(row, "cmdClose", tr("C&lose"), &frmReport::CloseWindow);
    auto* const all = new QVBoxLayout(this);
    all->addLayout(row);
    all->addWidget(m_text, 1);
    const QSize usual(kUsualWidth * fontMetrics().averageCharWidth(),
                      kUsualHeight * fontMetrics().lineSpacing());
    resize(usual.boundedTo(screen()->availableSize() * kMostOfScreen));
    m_timer.setInterval(kBetweenPolls);
    connect(&m_timer, &QTimer::timeout, this, &frmReport::Poll);
    ShowState();
}

frmReport::~frmReport()
{
    Cancel();
    while (m_job && !m_job->Wait(std::chrono::seconds(1))) {
    }
}

QPushButton* frmReport::AddButton(QLayout* row, const char* name, const QString& caption,
                                  void (frmReport::*click)())
{
    auto* const button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, click);
    row->addWidget(button);
    return button;
}

// ---- making the report

void frmReport::Open()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    m_text->setFocus();
    GenerateReport();
}

void frmReport::GenerateReport()
{
    if (IsBusy()) return;
    if (m_host.isScanning && m_host.isScanning())
        return m_state->setText(tr("The cache is being read. Refresh when that is done."));
    m_work = std::make_shared<Work>();
    m_work->snapshot = m_host.snapshot();
    if (m_work->snapshot == nullptr || m_work->snapshot->ScannedAt() == DateTime()) {
        m_work.reset();
        m_report.reset();
        m_notice = tr("Nothing was scanned yet.");
        return ShowState();
    }
    m_job.emplace([work = m_work]() -> Result<CacheReport> {
        const auto snapshot = std::move(work->snapshot);  // not read any more when this is done
        ReportOptions options;
        options.isCancelled = [&work = *work] { return work.isCancelled.load(); };
        return ::GenerateReport(*snapshot, options);
    });
    m_notice.clear();
    m_timer.start();
    ShowState();
    Q_EMIT BusyChanged(true);
}

void frmReport::Poll()
{
    if (!m_job || !m_job->IsDone()) return;
    m_timer.stop();
    auto made = m_job->Take();
    m_job.reset();
    m_work.reset();
    const bool isCancelled = !made && made.error().Is(Code::Cancelled);
    if (made) {
        m_report = std::make_shared<const CacheReport>(std::move(*made));
    } else if (!isCancelled) {
        m_report.reset();
        m_notice = tr("The report cannot be made.") + u'\n' + PlainLines(made.error().description);
    }
    const QPointer<frmReport> alive(this);
    ShowDocument();
    Q_EMIT BusyChanged(false);
    if (!alive || made) return;
    if (!isCancelled)
        m_host.boxes.Show(m_notice.toStdString(), BoxStyle::Exclamation, windowTitle().toStdString());
    else if (isVisible())
        GenerateReport();  // the window was closed, and opened again before that was noticed
}

void frmReport::Cancel()
{
    if (m_work) m_work->isCancelled = true;
}

// ---- what is shown

void frmReport::ShowState()
{
    m_state->setText(IsBusy() ? tr("The report is being made...") : QString());
    m_refresh->setEnabled(!IsBusy());
    m_save->setEnabled(m_report != nullptr);
    m_copy->setEnabled(m_report != nullptr);
    if (m_report == nullptr) m_document->setPlainText(m_notice);
}

void frmReport::ShowDocument()
{
    if (m_report != nullptr) {
        const int place = m_text->verticalScrollBar()->value();
        m_document->Show(*m_report, m_host.locale,
                         {palette(), font(), devicePixelRatioF(), layoutDirection()});
        m_text->verticalScrollBar()->setValue(place);
    }
    ShowState();
}

void frmReport::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const auto type = event->type();
    const bool isLook =
        type == QEvent::PaletteChange || type == QEvent::FontChange || type == QEvent::LayoutDirectionChange;
    if (isLook && m_report != nullptr) ShowDocument();
}

void frmReport::closeEvent(QCloseEvent* event)
{
    Cancel();
    event->accept();
}

void frmReport::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel)) {
        close();
    } else if (event->matches(QKeySequence::Save)) {
        m_save->click();
    } else if (event->matches(QKeySequence::Refresh)) {
        m_refresh->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

// ---- handing it on

void frmReport::CopyReport()
{
    auto* const copied = new QMimeData;
    copied->setText(QString::fromStdString(ReportText(*m_report, m_host.locale)));
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    copied->setHtml(QString::fromStdString(ReportHtml(*m_report, m_host.locale, isRightToLeft)));
    QGuiApplication::clipboard()->setMimeData(copied);
}

QString frmReport::ProposedName() const
{
    auto name = QStringLiteral("report-%1-%2")
                    .arg(PlainText(m_report->server).left(kMostOfName),
                         QString::fromStdString(IsoText(m_report->scannedAt).value_or("")));
    for (auto& c : name)
        if (!c.isLetterOrNumber() && c != u'-' && c != u'_' && c != u'.') c = u'-';
    return name + QStringLiteral(".html");
}

QString frmReport::AskFileName(const QString& proposed)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(this, tr("Save Report"));
    dialog->setObjectName(QStringLiteral("dlgSaveReport"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    const QStringList suffixes{QStringLiteral("html"), QStringLiteral("pdf"), QStringLiteral("csv"),
                               QStringLiteral("json")};
    const QStringList filters{tr("Web page (*.html)"), tr("PDF document (*.pdf)"),
                              tr("Comma separated values (*.csv)"), tr("JSON data (*.json)")};
    dialog->setNameFilters(filters);
    dialog->setDefaultSuffix(suffixes.first());
    dialog->selectFile(proposed);
    // A chosen filter gives the name its suffix, also when it had that of another one.
    connect(dialog, &QFileDialog::filterSelected, dialog, [=, box = dialog.data()](const QString& filter) {
        const auto suffix = suffixes.value(filters.indexOf(filter));
        box->setDefaultSuffix(suffix);
        const QFileInfo file(box->selectedFiles().value(0));
        if (ReportFormatOf(file.fileName())) box->selectFile(file.completeBaseName() + u'.' + suffix);
    });
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    if (!dialog) return {};
    dialog->deleteLater();
    return isChosen ? dialog->selectedFiles().value(0) : QString();
}

// What is saved is what was there when it was asked for. The window may be gone when the name is known.
void frmReport::SaveAs()
{
    const auto report = m_report;
    const auto ask = m_host.askFileName;
    const ReportSetting setting{m_host.locale, font(), layoutDirection() == Qt::RightToLeft};
    auto& boxes = m_host.boxes;
    const auto title = windowTitle().toStdString();
    const auto name = ask ? ask(ProposedName()) : AskFileName(ProposedName());
    if (name.isEmpty()) return;
    const auto format = ReportFormatOf(name);
    if (!format) {
        const auto text = tr("The name of a report ends in .html, .pdf, .csv or .json.");
        boxes.Show(text.toStdString(), BoxStyle::Exclamation, title);
        return;
    }
    const auto saved = SaveReport(name, *format, *report, setting);
    if (saved) return;
    const auto text = tr("The report cannot be saved as %1").arg(name) + u'\n' +
                      QString::fromStdString(saved.error().description);
    boxes.Show(text.toStdString(), BoxStyle::Exclamation, title);
}
