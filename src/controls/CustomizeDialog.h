#pragma once

#include "controls/ToolbarLayout.h"

#include <QDialog>
#include <QListWidget>

#include <functional>

class CustomToolBar;
class QBoxLayout;
class QPushButton;

// A list of toolbar items that are dragged between lists of this kind.
class ToolbarItemList : public QListWidget {
    Q_OBJECT

public:
    explicit ToolbarItemList(const QString& objectName);

Q_SIGNALS:
    void Dropped(const ToolbarItemList* from, int row,
                 int before);  // `row` of `from`, before this list's row

protected:
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QList<QListWidgetItem*>& items) const override;
    void dropEvent(QDropEvent* event) override;

private:
    int RowAt(const QPoint& point) const;
};

// The dialog "Customize Toolbar". What the user changes shows on the bar at once; the dialog shows the bar's
// arrangement and keeps nothing of its own. It belongs to the bar and ends when it is closed.
class CustomizeDialog : public QDialog {
    Q_OBJECT

public:
    explicit CustomizeDialog(CustomToolBar& bar);

private:
    void LayOut();
    QLayout* Labelled(const QString& caption, ToolbarItemList* list);
    QPushButton* AddCommand(QBoxLayout* column, const char* name, const QString& caption,
                            std::function<void()> command);
    void ListenToLists();
    void OnKey(QWidget* list, const QKeySequence& key, std::function<void()> command);

    // Rows are those of the lists; before a row means before what stands there now.
    void Add(int row, int before);
    void Remove(int row);
    void Move(int row, int to);
    void Reset();
    void AddChosen();
    void RemoveChosen() { Remove(m_current->currentRow()); }
    void MoveChosen(int down);
    void Change(const std::function<bool(ToolbarLayout&)>& change, int chosenRow);

    void ShowArrangement();
    void ShowItems(ToolbarItemList* list, const ToolbarLayout::Items& items);
    void EnableCommands();
    void Enable(QPushButton* command, bool isEnabled);

    CustomToolBar& m_bar;
    ToolbarItemList* const m_available;
    ToolbarItemList* const m_current;
    QPushButton* m_cmdAdd = nullptr;
    QPushButton* m_cmdRemove = nullptr;
    QPushButton* m_cmdUp = nullptr;
    QPushButton* m_cmdDown = nullptr;
    QPushButton* m_cmdReset = nullptr;
};
