#pragma once

#include "controls/ToolbarLayout.h"

#include <QAction>
#include <QPointer>
#include <QToolBar>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CustomizeDialog;
class QToolButton;

// A line of a button's drop-down menu; the tag tells which.
struct ToolbarEntry {
    QString caption;
    QString tag;
};

// A button of a toolbar. Without a key it is a separator, and nothing else of it counts.
struct ToolbarButton {
    QString key;
    QString caption = {};
    QString description = {};  // its name for those who customize the bar or cannot see it
    QString toolTip = {};
    QString image = {};  // of the lists "imlButtons" and, under the mouse, "imlHotButtons"
    std::vector<ToolbarEntry> entries = {};  // of its menu; a button with a menu is not clicked itself
};

// A toolbar whose buttons the user takes away, puts back and reorders. The buttons are actions with their key
// as the object name; they last as long as the bar, whether they stand on it or not. Without a button left it
// keeps its height, so that it can still be clicked.
class CustomToolBar : public QToolBar {
    Q_OBJECT

public:
    CustomToolBar(const QString& objectName, QWidget* parent);
    ~CustomToolBar() override;

    void SetButtons(const std::vector<ToolbarButton>& standard);  // once: the buttons in default order

    QAction* Button(std::string_view key) const;       // null when there is none
    QString Description(std::string_view item) const;  // of a separator as well
    QIcon Picture(std::string_view item) const;

    const ToolbarLayout& Arrangement() const { return m_layout; }
    void Arrange(ToolbarLayout layout);

    std::vector<std::uint8_t> StoredLayout() const { return m_layout.Bytes(); }
    void RestoreLayout(std::span<const std::uint8_t> stored);  // the default for empty and damaged bytes

    void Customize();  // opens the dialog, or shows the open one, and returns at once

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    void ButtonClicked(const QString& key);
    void EntryClicked(const QString& key, const QString& tag);
    void MenuWanted(const QPoint& globalPlace);  // the right mouse button was pressed, or the menu key
    void Rearranged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Made {
        QAction* action = nullptr;
        QString description;
    };

    void AddButton(const ToolbarButton& button);
    void AddEntries(QAction* button, const std::vector<ToolbarEntry>& entries);
    void Rebuild();
    void PutOn(const Made& made);
    void PutSeparatorOn();
    const Made* Find(std::string_view item) const;  // null for a separator
    int ButtonHeight() const;
    bool TakesRightPress(const QMouseEvent& event);
    bool TakesKey(QToolButton& button, int key);

    ToolbarLayout m_layout{{}};
    std::map<std::string, Made, std::less<>> m_buttons;
    std::vector<std::unique_ptr<QAction>> m_separators;
    QPointer<CustomizeDialog> m_dialog;
};
