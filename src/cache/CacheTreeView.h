#pragma once

#include <QTreeView>

// The tree of the cache on the screen, set up for a million rows and more.
class CacheTreeView : public QTreeView {
    Q_OBJECT

public:
    explicit CacheTreeView(QWidget* parent = nullptr);

    void reset() override;

Q_SIGNALS:
    // The user asked for the menu of a row, by mouse or by key. The row is the current one now.
    void MenuWanted(const QPoint& globalPlace);
    void DetailsWanted(bool withAnalysis);  // F7, with Ctrl for the analysis; a double click on a row
    void EnterPressed();
    void RemovalWanted();  // Delete or F8; a key that is held down asks once

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;

private:
    void WidenColumn();

    int m_widestIndentation = 0;  // of the rows shown since the last reset
};
