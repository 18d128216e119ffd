#include "stats/InfoPanel.h"

#include "controls/ActivePanel.h"
#include "controls/PlainLabel.h"
#include "controls/PlainMarkup.h"
#include "controls/PlainText.h"
#include "stats/ValueBox.h"
#include "stats/ValueLabel.h"

#include <algorithm>

namespace {

constexpr double kGap = 30;  // twips

QString WithoutColon(QString caption)
{
    if (caption.endsWith(u':')) caption.chop(1);
    return caption;
}

}  // namespace

InfoPanel::InfoPanel(ActivePanel& panel, const Names& names, std::span<const Row> rows)
    : m_panel(panel),
      m_rows(new PanelRows(panel, kGap))
{
    if (names.nameBox != nullptr) {
        m_nameBox = new ValueBox(QLatin1String(names.nameBox), QObject::tr("Path"), &panel.Surface());
        m_nameBox->show();
        m_rows->SetTopWidget(m_nameBox);
    }
    for (const auto& row : rows) AddRow(names, static_cast<int>(m_values.size()) + 1, row);
    m_rows->SetShownRows(m_values.size());
}

void InfoPanel::AddRow(const Names& names, int index, const Row& row)
{
    const auto text = PlainText(row.caption);
    auto* const caption = new PlainLabel(IndexedName(names.captions, index), text, &m_panel.Surface());
    caption->setText(text);
    auto* const value =
        new ValueLabel(IndexedName(names.values, index), WithoutColon(text), &m_panel.Surface());
    if (!row.toolTip.empty()) {
        caption->setToolTip(PlainMarkup(PlainText(row.toolTip)));
        value->setToolTip(caption->toolTip());
    }
    m_rows->Add(caption, value);
    m_values.push_back(value);
}

void InfoPanel::Show(std::span<const std::string> texts, std::string_view name)
{
    if (m_nameBox) m_nameBox->ShowText(name);
    const auto count = std::min(texts.size(), m_values.size());
    for (std::size_t i = 0; i < count; ++i) m_values[i]->ShowText(texts[i]);
}

void InfoPanel::Clear()
{
    Show(std::vector<std::string>(m_values.size()));
}
