#include "controls/ScrollBars.h"

#include <string>

namespace {

constexpr ScrollAxis kAxes[] = {ScrollAxis::Horizontal, ScrollAxis::Vertical};

std::string NameOf(const char* name, ScrollAxis axis)
{
    return name + std::string(axis == ScrollAxis::Horizontal ? "X" : "Y");
}

}  // namespace

void ScrollBars::Changed(const char* name, ScrollAxis axis)
{
    m_changed.Mark(NameOf(name, axis));
}

void ScrollBars::SetPosition(ScrollAxis axis, float position)
{
    m_model.SetPosition(axis, position);
    ShowBars();
    Changed("Pos", axis);
}

void ScrollBars::SetMinimum(ScrollAxis axis, float minimum)
{
    m_model.SetMinimum(axis, minimum);
    ShowBars();
    Changed("Min", axis);
}

Done ScrollBars::SetMaximum(ScrollAxis axis, float maximum)
{
    if (auto done = m_model.SetMaximum(axis, maximum); !done) return done;
    ShowBars();
    Changed("Max", axis);
    return {};
}

void ScrollBars::SetPage(ScrollAxis axis, float page)
{
    m_model.SetPage(axis, page);
    ShowBars();
    Changed("Page", axis);
}

void ScrollBars::SetWanted(ScrollAxis axis, bool isWanted)
{
    m_model.SetWanted(axis, isWanted);
    ShowBars();
    Changed("Show", axis);
}

void ScrollBars::SetExtent(ScrollAxis axis, float extent)
{
    Changed("ScrollExtent", axis);
    Settle(m_model.SetExtent(axis, extent));
}

void ScrollBars::SetAutoScroll(bool isAutomatic)
{
    m_changed.Mark("AutoScroll");
    Settle(m_model.SetAutomatic(isAutomatic));
}

void ScrollBars::SetFitContainer(bool fits)
{
    m_fitsContainer = fits;
    m_changed.Mark("FitContainer");
    if (fits) AutoFit(0, 0, -1, -1);
}

void ScrollBars::Load(const PropertyBag& bag)
{
    m_fitsContainer = bag.ReadBool("FitContainer", false);
    m_model.LoadAutomatic(bag.ReadBool("AutoScroll", true));
    for (const auto axis : kAxes) {
        const auto number = [&](const char* name) { return bag.ReadFloat(NameOf(name, axis), 0); };
        ScrollModel::Axis stored;
        stored.minimum = number("Min");
        stored.maximum = number("Max");
        stored.page = number("Page");
        stored.isWanted = bag.ReadBool(NameOf("Show", axis), true);
        stored.extent = number("ScrollExtent");
        m_model.Load(axis, stored);
    }
    m_changed.Clear();
    if (isVisible()) Settle(m_model.Show());
}

void ScrollBars::Save(PropertyBag& bag) const
{
    bag.WriteBool("FitContainer", m_fitsContainer, false);
    bag.WriteBool("AutoScroll", AutoScroll(), true);
    for (const auto axis : kAxes) {
        const auto& one = Model(axis);
        bag.WriteFloat(NameOf("Min", axis), one.minimum, 0);
        bag.WriteFloat(NameOf("Max", axis), one.maximum, 0);
        bag.WriteFloat(NameOf("Page", axis), one.page, 0);
        bag.WriteBool(NameOf("Show", axis), one.isWanted, true);
        bag.WriteFloat(NameOf("ScrollExtent", axis), one.extent, 0);
    }
}
