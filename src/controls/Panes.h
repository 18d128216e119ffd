#pragma once

#include "controls/Pane.h"

#include <memory>
#include <vector>

// The two panes of a splitter. Splitters in panes make a tree: up and down links are looked after here and
// never outlive what they point to.
class Panes {
public:
    explicit Panes(SplitterCore& splitter);
    ~Panes() { Clear(); }
    Panes(const Panes&) = delete;
    Panes& operator=(const Panes&) = delete;

    // Null for an index or key that no pane has. Indexes begin at 1.
    Pane* Item(int index) const;
    Pane* Item(std::string_view key) const;
    int Count() const { return static_cast<int>(m_items.size()); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    Pane* TopPane() const;  // null in the top splitter, as Parent()
    Pane* Parent() const { return m_parentPane; }
    SplitterCore* Splitter() const { return m_splitter; }

    // Those of the pane that the splitter lies in; true at the top, where there is nothing to set.
    bool Enabled() const;
    void SetEnabled(bool enabled);
    bool Visible() const;

    Panes* FromControl(const QWidget* control) const;      // null in the top splitter
    Pane* FindChildControl(const QWidget* control) const;  // depth first; the first match wins

    // The splitter's own size; see Pane::SetWidth. A top splitter that cannot take the size stays as it is.
    std::int64_t Width() const;
    Done SetWidth(std::int64_t width);
    std::int64_t Height() const;
    Done SetHeight(std::int64_t height);

    // Takes all links and panes out, also of the splitters below.
    void Clear();

private:
    friend class Pane;

    SplitterCore* m_splitter;
    Pane* m_parentPane = nullptr;
    std::vector<std::unique_ptr<Pane>> m_items;
};
