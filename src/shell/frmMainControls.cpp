// How the main window's controls are made and laid out.
#include "shell/frmMain.h"

#include "controls/Images.h"
#include "shell/ClientHeights.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QScreen>

namespace {

constexpr QSize kStartSize(1000, 700);

bool IsUrl(NodeKind kind)
{
    return kind == NodeKind::File || kind == NodeKind::MultiFile;
}

}  // namespace

void frmMain::BuildClientArea()
{
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu);
    resize(kStartSize.boundedTo(screen()->availableSize()));

    auto* const area = new QWidget(this);
    area->setObjectName(QStringLiteral("ClientArea"));
    area->installEventFilter(this);
    TopStrip->setParent(area);
    TopStrip->setObjectName(QStringLiteral("TopStrip"));
    auto* const strip = new QHBoxLayout(TopStrip);
    strip->addWidget(lblTopStrip);

    spltMain->setParent(area);
    spltMain->setObjectName(QStringLiteral("spltMain"));
    auto* const splitter = new QHBoxLayout(spltMain);
    splitter->setContentsMargins({});
    splitter->addWidget(trvFiles);
    setCentralWidget(area);

    trvFiles->setObjectName(QStringLiteral("trvFiles"));
    trvFiles->setAccessibleName(tr("Cached files"));
    trvFiles->setModel(&m_model);
    connect(trvFiles, &CacheTreeView::MenuWanted, this, &frmMain::ShowPopUp);

    StatusBar->setObjectName(QStringLiteral("StatusBar"));
    setStatusBar(StatusBar);
}

QAction* frmMain::AddCommand(QWidget* holder, const char* name, const QString& caption,
                             void (frmMain::*command)())
{
    auto* const action = new QAction(caption, holder);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, command);
    holder->addAction(action);
    return action;
}

void frmMain::BuildMenuBar()
{
    auto* const mnuFile = menuBar()->addMenu(tr("&File"));
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    AddCommand(mnuFile, "mnuFile_Rescan", tr("&Rescan IIS"), &frmMain::Rescan)->setShortcut(Qt::Key_F5);
    AddCommand(mnuFile, "mnuFile_ExpandAll", tr("&Expand all nodes"), &frmMain::ExpandAll)
        ->setShortcut(Qt::Key_F6);
    mnuFile->addSeparator()->setObjectName(QStringLiteral("mnuFile_Sep2"));
    AddCommand(mnuFile, "mnuFile_Exit", tr("&Exit"), &frmMain::Exit);
}

void frmMain::BuildPopUp()
{
    mnuPopUp_Tree->setObjectName(QStringLiteral("mnuPopUp_Tree"));
    AddCommand(mnuPopUp_Tree, "mnuPopUp_Refresh", tr("&Refresh"), &frmMain::RefreshFileNode);
    mnuPopUp_Tree->addSeparator()->setObjectName(QStringLiteral("mnuPopUp_Sep2"));
    AddCommand(mnuPopUp_Tree, "mnuPopUp_Rescan", tr("Rescan &IIS"), &frmMain::Rescan);
}

void frmMain::ShowPopUp(const QPoint& globalPlace)
{
    const auto node = SelectedNode();
    const bool isUrl = node != kNoNode && IsUrl(m_state.contents.tree.Kind(node));
    mnuPopUp_Tree->findChild<QAction*>(QStringLiteral("mnuPopUp_Refresh"))->setEnabled(isUrl);
    mnuPopUp_Tree->popup(globalPlace);
}

void frmMain::BuildToolbar()
{
    Toolbar->setObjectName(QStringLiteral("Toolbar"));
    Toolbar->setWindowTitle(tr("Standard"));
    Toolbar->setMovable(false);
    Toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(Toolbar);

    auto* const stop = AddCommand(Toolbar, "Stop", tr(" Stop "), &frmMain::Stop);
    stop->setIcon(Image(QStringLiteral("Stop")));
    stop->setToolTip(tr("Stop reload operation"));
    stop->setShortcut(Qt::Key_Escape);
    auto* const refresh = AddCommand(Toolbar, "Refresh", tr(" Refresh "), &frmMain::Rescan);
    refresh->setIcon(Image(QStringLiteral("Refresh")));
    refresh->setToolTip(tr("Reload cache information from the server"));
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    const bool changesSize = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (watched == centralWidget() && changesSize) LayOutClientArea();
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::LayOutClientArea()
{
    ClientHeights heights;
    heights.topStrip = TopStrip->sizeHint().height();
    heights.inner = height() - (menuBar()->isHidden() ? 0 : menuBar()->height());
    if (!Toolbar->isHidden()) heights.toolbar = Toolbar->height();
    if (!StatusBar->isHidden()) heights.statusBar = StatusBar->height();

    const int width = centralWidget()->width();
    TopStrip->setGeometry(0, 0, width, TopStrip->sizeHint().height());
    const int height = SplitterHeight(heights).value_or(spltMain->height());
    spltMain->setGeometry(0, TopStrip->height(), width, height);
}
