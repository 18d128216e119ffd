#include "controls/ActivePanel.h"

#include "controls/ControlErrors.h"
#include "controls/PlainText.h"
#include "controls/StoredLook.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

tl::unexpected<SystemError> FailInvalidArgument()
{
    return Fail(ControlError::InvalidArgument, "ActivePanel", std::string(ControlError::InvalidArgumentText));
}

}  // namespace

void ActivePanel::SetAppearance(int appearance)
{
    m_appearance = appearance;
    m_changed.Mark("Appearance");
    LayOutParts();
    update();
}

void ActivePanel::SetBackColor(std::uint32_t color)
{
    m_backColor = color;
    m_changed.Mark("BackColor");
    ShowColors();
}

void ActivePanel::SetForeColor(std::uint32_t color)
{
    m_foreColor = color;
    m_changed.Mark("ForeColor");
    ShowColors();
}

void ActivePanel::SetEnabled(bool isOn)
{
    setEnabled(isOn);
    m_header->SetEnabled(isOn);
    m_changed.Mark("Enabled");
}

// Of the surface and what lies on it; the header keeps its own.
void ActivePanel::SetFont(const QFont& font)
{
    m_header->setFont(OwnFont(m_header->font()));
    m_surface->setFont(font);
    m_changed.Mark("Font");
}

void ActivePanel::SetBorderStyle(int style)
{
    m_borderStyle = style;
    m_changed.Mark("BorderStyle");
    LayOutParts();
    update();
}

void ActivePanel::SetClipControls(bool clip)
{
    m_clipControls = clip;
    m_changed.Mark("ClipControls");
}

void ActivePanel::SetMousePointer(int pointer)
{
    m_mousePointer = pointer;
    m_changed.Mark("MousePointer");
    ShowPointer(*m_surface, m_mousePointer, m_mouseIcon);
}

void ActivePanel::SetMouseIcon(const QPixmap& icon)
{
    m_mouseIcon = icon;
    m_changed.Mark("MouseIcon");
    ShowPointer(*m_surface, m_mousePointer, m_mouseIcon);
}

// Positions in the old unit mean nothing in the new one: what was scrolled goes back to its beginning first.
template <class Change>
Done ActivePanel::ChangeScale(Change change)
{
    auto changed = m_scale;
    if (!change(changed)) return FailInvalidArgument();
    m_bars->Request(ScrollAxis::Horizontal, ScrollCode::Top);
    m_bars->Request(ScrollAxis::Vertical, ScrollCode::Top);
    m_scale = changed;
    m_changed.Mark("ScaleMode_");
    LayOutParts();
    if (AutoScroll() && isVisible()) UpdateScrollExtent();
    return {};
}

Done ActivePanel::SetScaleMode(int mode)
{
    return ChangeScale([mode](CoordinateScale& scale) { return scale.SetMode(mode); });
}

Done ActivePanel::Scale(float left, float top, float width, float height)
{
    return ChangeScale([=](CoordinateScale& scale) { return scale.SetUser(left, top, width, height); });
}

void ActivePanel::Scale()
{
    (void)SetScaleMode(CoordinateScale::kTwips);  // there is such a mode
}

float ActivePanel::TextWidth(const std::string& text) const
{
    const QFontMetricsF metrics(m_surface->font());
    return static_cast<float>(m_scale.FromPixelsX(metrics.horizontalAdvance(PlainText(text))));
}

float ActivePanel::TextHeight(const std::string& text) const
{
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return static_cast<float>(
        m_scale.FromPixelsY(QFontMetricsF(m_surface->font()).height() * static_cast<double>(lines)));
}

void ActivePanel::SetImage(const QPixmap& image)
{
    m_header->SetImage(image);
    m_changed.Mark("Image");
}

void ActivePanel::SetCaption(std::string caption)
{
    setAccessibleName(PlainText(caption));
    m_header->SetCaption(std::move(caption));
    m_changed.Mark("Caption");
}

void ActivePanel::SetHeaderBackColor(std::uint32_t color)
{
    m_header->SetBackColor(color);
    m_changed.Mark("HeaderBackColor");
}

void ActivePanel::SetHeaderForeColor(std::uint32_t color)
{
    m_header->SetForeColor(color);
    m_changed.Mark("HeaderForeColor");
}

void ActivePanel::SetHeaderBorderWidth(int width)
{
    m_header->SetBorderWidth(width);
    m_changed.Mark("HeaderBorderWidth");
}

void ActivePanel::SetHeaderCenterCaption(bool isCentered)
{
    m_header->SetCenterCaption(isCentered);
    m_changed.Mark("HeaderCenterCaption");
}

void ActivePanel::SetHeaderFont(const QFont& font)
{
    m_header->SetFont(font);
    m_changed.Mark("HeaderFont");
}

void ActivePanel::SetHeaderAlign(HeaderSide side)
{
    m_headerSide = side;
    LayOutParts();
}

void ActivePanel::SetShowScrollBars(bool isShown)
{
    m_showScrollBars = isShown;
    if (isShown == !m_bars->isHidden()) return;
    m_bars->setVisible(isShown);
    m_changed.Mark("ShowScrollBars");
}

void ActivePanel::SetAutoScroll(bool isAutomatic)
{
    if (isAutomatic == AutoScroll()) return;
    m_changed.Mark("AutoScroll");
    m_bars->SetAutoScroll(isAutomatic);
    if (isAutomatic) UpdateScrollExtent();
}

Done ActivePanel::SetExtent(float& field, float value, const char* name)
{
    if (!(value >= 0) || std::isinf(value)) return FailInvalidArgument();
    if (value == field) return {};
    field = value;
    m_changed.Mark(name);
    if (&field == &m_scrollWidth)
        m_bars->SetScrollExtentX(value);
    else
        m_bars->SetScrollExtentY(value);
    return {};
}

Done ActivePanel::SetScrollWidth(float width)
{
    return SetExtent(m_scrollWidth, width, "ScrollWidth");
}

Done ActivePanel::SetScrollHeight(float height)
{
    return SetExtent(m_scrollHeight, height, "ScrollHeight");
}

void ActivePanel::SetMargin(float margin)
{
    m_margin = margin;
    m_changed.Mark("Margin");
}
