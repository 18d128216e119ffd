#include "shell/InfoArea.h"

#include "base/Twips.h"
#include "cache/InfoRows.h"
#include "controls/PaneFocus.h"
#include "stats/InitPerfCounters.h"

#include <QCoreApplication>

namespace {

QString Text(const char* text)
{
    return QCoreApplication::translate("frmMain", text);
}

struct Captions {
    const char* header;
    const char* item;
    QKeySequence shortcut;
};

// Of the panels, by their index.
const std::array<Captions, PanelItems::Panels>& PanelCaptions()
{
    static const std::array<Captions, PanelItems::Panels> captions{{
        {QT_TRANSLATE_NOOP("frmMain", "File Type Totals"), QT_TRANSLATE_NOOP("frmMain", "&File type totals"),
         Qt::SHIFT | Qt::Key_F1},
        {QT_TRANSLATE_NOOP("frmMain", "Cache Totals"), QT_TRANSLATE_NOOP("frmMain", "&Cache totals"),
         Qt::SHIFT | Qt::Key_F2},
        {QT_TRANSLATE_NOOP("frmMain", "File Information"), QT_TRANSLATE_NOOP("frmMain", "&File info"),
         Qt::SHIFT | Qt::Key_F3},
        {QT_TRANSLATE_NOOP("frmMain", "Performance Summary"),
         QT_TRANSLATE_NOOP("frmMain", "&Performance Summary"), Qt::SHIFT | Qt::Key_F4},
    }};
    return captions;
}

Splitter* MakeSplitter(const char* name, std::int32_t orientation, std::int32_t position)
{
    auto* const splitter = new Splitter(QLatin1String(name));
    splitter->SetOrientation(orientation);
    splitter->SetSplitterPos(position);
    splitter->SetCursorStyle(1);
    return splitter;
}

// A control can be bound once it lies in its splitter.
void Bind(Splitter& splitter, QWidget* first, QWidget* second)
{
    int index = 0;
    for (auto* const control : {first, second}) {
        control->setParent(&splitter);
        if (const auto bound = splitter.SetControls(++index, control); !bound) continue;  // it lies there
        control->show();
    }
}

std::array<ActivePanel*, PanelItems::Panels> MakePanels(MessagePump& pump)
{
    std::array<ActivePanel*, PanelItems::Panels> panels{};
    for (std::size_t i = 0; i < panels.size(); ++i) {
        panels[i] = new ActivePanel;
        panels[i]->setObjectName(QStringLiteral("apPane(%1)").arg(i));
        panels[i]->SetCaption(Text(PanelCaptions()[i].header).toStdString());
        panels[i]->SetPump([&pump] { pump.Run(); });
    }
    return panels;
}

std::vector<InfoPanel::Row> PanelRowsOf(std::span<const InfoRow> rows)
{
    std::vector<InfoPanel::Row> shown;
    for (const auto& row : rows) shown.push_back({CaptionOf(row), ToolTipOf(row)});
    return shown;
}

}  // namespace

InfoArea::InfoArea(Splitter& spltMain, QWidget& trvFiles, ProcessState& state, const Desktop& desktop,
                   std::function<std::string()> caption)
    : m_main(spltMain),
      m_state(state),
      m_desktop(desktop),
      m_caption(std::move(caption)),
      m_panels(MakePanels(desktop.pump)),
      m_types(new FileTypeList(Panel(0), {desktop.pointer, desktop.pump, m_icons}, state.locale)),
      m_totals(Panel(1), {"Label1", "lblCacheInfo"}, PanelRowsOf(CacheTotalsRows())),
      m_file(Panel(2), {"Label2", "lblFileInfo", "txtFileName"}, PanelRowsOf(FileInfoRows())),
      m_perf(Panel(3)),
      m_summary(state.counters, state.locale, {m_perf, desktop.boxes, desktop.pump, m_caption})
{
    auto* const spltHMain = MakeSplitter("spltHMain", 1, 70);
    auto* const spltInfo = MakeSplitter("spltInfo", 0, 50);
    auto* const spltHInfo = MakeSplitter("spltHInfo", 1, 55);
    m_main.SetSplitterPosMin(40);
    m_main.SetSplitterPos(40);
    m_main.SetCursorStyle(1);
    Bind(m_main, spltHMain, spltInfo);
    Bind(*spltHMain, &trvFiles, &Panel(0));
    Bind(*spltInfo, spltHInfo, &Panel(3));
    Bind(*spltHInfo, &Panel(2), &Panel(1));
    OrderTabs(m_main.Panes());
    m_icons.AttachSystemImageList(*m_types);
}

