#include "stats/CountersConsole.h"

#include "controls/PlainText.h"
#include "stats/CounterCsv.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QSaveFile>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double kMostOfScreen = 0.85;
constexpr int kMostOfName = 64;  // of the server's, in the name of a file

bool HasNone(const std::vector<double>& values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isnan(value); });
}

}  // namespace

CountersConsole::CountersConsole(CountersConsoleHost host, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_host(std::move(host)),
      m_feed(std::make_shared<CounterFeed>(m_host.library, m_host.list)),
      m_history(m_host.list.size()),
      m_interval(new QComboBox(this)),
      m_message(new QLabel(this)),
      m_state(new QLabel(this)),
      m_grid(new CounterChartGrid),
      m_pause(new QPushButton(tr("&Pause"), this)),
      m_copy(new QPushButton(tr("&Copy Values"), this)),
      m_save(new QPushButton(tr("&Save as CSV..."), this)),
      m_scroll(std::make_unique<QScrollArea>(this))
{
    setObjectName(QStringLiteral("CountersConsole"));
    setWindowTitle(tr("Zentrel Performance Counters"));
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CountersConsole::Sample);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(BuildControls());
    all->addWidget(m_message);
    all->addWidget(m_scroll.get(), 1);
    BuildCharts();
    const int frame = 2 * m_scroll->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize around(frame, frame + 2 * m_pause->sizeHint().height());
    resize((m_grid->sizeHint() + around).boundedTo(screen()->availableSize() * kMostOfScreen));
    ShowHistory();
}

// ---- how the controls are made

QLayout* CountersConsole::BuildControls()
{
    auto* const caption = new QLabel(tr("&Interval:"), this);
    caption->setBuddy(m_interval);
    m_interval->setObjectName(QStringLiteral("cboInterval"));
    for (const auto interval : CounterHistory::kIntervals)
        m_interval->addItem(interval == 1'000 ? tr("1 second") : tr("%1 seconds").arg(interval / 1'000),
                            QVariant::fromValue(interval));
    connect(m_interval, &QComboBox::currentIndexChanged, this, &CountersConsole::ChangeInterval);

    auto* const row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(m_interval);
    AddButton(row, m_pause, "cmdPause", &CountersConsole::TogglePause);
    AddButton(row, m_copy, "cmdCopyValues", &CountersConsole::CopyValues);
    AddButton(row, m_save, "cmdSaveCsv", &CountersConsole::SaveAsCsv);
    m_state->setObjectName(QStringLiteral("lblState"));
    m_state->setTextFormat(Qt::PlainText);
    row->addWidget(m_state);
    row->addStretch();
    AddButton(row, new QPushButton(tr("C&lose"), this), "cmdClose", &CountersConsole::CloseWindow);
    return row;
}

void CountersConsole::AddButton(QLayout* row, QPushButton* button, const char* name,
                                void (CountersConsole::*click)())
{
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, click);
    row->addWidget(button);
}

void CountersConsole::BuildCharts()
{
    m_message->setObjectName(QStringLiteral("lblMessage"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_grid->setObjectName(QStringLiteral("grdCharts"));
    for (std::size_t i = 0; i < m_feed->Rows().size(); ++i)
        m_grid->Add(new CounterChart(m_history, i, m_host.locale));
    m_scroll->setObjectName(QStringLiteral("scrCharts"));
    m_scroll->setWidget(m_grid);
    m_scroll->setWidgetResizable(true);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setMinimumWidth(m_grid->minimumSizeHint().width() + 2 * m_scroll->frameWidth() +
                              style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    m_scroll->setFocusPolicy(Qt::NoFocus);
}

// ---- coming up and going down

void CountersConsole::Open()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void CountersConsole::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous() || std::exchange(m_isOpen, true)) return;
    Schedule(0);
    ShowHistory();
}

void CountersConsole::closeEvent(QCloseEvent* event)
{
    m_isOpen = false;
    m_timer.stop();
    m_feed->Close();
    m_history.Break();
    for (auto* const dialog : findChildren<QDialog*>())
        dialog->reject();  // it would keep the program running
    event->accept();
}

void CountersConsole::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel)) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void CountersConsole::SetServer(std::optional<CounterServer> server)
{
    if (server && server->name != m_seen) {
        m_history.Clear();
        m_seen = server->name;
        setWindowTitle(tr("Zentrel Performance Counters - %1").arg(PlainText(m_seen)));
    }
    m_history.Break();
    m_trouble.clear();
    m_timer.stop();
    m_feed->SetServer(std::move(server));
    Schedule(0);
    ShowHistory();
}

// ---- reading

std::int64_t CountersConsole::Interval() const
{
    return m_interval->currentData().toLongLong();
}

