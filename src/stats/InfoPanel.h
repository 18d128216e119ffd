#pragma once

#include "stats/PanelRows.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

class ValueBox;
class ValueLabel;

// The rows of a panel about records, a caption label and a value label each, and a box above them for the
// record's name if the panel has one. What is shown is plain text, whatever a server sent.
class InfoPanel {
public:
    struct Row {
        std::string caption;  // "Total Hits:"
        std::string toolTip;  // of caption and value; empty = none
    };
    // The object names of the controls; those of the rows get an index from 1, as in Label1(1).
    struct Names {
        const char* captions;
        const char* values;
        const char* nameBox = nullptr;  // none without a name
    };

    // Fills the panel, which owns what is made and must outlive this.
    InfoPanel(ActivePanel& panel, const Names& names, std::span<const Row> rows);

    // texts: one for each row. Rows beyond them stay as they are.
    void Show(std::span<const std::string> texts, std::string_view name = {});
    void Clear();

private:
    void AddRow(const Names& names, int index, const Row& row);

    ActivePanel& m_panel;
    PanelRows* m_rows;  // the panel's child
    ValueBox* m_nameBox = nullptr;
    std::vector<ValueLabel*> m_values;
};
