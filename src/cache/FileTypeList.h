#pragma once

#include "cache/FileTypeModel.h"

#include <QTreeView>

class ActivePanel;
class MessagePump;
class ScreenPointer;
class modSystemImageList;

// The file type list in its panel: a row for each type with the type's icon, sorted by a click on a column's
// header or by Ctrl and the column's number.
class FileTypeList : public QTreeView {
    Q_OBJECT

public:
    // What the list uses; all must outlive it.
    struct Desktop {
        ScreenPointer& pointer;
        MessagePump& pump;
        modSystemImageList& icons;
    };

    // Takes all of the panel below its header and follows its size.
    FileTypeList(ActivePanel& panel, const Desktop& desktop, FormatLocale locale);

    void FillFileTypes(const FileTypeTable& types);
    void Clear();

    // What a click on the column's header does.
    void ColumnClick(int column);

    const FileTypeModel& Types() const { return m_model; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitPanel();
    void SizeColumns();
    void SetFileTypeIcon(int row);
    void ShowOrder();
    void ShowElided(const QHelpEvent& event);

    ActivePanel& m_panel;
    const Desktop m_desktop;
    FileTypeModel m_model;
};
