#include "ops/frmFileInfo.h"

#include "controls/PlainText.h"
#include "format/FormatValue.h"

#include <QEvent>
#include <QGridLayout>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kWidth = 72;            // of the dialog at first, in average characters
constexpr int kActivationWait = 250;  // milliseconds; where windows are never activated, that is long enough

template <class Widget>
Widget* Named(Widget* widget, const char* name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}

// The title of a window; "[*]" in it would be taken for the place of a mark.
QString TitleText(const std::string& text)
{
    return PlainText(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace

// The dialog as its analysis knows it; it may be gone.
class frmFileInfo::Screen : public AnalysisScreen {
public:
    explicit Screen(frmFileInfo* dialog) : m_dialog(dialog) {}

    bool IsOpen() const override { return !m_dialog.isNull() && m_dialog->isVisible(); }
    void ShowStep(int step) override
    {
        if (m_dialog) m_dialog->ShowStep(step);
    }
    void ShowPart(double part) override
    {
        if (m_dialog) m_dialog->prgAnalysis->ShowPart(part);
    }
    void ShowLevel(int level, const LevelFigures& figures) override
    {
        if (m_dialog) m_dialog->ShowLevel(level, figures);
    }
    void ShowResults() override
    {
        if (m_dialog) m_dialog->ShowResults();
    }
    void HideSteps() override
    {
        if (m_dialog) m_dialog->ShowProgress(false);
    }

private:
    const QPointer<frmFileInfo> m_dialog;
};

frmFileInfo::frmFileInfo(const AnalysisHost& host, FormatLocale locale)
    : txtFilePath(Named(new QLineEdit(this), "txtFilePath")),
      txtLocation(Named(new QLineEdit(this), "txtLocation")),
      prgAnalysis(Named(new StepBar(kAnalysisSteps, this), "prgAnalysis")),
      lblAnalysis(Named(new QLabel(tr("Analysis:"), this), "lblAnalysis")),
      lblStep(Named(new QLabel(this), "lblStep")),
      lstLevels(Named(new LevelList(this), "lstLevels")),
      pltLevels(Named(new LevelPlot(locale, this), "pltLevels")),
      cmdCompr(Named(new QPushButton(tr("Compression &Analysis >>"), this), "cmdCompr")),
      cmdClose(Named(new QPushButton(tr("&Close"), this), "cmdClose")),
      m_host(host),
      m_locale(std::move(locale)),
      m_analysis(std::make_shared<Analysis>(host))
{
    setObjectName(QStringLiteral("frmFileInfo"));
    setModal(true);
    LayOut();
    connect(cmdCompr, &QPushButton::clicked, this, &frmFileInfo::cmdCompr_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

frmFileInfo::~frmFileInfo() = default;

// ---- how the controls are made

QGroupBox* frmFileInfo::BuildInformation()
{
    auto* const frame = Named(new QGroupBox(tr("File Information:")), "fraInfo");
    auto* const rows = new QGridLayout(frame);
    rows->setColumnStretch(1, 1);
    AddBox(rows, tr("File Path:"), txtFilePath);
    AddBox(rows, tr("Server Location:"), txtLocation);
    AddValue(rows, tr("Compression Level:"), FormatKind::Plain);
    AddValue(rows, tr("Compressed Size:"), FormatKind::Large);
    AddValue(rows, tr("Uncompressed Size:"), FormatKind::Large);
    AddValue(rows, tr("Current Ratio:"), FormatKind::Percent);
    AddValue(rows, tr("Total Hits:"), FormatKind::Plain);
    AddValue(rows, tr("Cache Hits:"), FormatKind::Plain);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    return frame;
}

void frmFileInfo::AddBox(QGridLayout* rows, const QString& caption, QLineEdit* box)
{
    box->setReadOnly(true);
    box->setAccessibleName(caption.chopped(1));
    const int row = rows->rowCount();
    rows->addWidget(new QLabel(caption), row, 0);
    rows->addWidget(box, row, 1);
}

void frmFileInfo::AddValue(QGridLayout* rows, const QString& caption, std::string_view kind)
{
    auto*& value = m_values.at(m_valueCount++);
    value = new PlainLabel(QStringLiteral("lblValue(%1)").arg(m_valueCount), caption.chopped(1));
    value->setProperty("Tag", PlainText(kind));
    auto* const label = new QLabel(caption);
    label->setObjectName(QStringLiteral("lblCaption(%1)").arg(m_valueCount));
    const int row = rows->rowCount();
    rows->addWidget(label, row, 0);
    rows->addWidget(value, row, 1);
}

QLayout* frmFileInfo::BuildProgress()
{
    auto* const row = new QHBoxLayout;
    row->addWidget(lblAnalysis);
    row->addWidget(prgAnalysis, 1);
    row->addWidget(lblStep);
    prgAnalysis->setAccessibleName(tr("Analysis"));
    lblStep->setTextFormat(Qt::PlainText);
    for (QWidget* const each : {static_cast<QWidget*>(lblAnalysis), static_cast<QWidget*>(prgAnalysis),
                                static_cast<QWidget*>(lblStep)}) {
        auto policy = each->sizePolicy();
        policy.setRetainSizeWhenHidden(true);  // nothing moves when they come and go
        each->setSizePolicy(policy);
    }
    return row;
}

QGroupBox* frmFileInfo::BuildResults()
{
    auto* const frame = Named(new QGroupBox, "fraCompr");
    auto* const explanation =
        Named(new QLabel(tr("&Resulting speed and sizes at various levels")), "lblResults");
    explanation->setBuddy(lstLevels);
    lstLevels->setAccessibleName(explanation->text().remove(u'&'));
    auto* const range = Named(new QLabel(tr("Compression (1 - Max Speed, 9 - Min Size)")), "lblRange");

    auto* const both = new QHBoxLayout;
    both->addWidget(lstLevels);
    both->addWidget(pltLevels, 1);
    auto* const all = new QVBoxLayout(frame);
    all->addWidget(explanation);
    all->addWidget(range);
    all->addLayout(both, 1);
    return frame;
}

void frmFileInfo::LayOut()
{
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(cmdCompr);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    cmdClose->setDefault(true);

    m_results = BuildResults();
    auto* const all = new QVBoxLayout(this);
    all->addWidget(BuildInformation());
    all->addLayout(BuildProgress());
    all->addLayout(buttons);
    all->addWidget(m_results, 1);
    all->addStretch();
    setTabOrder(txtLocation, cmdCompr);
    setTabOrder(cmdCompr, cmdClose);
    setTabOrder(cmdClose, lstLevels);
}

// ---- a showing

void frmFileInfo::ShowInfo(QWidget* owner, const std::optional<FileDetails>& file, bool analyse)
{
    if (!file || isVisible() || m_isAnalysing) return;
    Prepare(*file);
    m_analyseWhenShown = analyse;
    setParent(owner, windowFlags());
    // An owner that goes first must not take the dialog along, which has an owner of its own in the program.
    const auto left =
        owner == nullptr ? QMetaObject::Connection() : connect(owner, &QObject::destroyed, this, [this] {
            setParent(nullptr, windowFlags());
            reject();
        });
    const QPointer<frmFileInfo> self(this);
    exec();
    disconnect(left);
    if (self) setParent(nullptr, windowFlags());
}

void frmFileInfo::Prepare(const FileDetails& file)
{
    m_file = file;
    m_hasResults = false;
    setWindowTitle(TitleText(file.FileName));
    SetFileInfo(file);
    lstLevels->Fill(file.CompLevel, m_locale);
    pltLevels->Clear(file.CompLevel);
    m_results->setTitle(tr("Compression Analysis:"));
    m_results->hide();
    ShowProgress(false);
    cmdCompr->setEnabled(true);
    cmdClose->setFocus();
    layout()->activate();
    resize(kWidth * fontMetrics().averageCharWidth(), layout()->sizeHint().height());
}

void frmFileInfo::SetFileInfo(const FileDetails& file)
{
    const std::array<FormatInput, kValues> values{file.CompLevel, file.CompressedSize, file.UncompressedSize,
                                                  file.Ratio,     file.TotalHits,      file.CacheHits};
    txtFilePath->setText(PlainText(file.FilePath));
    txtLocation->setText(PlainText(file.PhysycalPath));
    for (auto* const box : {txtFilePath, txtLocation}) box->setCursorPosition(0);
    for (std::size_t i = 0; i < kValues; ++i) {
        const auto kind = m_values.at(i)->property("Tag").toString().toStdString();
        m_values.at(i)->ShowText(FormatValue(values.at(i), kind, m_locale));
    }
}

void frmFileInfo::ClearFileInfo()
{
    txtFilePath->clear();
    txtLocation->clear();
    for (auto* const value : m_values) value->ShowText({});
}

bool frmFileInfo::event(QEvent* event)
{
    const auto type = event->type();
    const bool isHandled = QDialog::event(event);
    // Events come already while the members before the flag are made.
    const bool isShown = type == QEvent::WindowActivate || type == QEvent::Show;
    if (!isShown || !m_analyseWhenShown) return isHandled;
    if (type == QEvent::WindowActivate)
        QMetaObject::invokeMethod(this, &frmFileInfo::AnalyseWhenShown, Qt::QueuedConnection);
    else
        QTimer::singleShot(kActivationWait, this, &frmFileInfo::AnalyseWhenShown);
    return isHandled;
}

void frmFileInfo::AnalyseWhenShown()
{
    if (!isVisible() || !std::exchange(m_analyseWhenShown, false)) return;
    const QPointer<frmFileInfo> self(this);
    m_host.pump.Visit();
    if (self) cmdCompr_Click();
}

// ---- the analysis

void frmFileInfo::cmdCompr_Click()
{
    if (m_isAnalysing || m_hasResults || !isVisible()) return;
    m_isAnalysing = true;
    const bool hadFocus = cmdCompr->hasFocus();
    cmdCompr->setEnabled(false);

    const QPointer<frmFileInfo> self(this);
    const auto analysis = m_analysis;
    const auto file = m_file;
    Screen screen(this);
    analysis->Run(file, screen);
    if (!self) return;
    m_isAnalysing = false;
    cmdCompr->setEnabled(!m_hasResults);
    if (hadFocus && !m_hasResults) cmdCompr->setFocus();
}

void frmFileInfo::ShowProgress(bool isShown)
{
    lblAnalysis->setVisible(isShown);
    prgAnalysis->setVisible(isShown);
    lblStep->setVisible(isShown);
}

void frmFileInfo::ShowStep(int step)
{
    prgAnalysis->ShowStep(step);
    lblStep->setText(tr("Step %1 of %2").arg(step).arg(kAnalysisSteps));
    ShowProgress(true);
}

void frmFileInfo::ShowLevel(int level, const LevelFigures& figures)
{
    lstLevels->ShowRow(RowOfLevel(level, figures, m_locale));
    if (level == m_file.CompLevel) lstLevels->ShowMarks();
    pltLevels->ShowLevel(level, figures);
}

void frmFileInfo::ShowResults()
{
    m_hasResults = true;
    const auto size = FormatValue(m_file.UncompressedSize, FormatKind::Large, m_locale);
    m_results->setTitle(tr("Compression Analysis (input: %1)").arg(PlainText(size)));
    const int before = m_results->isHidden() ? height() : 0;
    m_results->show();
    layout()->activate();
    resize(std::max(width(), minimumSizeHint().width()),
           before + m_results->sizeHint().height() + layout()->spacing());
    // It grew downwards: it moves up as far as it must to stay on the screen.
    const auto room = screen()->availableGeometry();
    if (frameGeometry().bottom() > room.bottom())
        move(x(), std::max(room.top(), y() - (frameGeometry().bottom() - room.bottom())));
}
