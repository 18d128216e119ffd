#pragma once

#include <QObject>
#include <QString>

#include <utility>
#include <vector>

class ActivePanel;
class QWidget;

// "Label1(7)": the object name of a member of an array of controls.
QString IndexedName(const char* name, int index);

// The rows of a panel, a caption and its value each: the captions as wide as the widest, the values as the
// panel leaves room for, but never less than a few characters.
class PanelRows : public QObject {
    Q_OBJECT

public:
    // gap: twips between one row and the next.
    PanelRows(ActivePanel& panel, double gap);

    // A widget over the whole width, above the rows.
    void SetTopWidget(QWidget* widget) { m_topWidget = widget; }
    void Add(QWidget* caption, QWidget* value) { m_rows.emplace_back(caption, value); }
    // Rows from this one on are hidden and take no room.
    void SetShownRows(std::size_t count);

    // Places everything anew and measures what there is to scroll.
    void LayOut();

private:
    struct Measures;
    Measures Measure() const;
    void PlaceTopWidget(const Measures& measures);
    void PlaceRow(std::size_t row, const Measures& measures, double top);

    ActivePanel& m_panel;
    const double m_gap;
    QWidget* m_topWidget = nullptr;
    std::vector<std::pair<QWidget*, QWidget*>> m_rows;
    std::size_t m_shown = 0;
    bool m_isLayingOut = false;
};
