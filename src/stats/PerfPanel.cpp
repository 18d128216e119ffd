#include "stats/PerfPanel.h"

#include "controls/ActivePanel.h"
#include "controls/PlainLabel.h"
#include "controls/PlainText.h"
#include "stats/ValueBox.h"

namespace {

constexpr double kGap = 5;  // twips

}  // namespace

PerfPanel::PerfPanel(ActivePanel& panel) : m_panel(panel), m_layout(new PanelRows(panel, kGap))
{
    AddRow();
    m_shown = 1;
    m_layout->SetShownRows(m_shown);
}

void PerfPanel::AddRow()
{
    const int index = static_cast<int>(m_rows.size());
    // What a row without a counter is: a part of the panel.
    const auto meaning = PlainText(m_panel.Caption());
    const Row row{new PlainLabel(IndexedName("TotalsLbl", index), meaning, &m_panel.Surface()),
                  new ValueBox(IndexedName("TotalsValue", index), {}, &m_panel.Surface())};
    row.value->setFrame(false);
    m_layout->Add(row.caption, row.value);
    m_rows.push_back(row);
}

void PerfPanel::BuildRows(std::span<const SummaryRow> rows)
{
    while (m_rows.size() < rows.size()) AddRow();
    m_shown = rows.size();
    for (std::size_t i = 0; i < rows.size(); ++i) ShowRow(m_rows[i], rows[i]);
    m_layout->SetShownRows(m_shown);
}

void PerfPanel::ShowRow(const Row& row, const SummaryRow& shown)
{
    row.caption->setText(PlainText(shown.caption));
    row.caption->setAccessibleName(row.caption->text());
    row.value->setAccessibleName(row.caption->text());
    auto colors = QPalette();
    if (shown.isRed) colors.setColor(QPalette::Text, Qt::red);
    row.value->setPalette(colors);
}

void PerfPanel::ShowValue(std::size_t row, const std::string& text)
{
    if (row < m_rows.size()) m_rows[row].value->ShowText(text);
}

void PerfPanel::SetCaption(const std::string& caption)
{
    m_panel.SetCaption(caption);
}

std::vector<QWidget*> PerfPanel::Captions() const
{
    std::vector<QWidget*> captions;
    for (std::size_t i = 0; i < m_shown; ++i) captions.push_back(m_rows[i].caption);
    return captions;
}

std::vector<QWidget*> PerfPanel::Values() const
{
    std::vector<QWidget*> values;
    for (std::size_t i = 0; i < m_shown; ++i) values.push_back(m_rows[i].value);
    return values;
}
