#pragma once

#include "help/HelpBook.h"

#include <QWidget>

#include <functional>
#include <string>

class HelpView;
class QAction;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

// The help window: contents and search beside a page. Modeless; it can be used over a modal dialog too.
class frmHelp : public QWidget {
    Q_OBJECT

public:
    // The book must outlive the window. It goes down with its owner and does not keep the program running.
    explicit frmHelp(const HelpBook& book, QWidget* owner = nullptr);

    const HelpBook& Book() const { return m_book; }

    // Each shows the window and brings it to the front.
    void ShowContents();
    void ShowPage(const std::string& key);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildBar();
    QWidget* BuildSide();
    void FillContents();
    QAction* AddCommand(const char* name, const QString& caption, const QIcon& icon,
                        const QList<QKeySequence>& keys, std::function<void()> command);

    void BringUp();
    void Search(const QString& words);
    void ShowHit(int row);
    void PageShown();
    void GoToSearch();

    const HelpBook& m_book;
    QToolBar* const m_bar;
    QLineEdit* const m_search;
    QStackedWidget* const m_side;
    QTreeWidget* const m_contents;
    QListWidget* const m_results;
    HelpView* const m_view;
};
