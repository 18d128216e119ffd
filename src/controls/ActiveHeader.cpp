#include "controls/ActiveHeader.h"

#include "base/Twips.h"
#include "controls/CaptionFit.h"
#include "controls/ControlPainting.h"
#include "controls/PanelAccessibility.h"
#include "controls/PlainText.h"
#include "controls/SystemColors.h"

#include <QHelpEvent>
#include <QStyle>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <vector>

namespace {

constexpr int kCloseSize = 15;  // pixels at 96 to the inch
const QString kDots = QStringLiteral("...");

// A close button without a picture: the cross follows the header's colours and is sharp at every scale.
class CrossButton : public ActiveButton {
public:
    explicit CrossButton(ActiveHeader& header) : ActiveButton(&header), m_header(header) {}

protected:
    void DrawImage(QPainter& painter, const QRect& area) override
    {
        if (!Image().isNull()) return ActiveButton::DrawImage(painter, area);
        const double arm = std::min(area.width(), area.height()) * 0.25;
        const QPointF middle = QRectF(area).center();
        const auto color = State() == ButtonModel::Normal ? m_header.ForeColor() : OleColor::ButtonText;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(SystemColor(color, palette()), 1.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(middle + QPointF(-arm, -arm), middle + QPointF(arm, arm));
        painter.drawLine(middle + QPointF(-arm, arm), middle + QPointF(arm, -arm));
        painter.setRenderHint(QPainter::Antialiasing, false);
    }

private:
    ActiveHeader& m_header;
};

// The ends of what a reader takes for one character.
std::vector<qsizetype> CharacterEnds(const QString& text)
{
    std::vector<qsizetype> ends{0};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() > 0) ends.push_back(finder.position());
    return ends;
}

}  // namespace

ActiveHeader::ActiveHeader(QWidget* parent) : MouseTeller(parent), m_closeButton(new CrossButton(*this))
{
    InstallPanelAccessibility();
    m_closeButton->setObjectName(QStringLiteral("btnClose"));
    m_closeButton->setFocusPolicy(Qt::NoFocus);
    m_closeButton->resize(qRound(kCloseSize * logicalDpiX() / 96.0),
                          qRound(kCloseSize * logicalDpiY() / 96.0));
    connect(m_closeButton, &ActiveButton::Click, this, &ActiveHeader::CloseClick);
    SetCaption({});
}

HeaderSize ActiveHeader::Size() const
{
    return {static_cast<int>(TwipsFromPixels(width(), logicalDpiX())),
            static_cast<int>(TwipsFromPixels(height(), logicalDpiY())), kTwipsPerInch / logicalDpiX(),
            kTwipsPerInch / logicalDpiY(), m_borderWidth};
}

UnitRect ActiveHeader::Usable() const
{
    return UsableArea(Size(), static_cast<int>(TwipsFromPixels(m_closeButton->width(), logicalDpiX())));
}

bool ActiveHeader::HasImage() const
{
    return !m_image.isNull() && m_image.deviceIndependentSize().width() >= 1 &&
           m_image.deviceIndependentSize().height() >= 1;
}

ImageSpan ActiveHeader::ImageAcross() const
{
    const double width = HasImage() ? m_image.deviceIndependentSize().width() : 0;
    return PlaceImage(Usable().width, static_cast<int>(TwipsFromPixels(width, logicalDpiX())), false);
}

ImageSpan ActiveHeader::ImageDown() const
{
    const double height = HasImage() ? m_image.deviceIndependentSize().height() : 0;
    return PlaceImage(Usable().height, static_cast<int>(TwipsFromPixels(height, logicalDpiY())),
                      m_centerCaption);
}

UnitRect ActiveHeader::CaptionRoom() const
{
    const auto textHeight = TwipsFromPixels(QFontMetricsF(font()).height(), logicalDpiY());
    return CaptionPlace(Size(), Usable(), ImageAcross().length, static_cast<int>(textHeight),
                        m_centerCaption);
}

