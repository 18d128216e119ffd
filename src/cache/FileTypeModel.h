#pragma once

#include "cache/FileTypeRows.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <vector>

// The file type list as a view shows it. Icons are given to single rows from outside, as decorations, and
// move with them.
class FileTypeModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit FileTypeModel(FormatLocale locale, QObject* parent = nullptr);

    void Fill(const FileTypeTable& types);
    void Clear();
    void Click(FileTypeColumn column);

    const FileTypeRows& Rows() const { return m_rows; }
    bool HasIcon(int row) const { return !m_icons[static_cast<std::size_t>(row)].isNull(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void MoveIcons(const FileTypeRows::Permutation& order);

    FileTypeRows m_rows;
    std::vector<QIcon> m_icons;
};
