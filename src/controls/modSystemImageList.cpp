#include "controls/modSystemImageList.h"

#include "controls/Images.h"
#include "controls/modWndProc.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMimeDatabase>
#include <QVariant>

#include <utility>

namespace {

constexpr int kSmallExtent = 16;
constexpr int kLargeExtent = 32;
constexpr qsizetype kLongestExtension = 64;
constexpr qsizetype kMostRemembered = 20'000;  // extensions; a server may invent any number

const char* PropertyOf(modSystemImageList::Kind kind)
{
    return kind == modSystemImageList::Kind::Small ? "ImageList(1)" : "ImageList(0)";
}

modSystemImageList::List ListOf(const QAbstractItemView& view, modSystemImageList::Kind kind)
{
    return view.property(PropertyOf(kind)).value<modSystemImageList::List>();
}

// The request to give a view another list. Whoever stands before the view takes it by accepting it.
class SetImageListMessage : public QEvent {
public:
    SetImageListMessage() : QEvent(Kind()) {}

    static QEvent::Type Kind()
    {
        static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
        return type;
    }
};

bool KeepSharedLists(QWidget* view, QEvent* message)
{
    if (message->type() == SetImageListMessage::Kind()) {
        message->accept();
        return true;
    }
    if (message->type() != QEvent::Destroy) return false;
    const bool answer = modWndProc::CallPrevious(view, message);
    modWndProc::Unsubclass(view);
    return answer;
}

// The program's own icon for a type that the desktop shows as `themeName`, or as `genericName` with its kind.
QString OwnIcon(const QString& themeName, const QString& genericName)
{
    static constexpr std::pair<const char*, const char*> kOwn[] = {
        {"text-html", "FileWeb"},
        {"application-xhtml", "FileWeb"},
        {"text-css", "FileScript"},
        {"text-x-script", "FileScript"},
        {"image-", "FileImage"},
        {"audio-", "FileAudio"},
        {"video-", "FileVideo"},
        {"package-", "FileArchive"},
        {"x-office-", "FileOffice"},
        {"font-", "FileFont"},
        {"application-x-executable", "FileProgram"},
        {"text-", "FileText"},  // after the particular kinds of text
    };
    for (const auto& [prefix, own] : kOwn) {
        const QLatin1String start(prefix);
        if (themeName.startsWith(start) || genericName.startsWith(start)) return QLatin1String(own);
    }
    return QStringLiteral("FileGeneric");
}

}  // namespace

modSystemImageList::modSystemImageList()
    : m_icons(std::make_shared<QList<QIcon>>()),
      m_small(std::make_shared<ImageList>(m_icons, kSmallExtent)),
      m_large(std::make_shared<ImageList>(m_icons, kLargeExtent))
{
    const auto unknown = QMimeDatabase().mimeTypeForName(QStringLiteral("application/octet-stream"));
    IndexOfIcon(unknown.iconName(), unknown.genericIconName());
}

int modSystemImageList::IconIndex(const QString& fileName, int)
{
    const auto dot = fileName.lastIndexOf(u'.');
    const auto length = fileName.size() - dot - 1;
    if (dot < 0 || length == 0 || length > kLongestExtension) return 0;
    const auto extension = fileName.sliced(dot + 1).toLower();
    if (const auto known = m_byExtension.constFind(extension); known != m_byExtension.cend()) return *known;
    if (m_byExtension.size() >= kMostRemembered) m_byExtension.clear();
    return *m_byExtension.insert(extension, IndexOfType(extension));
}

int modSystemImageList::IndexOfType(const QString& extension)
{
    if (extension.contains(u'/')) return 0;
    const auto name = QStringLiteral("file.") + extension;
    const auto type = QMimeDatabase().mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    return type.isDefault() ? 0 : IndexOfIcon(type.iconName(), type.genericIconName());
}

int modSystemImageList::IndexOfIcon(const QString& themeName, const QString& genericName)
{
    const bool hasExact = QIcon::hasThemeIcon(themeName);
    const bool isOwn = !hasExact && !QIcon::hasThemeIcon(genericName);
    const auto key = isOwn ? OwnIcon(themeName, genericName) : hasExact ? themeName : genericName;
    if (const auto known = m_byIcon.constFind(key); known != m_byIcon.cend()) return *known;
    m_icons->append(isOwn ? Image(key) : QIcon::fromTheme(key));
    return *m_byIcon.insert(key, static_cast<int>(m_icons->size() - 1));
}

modSystemImageList::List modSystemImageList::SetImageList(QAbstractItemView& view, const List& list,
                                                          Kind kind)
{
    SetImageListMessage message;
    message.setAccepted(false);
    QCoreApplication::sendEvent(&view, &message);
    if (message.isAccepted()) return nullptr;
    const auto before = ListOf(view, kind);
    view.setProperty(PropertyOf(kind), QVariant::fromValue(list));
    if (list && kind == Kind::Small) view.setIconSize(QSize(list->Extent(), list->Extent()));
    return before;
}

bool modSystemImageList::SetItem(QAbstractItemView& view, const Item& item)
{
    const auto list = ListOf(view, Kind::Small);
    auto* const model = view.model();
    return list && model != nullptr &&
           model->setData(model->index(item.row, 0), list->Icon(item.image), Qt::DecorationRole);
}

void modSystemImageList::AttachSystemImageList(QAbstractItemView& view) const
{
    SetImageList(view, SystemImageList(Small), Kind::Small);
    SetImageList(view, SystemImageList(0), Kind::Normal);
    // A view that cannot be subclassed has its lists all the same.
    static_cast<void>(modWndProc::Subclass(&view, KeepSharedLists));
}

void modSystemImageList::DetachSystemImageList(QAbstractItemView& view)
{
    modWndProc::Unsubclass(&view);
}
