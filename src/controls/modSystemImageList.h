#pragma once

#include <QAbstractItemView>
#include <QHash>
#include <QIcon>

#include <memory>

// The icons of file types in one size, shared by all who show them. New ones come at the end, so an index
// stays good for the life of the list.
class ImageList {
public:
    ImageList(std::shared_ptr<const QList<QIcon>> icons, int extent)
        : m_icons(std::move(icons)),
          m_extent(extent)
    {
    }

    QIcon Icon(int index) const { return m_icons->value(index, m_icons->first()); }
    int Extent() const { return m_extent; }  // width and height in device independent pixels

private:
    std::shared_ptr<const QList<QIcon>> m_icons;
    const int m_extent;
};

// The system's shared icon lists: which icon a file type has is the desktop's affair; where its icon theme
// has none, the program has a few of its own. One for the process; what views hold of it lives on without it.
class modSystemImageList {
public:
    using List = std::shared_ptr<const ImageList>;
    static constexpr int Small = 1;  // a flag; without it the large icons are meant
    enum class Kind { Normal = 0, Small = 1 };

    struct Item {
        int row;    // zero-based
        int image;  // index in the view's list
    };

    modSystemImageList();

    List SystemImageList(int flags) const { return (flags & Small) != 0 ? m_small : m_large; }

    // The icon of a name by its last extension alone, whether or not there is such a file: the same index in
    // both lists, 0 for a type that nobody knows. Cheap from the second time on.
    int IconIndex(const QString& fileName, int flags);

    // Gives a view the list that it takes a kind of icons from; answers the one it had. Null, and nothing
    // changes, while the system's lists are attached.
    static List SetImageList(QAbstractItemView& view, const List& list, Kind kind);

    // Shows an icon of the view's small list in the first column of a row, through the view's model. False
    // without a list or when the model does not take it.
    static bool SetItem(QAbstractItemView& view, const Item& item);

    // The view gets both lists and keeps them until it is detached, or ends.
    void AttachSystemImageList(QAbstractItemView& view) const;
    static void DetachSystemImageList(QAbstractItemView& view);

private:
    int IndexOfType(const QString& extension);
    int IndexOfIcon(const QString& themeName, const QString& genericName);

    std::shared_ptr<QList<QIcon>> m_icons;
    List m_small;
    List m_large;
    QHash<QString, int> m_byExtension;
    QHash<QString, int> m_byIcon;
};
