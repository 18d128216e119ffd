#include "help/HelpView.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextTable>
#include <QUrl>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int kLeastZoom = -4;
constexpr int kMostZoom = 12;
constexpr double kPageMargin = 12;
constexpr double kCellPadding = 4;
constexpr double kAboveHeading = 14;
constexpr double kAroundBlock = 6;
constexpr float kMarkOpacity = 0.35F;
constexpr float kLineOpacity = 0.3F;

QUrl UrlOf(const std::string& key)
{
    QUrl url;
    url.setScheme(QStringLiteral("help"));
    url.setPath(QLatin1Char('/') + QString::fromStdString(key) + QStringLiteral(".md"));
    return url;
}

}  // namespace

HelpView::HelpView(const HelpBook& book, QWidget* parent) : QTextBrowser(parent), m_book(book)
{
    setOpenLinks(false);
    setOpenExternalLinks(false);
    document()->setDocumentMargin(kPageMargin);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpView::FollowLink);
    connect(this, &QTextBrowser::sourceChanged, this, [this] {
        MarkWords({});
        Dress();
    });
}

void HelpView::ShowPage(const std::string& key)
{
    setSource(UrlOf(key), QTextDocument::MarkdownResource);
}

std::string HelpView::PageKey() const
{
    const auto link = source().path().mid(1).toStdString();
    return std::string(KeyOfLink(link));
}

void HelpView::FollowLink(const QUrl& link)
{
    const auto target = link.path().mid(link.path().startsWith(u'/') ? 1 : 0).toStdString();
    const bool isOurs = link.isRelative() || link.scheme() == u"help";
    if (const auto key = KeyOfLink(target); isOurs && !key.empty()) ShowPage(std::string(key));
}

QVariant HelpView::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::MarkdownResource || name.scheme() != u"help") return {};
    const auto link = name.path().mid(1).toStdString();
    return QString::fromStdString(m_book.TextOf(KeyOfLink(link)));
}

void HelpView::doSetSource(const QUrl& name, QTextDocument::ResourceType type)
{
    if (name.scheme() == u"help") QTextBrowser::doSetSource(name, type);
}

void HelpView::Render()
{
    const int place = verticalScrollBar()->value();
    setMarkdown(QString::fromStdString(m_book.TextOf(PageKey())));
    Dress();
    MarkWords(QString(m_words));
    verticalScrollBar()->setValue(place);
}

// Gives tables their lines and headings room, which Markdown does not.
void HelpView::Dress()
{
    auto line = palette().color(QPalette::Text);
    line.setAlphaF(kLineOpacity);
    const auto frames = document()->rootFrame()->childFrames();
    for (auto* const frame : frames) {
        auto* const table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        auto format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderBrush(line);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellPadding(kCellPadding);
        format.setCellSpacing(0);
        format.setTopMargin(kAroundBlock);
        format.setBottomMargin(kAroundBlock);
        table->setFormat(format);
    }
    for (auto block = document()->begin(); block.isValid(); block = block.next()) {
        auto format = block.blockFormat();
        if (format.headingLevel() < 2) continue;
        format.setTopMargin(kAboveHeading);
        format.setBottomMargin(kAroundBlock);
        QTextCursor(block).setBlockFormat(format);
    }
}

void HelpView::Zoom(int steps)
{
    const int zoom = steps == 0 ? 0 : std::clamp(m_zoom + steps, kLeastZoom, kMostZoom);
    zoomIn(zoom - m_zoom);
    m_zoom = zoom;
}

void HelpView::MarkWords(const QString& words)
{
    m_words = words;
    QTextEdit::ExtraSelection mark;
    auto color = palette().color(QPalette::Highlight);
    color.setAlphaF(kMarkOpacity);
    mark.format.setBackground(color);
    QList<QTextEdit::ExtraSelection> marks;
    const auto parts = words.split(u' ', Qt::SkipEmptyParts);
    for (const auto& part : parts) {
        for (auto found = document()->find(part); !found.isNull(); found = document()->find(part, found)) {
            mark.cursor = found;
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
    if (marks.isEmpty()) return;
    // As many as stand side by side, as they were asked for.
    const auto wanted = words.toLower().toStdString();
    const auto text = toPlainText().toLower().toStdString();
    auto place = document()->find(QString::fromStdString(std::string(LongestRun(text, wanted))));
    if (place.isNull()) place = marks.first().cursor;
    place.setPosition(place.selectionStart());
    setTextCursor(place);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - height() / 3);
}

void HelpView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // The colours of links and borders are those of the moment when the page was made.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) Render();
}

void HelpView::wheelEvent(QWheelEvent* event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0) Zoom(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}
