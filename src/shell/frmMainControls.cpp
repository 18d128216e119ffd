// How the main window's controls are made and laid out.
#include "shell/frmMain.h"

#include "shell/ClientHeights.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenuBar>

namespace {

constexpr QSize kDesignSize(800, 600);  // until a placement is loaded

// The toolbar's buttons by their keys.
const QString kConnect = QStringLiteral("Connect");
const QString kStop = QStringLiteral("Stop");
const QString kRefresh = QStringLiteral("Refresh");
const QString kRemove = QStringLiteral("Remove");
const QString kPanels = QStringLiteral("Panels");
const QString kHelp = QStringLiteral("Help");

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
    connect(trvFiles->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { m_info.ShowNode(CacheTreeModel::NodeOf(index)); });

    StatusBar->setObjectName(QStringLiteral("StatusBar"));
    setStatusBar(StatusBar);
}

void frmMain::BuildToolbar()
{
    const auto image = [](const char* key) { return QString::fromLatin1(key); };
    const std::vector<ToolbarEntry> panels{{tr("File type totals"), image("0")},
                                           {tr("Cache totals"), image("1")},
                                           {tr("File info"), image("2")},
                                           {tr("Performance summary"), image("3")}};
    Toolbar->setWindowTitle(tr("Standard"));
    Toolbar->setMovable(false);
    Toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Toolbar->SetButtons({
        {kConnect, tr(" Connect "), tr("Connect"), tr("Connect to another IIS server"), image("Connect")},
        {kStop, tr(" Stop "), tr("Stop Reload"), tr("Stop reload operation"), image("Stop")},
        {kRefresh, tr(" Refresh "), tr("Refresh"), tr("Reload cache information from the server"),
         image("Refresh")},
        {},
        {kRemove, tr(" Remove "), tr("Remove Cache"), tr("Remove cached files"), image("Delete")},
        {},
        {kPanels, tr(" Panels "), tr("View Panels"), tr("Select panels"), image("Views"), panels},
        {kHelp, tr(" Help "), tr("Help"), tr("Open help contents"), image("Help")},
    });
    addToolBar(Toolbar);
    // The key works as well while the button is off the bar.
    auto* const stop = Toolbar->Button("Stop");
    stop->setShortcut(Qt::Key_Escape);
    addAction(stop);
    connect(Toolbar, &CustomToolBar::ButtonClicked, this, &frmMain::ClickToolbar);
    connect(Toolbar, &CustomToolBar::EntryClicked, this, [this](const QString& key, const QString& tag) {
        if (key == kPanels) m_info.ClickPanelItem(tag.toUInt());
    });
    connect(Toolbar, &CustomToolBar::MenuWanted, this, [this](const QPoint& globalPlace) {
        findChild<QMenu*>(QStringLiteral("mnuView_Toolbars"))->popup(globalPlace);
    });
}

void frmMain::ClickToolbar(const QString& key)
{
    if (key == kConnect)
        SelectSites(true);
    else if (key == kStop)
        Stop();
    else if (key == kRefresh)
        Rescan();
    else if (key == kRemove)
        RemoveNodeCache();
    else if (key == kHelp)
        ShowHelp();
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
    // What it takes from the window: it is higher while it is unfolded over what lies below it.
    if (!Toolbar->isHidden()) heights.toolbar = Toolbar->sizeHint().height();
    if (!StatusBar->isHidden()) heights.statusBar = StatusBar->height();

    const int width = centralWidget()->width();
    TopStrip->setGeometry(0, 0, width, TopStrip->sizeHint().height());
    const int height = SplitterHeight(heights).value_or(spltMain->height());
    spltMain->setGeometry(0, TopStrip->height(), width, height);
}
