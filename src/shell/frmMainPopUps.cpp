// The main window's context menus, and the keys of the tree that do the same.
#include "shell/frmMain.h"

// The keys are shown here and answered by the tree: they work while it has the focus, whatever this menu
// enables for the node that it was last shown for.
void frmMain::BuildPopUps()
{
    const auto add = [this](const char* name, const QString& caption, const QKeySequence& key,
                            std::function<void()> command) {
        auto* const action = AddCommand(mnuPopUp_Tree, name, caption, std::move(command));
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setShortcutVisibleInContextMenu(true);
    };
    mnuPopUp_Tree->setObjectName(QStringLiteral("mnuPopUp_Tree"));
    mnuPopUp_Tree->setTitle(tr("Tree Popup Menu"));
    add("mnuPopUp_FileDetails", tr("&Details"), Qt::Key_F7, [this] { ShowFileDetails(false); });
    add("mnuPopUp_Refresh", tr("&Refresh"), {}, [this] { RefreshFileNode(); });
    add("mnuPopUp_Remove", tr("Delete &cache"), Qt::Key_F8, [this] { RemoveNodeCache(); });
    AddSeparator(mnuPopUp_Tree, "mnuPopUp_Sep1");
    add("mnuPopUp_Analyze", tr("Compression &analysis"), Qt::CTRL | Qt::Key_F7,
        [this] { ShowFileDetails(true); });
    AddSeparator(mnuPopUp_Tree, "mnuPopUp_Sep2");
    add("mnuPopUp_Rescan", tr("Rescan &IIS"), {}, [this] { Rescan(); });

    mnuPopUp_Perf->setObjectName(QStringLiteral("mnuPopUp_Perf"));
    mnuPopUp_Perf->setTitle(tr("Perf Popup Menu"));
    AddCommand(mnuPopUp_Perf, "mnuPopUp_RstPerf", tr("&Reset"), [this] { ResetCounters(); });

    m_info.UsePerfMenu([this](const QPoint& globalPlace) { mnuPopUp_Perf->popup(globalPlace); });

    connect(trvFiles, &CacheTreeView::MenuWanted, this, &frmMain::ShowPopUp);
    connect(trvFiles, &CacheTreeView::DetailsWanted, this, &frmMain::ShowFileDetails);
    connect(trvFiles, &CacheTreeView::RemovalWanted, this, &frmMain::RemoveNodeCache);
    connect(trvFiles, &CacheTreeView::EnterPressed, this, [this] {
        const auto node = SelectedNode();
        if (node != kNoNode && m_state.contents.tree.Kind(node) == NodeKind::File) ShowFileDetails(false);
    });
}

void frmMain::ShowPopUp(const QPoint& globalPlace)
{
    const auto node = SelectedNode();
    const bool isUrl = node != kNoNode && IsUrl(m_state.contents.tree.Kind(node));
    for (const auto* const name : {"mnuPopUp_FileDetails", "mnuPopUp_Refresh", "mnuPopUp_Analyze"})
        mnuPopUp_Tree->findChild<QAction*>(QLatin1String(name))->setEnabled(isUrl);
    mnuPopUp_Tree->popup(globalPlace);
}
