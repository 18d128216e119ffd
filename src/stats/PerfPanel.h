#pragma once

#include "stats/PanelRows.h"
#include "stats/PerfSummary.h"

#include <vector>

class PlainLabel;
class ValueBox;

// The performance summary on its panel: a caption and a box for each counter, of which the first are there
// from the beginning, showing nothing.
class PerfPanel : public SummaryScreen {
public:
    // Fills the panel, which owns what is made and must outlive this.
    explicit PerfPanel(ActivePanel& panel);

    void BuildRows(std::span<const SummaryRow> rows) override;
    std::size_t RowCount() const override { return m_shown; }
    void ShowValue(std::size_t row, const std::string& text) override;
    void SetCaption(const std::string& caption) override;

    // The controls of the shown rows, in their order: TotalsLbl and TotalsValue.
    std::vector<QWidget*> Captions() const;
    std::vector<QWidget*> Values() const;

private:
    struct Row {
        PlainLabel* caption;
        ValueBox* value;
    };
    void AddRow();
    static void ShowRow(const Row& row, const SummaryRow& shown);

    ActivePanel& m_panel;
    PanelRows* m_layout;  // the panel's child
    std::vector<Row> m_rows;
    std::size_t m_shown = 0;
};
