#include "controls/ActiveHeader.h"

#include "controls/PlainText.h"
#include "controls/StoredLook.h"

#include <algorithm>
#include <utility>

template <class T>
void ActiveHeader::Keep(T& field, T value, const char* name)
{
    field = std::move(value);
    m_changed.Mark(name);
    update();
}

void ActiveHeader::SetBackColor(std::uint32_t color)
{
    Keep(m_backColor, color, "BackColor");
    m_closeButton->SetBackColor(color);
}

void ActiveHeader::SetForeColor(std::uint32_t color)
{
    Keep(m_foreColor, color, "ForeColor");
    m_closeButton->update();
}

void ActiveHeader::SetFont(const QFont& font)
{
    m_changed.Mark("Font");
    setFont(font);
}

void ActiveHeader::SetCaption(std::string caption)
{
    Keep(m_caption, std::move(caption), "Caption");
    m_plainCaption = PlainText(m_caption);
    setAccessibleName(m_plainCaption);
    m_closeButton->setAccessibleName(m_plainCaption.isEmpty() ? tr("Close") : tr("Close ") + m_plainCaption);
}

void ActiveHeader::SetImage(const QPixmap& image)
{
    Keep(m_image, image, "Image");
}

void ActiveHeader::SetBorderWidth(int width)
{
    Keep(m_borderWidth, std::clamp(width, 0, 32767), "BorderWidth");
}

void ActiveHeader::SetAppearance(int appearance)
{
    Keep(m_appearance, appearance, "Appearance");
}

void ActiveHeader::SetCenterCaption(bool isCentered)
{
    Keep(m_centerCaption, isCentered, "CenterCaption");
}

void ActiveHeader::SetMousePointer(int pointer)
{
    Keep(m_mousePointer, pointer, "MousePointer");
    ShowPointer(*this, m_mousePointer, m_mouseIcon);
}

void ActiveHeader::SetMouseIcon(const QPixmap& icon)
{
    Keep(m_mouseIcon, icon, "MouseIcon");
    ShowPointer(*this, m_mousePointer, m_mouseIcon);
}

void ActiveHeader::SetEnabled(bool isOn)
{
    setEnabled(isOn);
    EnableClose();
    m_changed.Mark("Enabled");
}

// By what this header was told, not by what it lies in: a window that waits keeps its look.
void ActiveHeader::EnableClose()
{
    m_closeButton->setEnabled(Enabled());
    m_closeButton->setVisible(Enabled());
}

void ActiveHeader::Load(const PropertyBag& bag)
{
    SetBackColor(bag.ReadColor("BackColor", OleColor::ButtonFace));
    SetForeColor(bag.ReadColor("ForeColor", OleColor::ButtonText));
    SetEnabled(bag.ReadBool("Enabled", true));
    setFont(ReadFont(bag, "Font", QFont()));
    SetCaption(bag.ReadText("Caption", {}));
    SetImage(ReadPicture(bag, "Image"));
    SetBorderWidth(bag.ReadInt("BorderWidth", 2));
    SetAppearance(bag.ReadInt("Appearance", 1));
    SetCenterCaption(bag.ReadBool("CenterCaption", true));
    SetMouseIcon(ReadPicture(bag, "MouseIcon"));
    SetMousePointer(bag.ReadInt("MousePointer", 0));
    m_changed.Clear();
}

void ActiveHeader::Save(PropertyBag& bag) const
{
    bag.WriteColor("BackColor", m_backColor, OleColor::ButtonFace);
    bag.WriteColor("ForeColor", m_foreColor, OleColor::ButtonText);
    bag.WriteBool("Enabled", Enabled(), true);
    WriteFont(bag, "Font", font(), HostFont(*this));
    bag.WriteText("Caption", m_caption, {});
    WritePicture(bag, "Image", m_image);
    bag.WriteInt("BorderWidth", m_borderWidth, 2);
    bag.WriteInt("Appearance", m_appearance, 1);
    bag.WriteBool("CenterCaption", m_centerCaption, true);
    WritePicture(bag, "MouseIcon", m_mouseIcon);
    bag.WriteInt("MousePointer", m_mousePointer, 0);
}
