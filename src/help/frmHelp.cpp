#include "help/frmHelp.h"

#include "help/HelpView.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace {

// In characters and lines:
constexpr int kSideWidth = 46;
constexpr int kPageWidth = 100;
constexpr int kHeight = 42;
constexpr int kMostSearched = 500;  // a whole message with its names, but no book

constexpr int kKeyRole = Qt::UserRole;

}  // namespace

frmHelp::frmHelp(const HelpBook& book, QWidget* owner)
    : QWidget(owner, Qt::Window),
      m_book(book),
      m_bar(new QToolBar(this)),
      m_search(new QLineEdit),
      m_side(new QStackedWidget),
      m_contents(new QTreeWidget),
      m_results(new QListWidget),
      m_view(new HelpView(book))
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(tr("Zentrel Quillet Help"));
    setAttribute(Qt::WA_QuitOnClose, false);
    m_view->setObjectName(QStringLiteral("HelpPage"));
    m_view->setAccessibleName(tr("Help page"));
    BuildBar();

    auto* const panes = new QSplitter;
    panes->setObjectName(QStringLiteral("HelpPanes"));
    panes->addWidget(BuildSide());
    panes->addWidget(m_view);
    panes->setStretchFactor(1, 1);
    panes->setChildrenCollapsible(false);
    const int character = fontMetrics().averageCharWidth();
    panes->setSizes({kSideWidth * character, kPageWidth * character});

    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->setSpacing(0);
    all->addWidget(m_bar);
    all->addWidget(panes, 1);
    resize((kSideWidth + kPageWidth) * character, kHeight * fontMetrics().lineSpacing());
    FillContents();
    connect(m_view, &QTextBrowser::historyChanged, this, &frmHelp::PageShown);
}

// ---- how the window is made

QAction* frmHelp::AddCommand(const char* name, const QString& caption, const QIcon& icon,
                             const QList<QKeySequence>& keys, std::function<void()> command)
{
    auto* const action = new QAction(icon, caption, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    if (!keys.isEmpty())
        action->setToolTip(QStringLiteral("%1 (%2)").arg(QString(caption).remove(u'&'),
                                                         keys.first().toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [run = std::move(command)] { run(); });
    addAction(action);
    return action;
}

void frmHelp::BuildBar()
{
    m_bar->setObjectName(QStringLiteral("HelpBar"));
    m_bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto* const back = AddCommand("Back", tr("&Back"), style()->standardIcon(QStyle::SP_ArrowBack),
                                  {Qt::ALT | Qt::Key_Left, Qt::Key_Back}, [this] { m_view->backward(); });
    auto* const forward =
        AddCommand("Forward", tr("F&orward"), style()->standardIcon(QStyle::SP_ArrowForward),
                   {Qt::ALT | Qt::Key_Right, Qt::Key_Forward}, [this] { m_view->forward(); });
    auto* const home = AddCommand("Contents", tr("&Contents"), style()->standardIcon(QStyle::SP_DirHomeIcon),
                                  {Qt::ALT | Qt::Key_Home}, [this] { ShowContents(); });
    auto* const smaller =
        AddCommand("ZoomOut", tr("S&maller"), {}, {Qt::CTRL | Qt::Key_Minus}, [this] { m_view->Zoom(-1); });
    auto* const larger =
        AddCommand("ZoomIn", tr("&Larger"), {}, {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
                   [this] { m_view->Zoom(1); });
    AddCommand("ZoomReset", tr("Usual size"), {}, {Qt::CTRL | Qt::Key_0}, [this] { m_view->Zoom(0); });
    AddCommand("Find", tr("Find"), {}, {Qt::CTRL | Qt::Key_F, Qt::Key_F3}, [this] { GoToSearch(); });
    m_bar->addActions({back, forward, home});
    m_bar->addSeparator();
    m_bar->addActions({smaller, larger});
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_view, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_view, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

QWidget* frmHelp::BuildSide()
{
    m_search->setObjectName(QStringLiteral("HelpSearch"));
    m_search->setPlaceholderText(tr("Search the help"));
    m_search->setAccessibleName(tr("Search the help"));
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(kMostSearched);
    m_contents->setObjectName(QStringLiteral("HelpContents"));
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHeaderHidden(true);
    m_results->setObjectName(QStringLiteral("HelpResults"));
    m_results->setAccessibleName(tr("Found pages"));
    m_results->setWordWrap(true);
    m_results->setAlternatingRowColors(true);
    m_results->setSpacing(2);
    m_results->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_side->addWidget(m_contents);
    m_side->addWidget(m_results);
    connect(m_search, &QLineEdit::textChanged, this, &frmHelp::Search);
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        m_results->setCurrentRow(0);
        ShowHit(0);
    });
    connect(m_results, &QListWidget::currentRowChanged, this, &frmHelp::ShowHit);
    // The chosen one again, when a link or a way back led away from its page.
    for (const auto signal : {&QListWidget::itemClicked, &QListWidget::itemActivated})
        connect(m_results, signal, this, [this](QListWidgetItem* item) { ShowHit(m_results->row(item)); });
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item != nullptr) m_view->ShowPage(item->data(0, kKeyRole).toString().toStdString());
    });

    auto* const side = new QWidget;
    side->setObjectName(QStringLiteral("HelpSide"));
    auto* const column = new QVBoxLayout(side);
    column->addWidget(m_search);
    column->addWidget(m_side, 1);
    return side;
}

