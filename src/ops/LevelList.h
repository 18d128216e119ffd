#pragma once

#include "ops/AnalyzeLevel.h"

#include <QTreeWidget>

// The nine compression levels with what each comes to. The level that the service used is marked: bold, in a
// colour of its own and checked. The check boxes only show that; whoever clicks one sees it undone.
class LevelList : public QTreeWidget {
    Q_OBJECT

public:
    explicit LevelList(QWidget* parent = nullptr);

    // Nine rows without figures. level: the one to mark; none is when it is not 1 to 9.
    void Fill(int level, const FormatLocale& locale);
    void ShowRow(const LevelRow& row);
    void ShowMarks();

    QSize sizeHint() const override;  // all rows and columns
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    int ColumnWidth(int column) const;
    void FitColumns();
    QTreeWidgetItem* RowWithKey(const QString& key) const;

    QString m_marked;  // the marked row's key
};
