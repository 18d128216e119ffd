#include "controls/AccessibleSplitterBar.h"

#include "controls/SplitterBar.h"
#include "controls/SplitterCore.h"

#include <QAccessibleWidget>

namespace {

// What stands in a pane; of a splitter, the first in it that has a name.
QString NameIn(const Pane& pane)
{
    const auto* const control = pane.Control();
    const auto own = control ? control->accessibleName() : QString();
    if (!own.isEmpty() || !pane.Child()) return own;
    for (const auto& inner : *pane.Child()) {
        if (const auto name = NameIn(*inner); !name.isEmpty()) return name;
    }
    return {};
}

QString StandardName(const Panes& panes)
{
    QStringList names;
    for (const auto& pane : panes) names += NameIn(*pane);
    if (names.size() != 2 || names.contains(QString())) return SplitterBar::tr("Divider");
    return SplitterBar::tr("Divider between %1 and %2").arg(names[0], names[1]);
}

class AccessibleSplitterBar : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleSplitterBar(SplitterBar& bar) : QAccessibleWidget(&bar, QAccessible::Splitter) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) return SplitterBar::tr("%1 %").arg(Splitter().SplitterPos());
        const auto own = QAccessibleWidget::text(kind);
        if (kind != QAccessible::Name || !own.isEmpty()) return own;
        const auto name = Bar().parentWidget()->accessibleName();
        return name.isEmpty() ? StandardName(Splitter().Panes()) : name;
    }

    QVariant currentValue() const override { return Splitter().SplitterPos(); }
    QVariant minimumValue() const override { return Splitter().SplitterPosMin(); }
    QVariant maximumValue() const override { return Splitter().SplitterPosMax(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override { Bar().MoveTo(value.toInt()); }

private:
    SplitterBar& Bar() const { return *static_cast<SplitterBar*>(widget()); }
    const SplitterCore& Splitter() const { return Bar().Splitter(); }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* const bar = qobject_cast<SplitterBar*>(object);
    return bar ? new AccessibleSplitterBar(*bar) : nullptr;
}

}  // namespace

void InstallSplitterBarAccess()
{
    QAccessible::installFactory(MakeAccess);
}