void frmHelp::FillContents()
{
    std::vector<QTreeWidgetItem*> path;
    for (const auto& page : m_book.Pages()) {
        path.resize(std::min(path.size(), page.depth));
        auto* const item = path.empty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(path.back());
        item->setText(0, QString::fromStdString(page.title));
        item->setData(0, kKeyRole, QString::fromStdString(page.key));
        path.push_back(item);
    }
    m_contents->expandAll();
}

// ---- what it does

void frmHelp::ShowContents()
{
    m_search->clear();
    if (!m_book.Pages().empty()) ShowPage(m_book.Pages().front().key);
    m_contents->setFocus();
}

void frmHelp::ShowPage(const std::string& key)
{
    m_view->ShowPage(key);
    m_view->setFocus();
    BringUp();
}

// A modal dialog lets no window be used but those that belong to it.
void frmHelp::BringUp()
{
    auto* modal = QApplication::activeModalWidget();
    auto* const owner = modal != nullptr            ? modal
                        : parentWidget() == nullptr ? nullptr
                                                    : parentWidget()->window();
    winId();  // makes the window's handle, without which it has no owner
    auto* const ownerHandle = owner == nullptr ? nullptr : owner->windowHandle();
    if (windowHandle()->transientParent() != ownerHandle) {
        hide();
        windowHandle()->setTransientParent(ownerHandle);
    }
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void frmHelp::Search(const QString& words)
{
    const QSignalBlocker quiet(m_results);  // what is found is shown when the user chooses it
    m_results->clear();
    const auto wanted = words.trimmed();
    m_side->setCurrentWidget(wanted.isEmpty() ? static_cast<QWidget*>(m_contents) : m_results);
    for (const auto& hit : m_book.Search(wanted.toStdString())) {
        auto* const item =
            new QListWidgetItem(QString::fromStdString(hit.page->title + '\n' + hit.snippet), m_results);
        item->setData(kKeyRole, QString::fromStdString(hit.page->key));
    }
    if (wanted.isEmpty() || m_results->count() > 0) return;
    auto* const nothing = new QListWidgetItem(tr("Nothing found."), m_results);
    nothing->setFlags(Qt::NoItemFlags);
}

void frmHelp::ShowHit(int row)
{
    const auto* const item = m_results->item(row);
    if (item == nullptr || !(item->flags() & Qt::ItemIsEnabled)) return;
    m_view->ShowPage(item->data(kKeyRole).toString().toStdString());
    m_view->MarkWords(m_search->text().trimmed());
}

void frmHelp::PageShown()
{
    const auto key = QString::fromStdString(m_view->PageKey());
    const QSignalBlocker quiet(m_contents);
    m_contents->setCurrentItem(nullptr);
    for (QTreeWidgetItemIterator item(m_contents); *item != nullptr; ++item)
        if ((*item)->data(0, kKeyRole).toString() == key) m_contents->setCurrentItem(*item);
}

void frmHelp::GoToSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void frmHelp::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Down && m_search->hasFocus())
        m_side->currentWidget()->setFocus();
    else
        QWidget::keyPressEvent(event);
}