void CountersConsole::Schedule(std::int64_t milliseconds)
{
    if (IsRunning()) m_timer.start(static_cast<int>(std::max<std::int64_t>(milliseconds, 0)));
}

void CountersConsole::ChangeInterval()
{
    m_history.Thin(Interval());
    Schedule(m_lastBegin + Interval() - m_host.now().tick);
    ShowHistory();
}

void CountersConsole::SetPaused(bool isPaused)
{
    if (isPaused == m_isPaused) return;
    m_isPaused = isPaused;
    m_pause->setText(isPaused ? tr("&Resume") : tr("&Pause"));
    m_history.Break();
    m_timer.stop();
    Schedule(0);
    ShowHistory();
}

// The interval counts from begin to begin; a server that takes that long leaves time for other things.
void CountersConsole::Sample()
{
    if (!IsRunning() || m_isSampling) return;
    m_isSampling = true;
    m_timer.stop();
    m_lastBegin = m_host.now().tick;
    const auto feed = m_feed;
    const QPointer<CountersConsole> alive(this);
    auto reading = feed->Read();
    if (!alive) return;
    m_isSampling = false;
    if (!IsRunning()) return;
    if (!reading.isCurrent) return Schedule(0);
    Take(std::move(reading));
    Schedule(std::max(m_lastBegin + Interval() - m_host.now().tick, Interval() / 4));
}

void CountersConsole::Take(CounterReading reading)
{
    m_trouble = PlainLines(reading.trouble);
    if (!m_history.IsEmpty() || !HasNone(reading.values))
        m_history.Add(m_host.now(), std::move(reading.values));
    ShowHistory();
}

// ---- what is shown

void CountersConsole::ShowHistory()
{
    const bool isEmpty = m_history.IsEmpty();
    const auto& charts = m_grid->Charts();
    for (std::size_t i = 0; i < charts.size(); ++i) {
        charts[i]->Describe(m_feed->Rows()[i]);
        charts[i]->Refresh();
    }
    auto message = m_trouble;
    if (!m_feed->HasServer()) {
        message = tr("There is no connection to a server.");
    } else if (isEmpty && message.isEmpty()) {
        message = m_isPaused ? tr("The console is paused.") : tr("The counters are being read...");
    }
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
    m_message->setAlignment(isEmpty ? Qt::AlignCenter : Qt::AlignLeading | Qt::AlignVCenter);
    m_scroll->setVisible(!isEmpty);
    m_copy->setEnabled(!isEmpty);
    m_save->setEnabled(!isEmpty);
    m_state->setText(m_isPaused ? tr("Paused") : QString());
}

void CountersConsole::CopyValues()
{
    QString text;
    for (const auto* const chart : m_grid->Charts())
        text += chart->Label() + u'\t' + chart->ValueText() + u'\n';
    QGuiApplication::clipboard()->setText(text);
}

// ---- saving

QString CountersConsole::ProposedName() const
{
    auto name = QStringLiteral("counters-%1-%2")
                    .arg(PlainText(m_seen).left(kMostOfName), PlainText(LocalIsoTime(m_host.now().utc)));
    name.truncate(name.lastIndexOf(u'.'));
    const auto isSafe = [](QChar c) { return c.isLetterOrNumber() || c == u'-' || c == u'_' || c == u'.'; };
    for (auto& c : name)
        if (!isSafe(c)) c = u'-';
    return name + QStringLiteral(".csv");
}

QString CountersConsole::AskFileName(const QString& proposed)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(this, tr("Save Counters"));
    dialog->setObjectName(QStringLiteral("dlgSaveCsv"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setNameFilters({tr("Comma separated values (*.csv)"), tr("All files (*)")});
    dialog->setDefaultSuffix(QStringLiteral("csv"));
    dialog->selectFile(proposed);
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    if (!dialog) return {};
    dialog->deleteLater();
    return isChosen ? dialog->selectedFiles().value(0) : QString();
}

// What is saved is what was there when it was asked for.
void CountersConsole::SaveAsCsv()
{
    std::vector<std::string> names;
    for (const auto& row : m_feed->Rows()) names.push_back(row.label);
    const auto csv = CountersAsCsv(m_history, names);
    auto& boxes = m_host.boxes;
    const auto title = windowTitle().toStdString();
    const auto ask = m_host.askFileName;
    const auto name = ask ? ask(ProposedName()) : AskFileName(ProposedName());
    if (name.isEmpty()) return;
    QSaveFile file(name);
    const auto size = static_cast<qint64>(csv.size());
    if (file.open(QIODevice::WriteOnly) && file.write(csv.data(), size) == size && file.commit()) return;
    const auto text = tr("The counters cannot be saved as %1").arg(name) + u'\n' + file.errorString();
    boxes.Show(text.toStdString(), BoxStyle::Exclamation, title);
}