QString ActiveHeader::ShownCaption() const
{
    const QFontMetricsF metrics(font());
    const auto widthOf = [&](const QString& text) {
        return static_cast<int>(TwipsFromPixels(metrics.horizontalAdvance(text), logicalDpiX()));
    };
    const auto ends = CharacterEnds(m_plainCaption);
    const auto beginning = [&](std::size_t count) { return m_plainCaption.left(ends[count]) + kDots; };
    const CaptionMeasures caption{ends.size() - 1, widthOf(m_plainCaption), widthOf(kDots),
                                  widthOf(QStringLiteral("W."))};
    const auto cut = FitCaption(caption, CaptionRoom().width,
                                [&](std::size_t count) { return widthOf(beginning(count)); });
    switch (cut.kind) {
    case CaptionCut::Whole: return m_plainCaption;
    case CaptionCut::Prefix: return beginning(cut.count);
    case CaptionCut::Nothing: break;
    }
    return {};
}

void ActiveHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), SystemColor(m_backColor, palette()));
    DrawEdge(painter, rect(), m_appearance == 1 ? EdgeStyle::Raised : EdgeStyle::Flat, m_borderWidth,
             palette());
    if (HasImage()) DrawPicture(painter);
    DrawCaption(painter);
}

void ActiveHeader::DrawPicture(QPainter& painter) const
{
    const auto inPixels = [](const ImageSpan& span, int dpi) {
        const auto pixels = [dpi](int twips) { return qRound(PixelsFromTwips(twips, dpi)); };
        return ImageSpan{pixels(span.place), pixels(span.source), pixels(span.length)};
    };
    const auto across = inPixels(ImageAcross(), logicalDpiX());
    const auto down = inPixels(ImageDown(), logicalDpiY());
    const auto usable = Usable();
    const int left = qRound(PixelsFromTwips(usable.left, logicalDpiX()));
    const int top = qRound(PixelsFromTwips(usable.top, logicalDpiY()));
    const QRect place(left, top, across.length, down.length);
    DrawImagePart(painter, m_image, QStyle::visualRect(layoutDirection(), rect(), place).topLeft(), across,
                  down);
}

// A disabled caption is embossed: its light edge one pixel right of and below its shadow.
void ActiveHeader::DrawCaption(QPainter& painter) const
{
    const auto text = ShownCaption();
    if (text.isEmpty()) return;
    const auto room = CaptionRoom();
    const QFontMetricsF metrics(font());
    const double textWidth = metrics.horizontalAdvance(text);
    double left = PixelsFromTwips(room.left, logicalDpiX());
    if (isRightToLeft()) left = width() - left - textWidth;
    const QRectF place(left, qRound(PixelsFromTwips(room.top, logicalDpiY())), textWidth + 1,
                       metrics.height());
    const auto print = [&](double offset, std::uint32_t color) {
        painter.setPen(SystemColor(color, palette()));
        painter.drawText(place.translated(offset, offset),
                         static_cast<int>(Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignTop) |
                             Qt::TextSingleLine | Qt::TextDontClip,
                         text);
    };
    painter.setLayoutDirection(layoutDirection());
    if (!isEnabled()) print(1, OleColor::ButtonHighlight);
    print(0, isEnabled() ? m_foreColor : OleColor::ButtonShadow);
}

void ActiveHeader::PlaceClose()
{
    const auto place =
        ClosePlace(Size(), static_cast<int>(TwipsFromPixels(m_closeButton->width(), logicalDpiX())),
                   static_cast<int>(TwipsFromPixels(m_closeButton->height(), logicalDpiY())));
    const QRect pixels(qRound(PixelsFromTwips(place.left, logicalDpiX())),
                       qRound(PixelsFromTwips(place.top, logicalDpiY())), m_closeButton->width(),
                       qRound(PixelsFromTwips(place.height, logicalDpiY())));
    m_closeButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), pixels));
}

void ActiveHeader::resizeEvent(QResizeEvent*)
{
    PlaceClose();
    Q_EMIT Resize();
}

// A caption that is cut can be read in a tool tip.
bool ActiveHeader::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return MouseTeller::event(event);
    const bool isCut = ShownCaption() != m_plainCaption;
    const auto place = static_cast<QHelpEvent*>(event)->globalPos();
    QToolTip::showText(place, isCut ? Qt::convertFromPlainText(m_plainCaption) : toolTip(), this);
    return true;
}

void ActiveHeader::changeEvent(QEvent* event)
{
    MouseTeller::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) EnableClose();
    if (event->type() == QEvent::LayoutDirectionChange) PlaceClose();
    update();
}
