#pragma once

#include "server/ServerSelection.h"

#include <QAbstractTableModel>
#include <QIcon>

// The sites of a selection as a view shows them: a row for each, with a check mark.
class SiteListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit SiteListModel(ServerSelection& selection, QObject* parent = nullptr);

    void Reset();  // shows the sites that the selection has now
    void CheckAll(bool isChecked);
    void SortBy(int column);

    bool IsChecked(const QModelIndex& index) const;
    void Check(const QModelIndex& index, bool isChecked);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Site* SiteAt(const QModelIndex& index) const;

    ServerSelection& m_selection;
    int m_rows = 0;  // as told to the view; a selection that reads its sites has others by then
    const QIcon m_website;
    const QIcon m_webdown;
};
