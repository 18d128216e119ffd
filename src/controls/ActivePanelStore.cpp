#include "controls/ActivePanel.h"

#include "controls/StoredLook.h"

// A stored value that the property refuses counts as its default.
void ActivePanel::Load(const PropertyBag& bag)
{
    SetAppearance(bag.ReadInt("Appearance", 1));
    SetBackColor(bag.ReadColor("BackColor", OleColor::WindowBackground));
    SetForeColor(bag.ReadColor("ForeColor", OleColor::WindowText));
    SetEnabled(bag.ReadBool("Enabled", true));
    SetFont(ReadFont(bag, "Font", QFont()));
    SetBorderStyle(bag.ReadInt("BorderStyle", 1));
    SetClipControls(bag.ReadBool("ClipControls", true));
    SetMouseIcon(ReadPicture(bag, "MouseIcon"));
    SetMousePointer(bag.ReadInt("MousePointer", 0));
    LoadScale(bag);

    SetImage(ReadPicture(bag, "Image"));
    SetCaption(bag.ReadText("Caption", {}));
    SetHeaderBackColor(bag.ReadColor("HeaderBackColor", OleColor::ButtonFace));
    SetHeaderForeColor(bag.ReadColor("HeaderForeColor", OleColor::ButtonText));
    SetHeaderBorderWidth(bag.ReadInt("HeaderBorderWidth", 1));
    SetHeaderCenterCaption(bag.ReadBool("HeaderCenterCaption", true));
    SetHeaderFont(ReadFont(bag, "HeaderFont", bag.Contains("Font") ? OwnFont(font()) : QFont()));

    SetShowScrollBars(bag.ReadBool("ShowScrollBars", true));
    SetAutoScroll(bag.ReadBool("AutoScroll", true));
    if (!SetScrollWidth(bag.ReadFloat("ScrollWidth", 0))) m_scrollWidth = 0;
    if (!SetScrollHeight(bag.ReadFloat("ScrollHeight", 0))) m_scrollHeight = 0;
    SetMargin(bag.ReadFloat("Margin", 60));
    m_bars->setVisible(m_showScrollBars);
    m_changed.Clear();
}

void ActivePanel::LoadScale(const PropertyBag& bag)
{
    const int mode = bag.ReadInt("ScaleMode_", CoordinateScale::kTwips);
    const bool isTaken = mode == CoordinateScale::kUser
                             ? Scale(bag.ReadFloat("ScaleLeft", 0), bag.ReadFloat("ScaleTop", 0),
                                     bag.ReadFloat("ScaleWidth", -1), bag.ReadFloat("ScaleHeight", -1))
                                   .has_value()
                             : SetScaleMode(mode).has_value();
    if (!isTaken) Scale();
}

void ActivePanel::Save(PropertyBag& bag) const
{
    bag.WriteInt("Appearance", m_appearance, 1);
    bag.WriteColor("BackColor", m_backColor, OleColor::WindowBackground);
    bag.WriteColor("ForeColor", m_foreColor, OleColor::WindowText);
    bag.WriteBool("Enabled", Enabled(), true);
    WriteFont(bag, "Font", m_surface->font(), HostFont(*this));
    bag.WriteInt("BorderStyle", m_borderStyle, 1);
    bag.WriteBool("ClipControls", m_clipControls, true);
    WritePicture(bag, "MouseIcon", m_mouseIcon);
    bag.WriteInt("MousePointer", m_mousePointer, 0);
    bag.WriteInt("ScaleMode_", ScaleMode(), CoordinateScale::kTwips);
    if (ScaleMode() == CoordinateScale::kUser) {
        bag.WriteFloat("ScaleLeft", ScaleLeft(), 0);
        bag.WriteFloat("ScaleTop", ScaleTop(), 0);
        bag.WriteFloat("ScaleHeight", ScaleHeight(), -1);
        bag.WriteFloat("ScaleWidth", ScaleWidth(), -1);
    }

    WritePicture(bag, "Image", Image());
    bag.WriteText("Caption", Caption(), {});
    bag.WriteColor("HeaderBackColor", HeaderBackColor(), OleColor::ButtonFace);
    bag.WriteColor("HeaderForeColor", HeaderForeColor(), OleColor::ButtonText);
    bag.WriteInt("HeaderBorderWidth", HeaderBorderWidth(), 1);
    bag.WriteBool("HeaderCenterCaption", HeaderCenterCaption(), true);
    WriteFont(bag, "HeaderFont", HeaderFont(), HostFont(*this));

    bag.WriteBool("ShowScrollBars", m_showScrollBars, true);
    bag.WriteBool("AutoScroll", AutoScroll(), true);
    bag.WriteFloat("ScrollWidth", m_scrollWidth, 0);
    bag.WriteFloat("ScrollHeight", m_scrollHeight, 0);
    bag.WriteFloat("Margin", m_margin, 60);
}
