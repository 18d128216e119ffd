// How the main window's controls are made and laid out.
#include "shell/frmMain.h"

#include "controls/Images.h"
#include "shell/ClientHeights.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenuBar>

namespace {

constexpr QSize kDesignSize(800, 600);  // until a placement is loaded

}  // namespace

void frmMain::BuildClientArea()
{
    setObjectName(QStringLiteral("frmMain"));
    setContextMenuPolicy(Qt::NoContextMenu);
    resize(kDesignSize);

    auto* const area = new QWidget(this);
    area->setObjectName(QStringLiteral("ClientArea"));
    area->installEventFilter(this);
    TopStrip->setParent(area);
    TopStrip->setObjectName(QStringLiteral("TopStrip"));
    auto* const strip = new QHBoxLayout(TopStrip);
    strip->addWidget(lblTopStrip);

    spltMain->setParent(area);
    setCentralWidget(area);

    trvFiles->setObjectName(QStringLiteral("trvFiles"));
    trvFiles->setAccessibleName(tr("Cached files"));
    trvFiles->setModel(&m_model);
    connect(trvFiles, &CacheTreeView::MenuWanted, this, &frmMain::ShowPopUp);
    connect(trvFiles->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { m_info.ShowNode(CacheTreeModel::NodeOf(index)); });

    StatusBar->setObjectName(QStringLiteral("StatusBar"));
    setStatusBar(StatusBar);
}

void frmMain::BuildToolbar()
{
    Toolbar->setObjectName(QStringLiteral("Toolbar"));
    Toolbar->setWindowTitle(tr("Standard"));
    Toolbar->setMovable(false);
    Toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(Toolbar);

    auto* const connectTo = AddCommand(Toolbar, "Connect", tr(" Connect "), [this] { SelectSites(true); });
    connectTo->setIcon(Image(QStringLiteral("Connect")));
    connectTo->setToolTip(tr("Connect to another IIS server"));
    auto* const stop = AddCommand(Toolbar, "Stop", tr(" Stop "), [this] { Stop(); });
    stop->setIcon(Image(QStringLiteral("Stop")));
    stop->setToolTip(tr("Stop reload operation"));
    stop->setShortcut(Qt::Key_Escape);
    auto* const refresh = AddCommand(Toolbar, "Refresh", tr(" Refresh "), [this] { Rescan(); });
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