InfoArea::~InfoArea()
{
    modSystemImageList::DetachSystemImageList(*m_types);
}

// ---- the panels

void InfoArea::BuildPanelsMenu(QMenu& menu)
{
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        const bool isPanel = i < PanelItems::Panels;
        auto* const action = i == PanelItems::Separator
                                 ? menu.addSeparator()
                                 : menu.addAction(isPanel ? Text(PanelCaptions()[i].item)
                                                          : Text(QT_TRANSLATE_NOOP("frmMain", "&All")));
        m_actions[i] = action;
        action->setObjectName(QStringLiteral("mnuInfo_Item(%1)").arg(i));
        if (action->isSeparator()) continue;
        action->setShortcut(isPanel ? PanelCaptions()[i].shortcut : QKeySequence(Qt::SHIFT | Qt::Key_F9));
        action->setCheckable(true);
        action->setChecked(true);
        QObject::connect(action, &QAction::triggered, action, [this, i] { m_items.Click(i); });
        if (isPanel)
            QObject::connect(m_panels[i], &ActivePanel::CloseClick, action, [this, i] { m_items.Click(i); });
    }
}

void InfoArea::CheckItem(std::size_t item, bool isChecked)
{
    m_actions[item]->setChecked(isChecked);
}

void InfoArea::ShowPanel(std::size_t panel, bool isShown)
{
    EnablePane(m_main.Panes(), m_panels[panel], isShown);
}

std::array<std::byte, 8> InfoArea::PanelLayout() const
{
    std::array<PanelPlace, PanelItems::Panels> places;
    for (std::size_t i = 0; i < places.size(); ++i) places[i] = PlaceOfPanel(m_main.Panes(), m_panels[i]);
    return PanelBytes(places);
}

bool InfoArea::FocusPane(bool isForward) const
{
    return FocusNextPane(m_main.Panes(), isForward);
}

// ---- what a scan found

void InfoArea::ClearInfo()
{
    m_types->Clear();
    m_file.Clear();
    m_totals.Clear();
    Panel(2).SetCaption(Translate("frmMain", kFileInfoCaption));
}

void InfoArea::ShowContents()
{
    m_types->FillFileTypes(m_state.contents.types);
    SetCacheInfo();
}

void InfoArea::SetCacheInfo()
{
    m_totals.Show(InfoTexts(CacheTotalsRows(), m_state.contents.totals, m_state.locale));
}

void InfoArea::ShowNode(NodeId node)
{
    const auto shown = InfoOfNode(m_state.contents.tree, node);
    if (shown.info) {
        m_file.Show(InfoTexts(FileInfoRows(), *shown.info, m_state.locale), shown.info->FilePath);
    } else {
        m_file.Clear();
    }
    Panel(2).SetCaption(shown.caption);
}

// ---- the performance summary

void InfoArea::UsePerfMenu(std::function<void(const QPoint&)> show)
{
    auto* const panel = &Panel(3);
    QObject::connect(panel, &ActivePanel::MouseDown, panel,
                     [panel, show = std::move(show)](const MouseArgs& args) {
                         if (args.button != MouseButton::Right) return;
                         const QPoint place(qRound(PixelsFromTwips(args.x, panel->logicalDpiX())),
                                            qRound(PixelsFromTwips(args.y, panel->logicalDpiY())));
                         show(panel->Surface().mapToGlobal(place));
                     });
}

void InfoArea::CloseQuery()
{
    m_state.counters.CloseQuery();
}

void InfoArea::EnableTimer(bool isEnabled)
{
    if (m_enableTimer) m_enableTimer(isEnabled);
}

Done InfoArea::OpenQuery()
{
    auto& counters = m_state.counters;
    if (counters.OpenQuery()) return {};
    return Fail(counters.LastStatus(), "PDH", counters.LastText());
}

void InfoArea::InitPerfCounters()
{
    ::InitPerfCounters(m_state.counters, m_state.counterList,
                       {m_state.server.ServerName(), m_state.server.IsLocal()}, m_caption(),
                       {m_desktop.boxes, m_desktop.pump, m_desktop.pointer});
}

void InfoArea::ResetToolTips()
{
    m_tips.Clear();
    m_tips.AddTips(m_perf.Captions(), m_state.counters.Counters());
    m_tips.AddTips(m_perf.Values(), m_state.counters.Counters());
}
