#pragma once

#include <QTreeView>

class SiteListModel;

// The list of sites on the screen: check marks, several highlighted rows, columns that sort.
class SiteListView : public QTreeView {
    Q_OBJECT

public:
    SiteListView(SiteListModel& sites, QWidget* parent = nullptr);

    void ShowWhenEmpty(const QString& plain);  // in place of rows
    void ToggleHighlighted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void CheckHighlighted();
    bool IsOnMark(const QPoint& place) const;
    void ShowElided(const QHelpEvent& event);

    SiteListModel& m_sites;
    QString m_whenEmpty;
};
