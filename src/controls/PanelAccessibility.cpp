#include "controls/PanelAccessibility.h"

#include "controls/ActiveButton.h"
#include "controls/ActiveHeader.h"
#include "controls/ActivePanel.h"
#include "controls/ScrollBars.h"

#include <QAccessibleWidget>

namespace {

class ButtonInterface : public QAccessibleWidget {
public:
    explicit ButtonInterface(ActiveButton& button)
        : QAccessibleWidget(&button, QAccessible::PushButton),
          m_button(button)
    {
    }

    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.pressed = m_button.State() == ButtonModel::Pressed;
        state.hotTracked = m_button.State() == ButtonModel::Hot;
        return state;
    }

    QStringList actionNames() const override
    {
        auto names = QAccessibleWidget::actionNames();
        if (m_button.isEnabled()) names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            m_button.PressOnce();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    ActiveButton& m_button;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object)
{
    if (auto* const button = qobject_cast<ActiveButton*>(object)) return new ButtonInterface(*button);
    if (auto* const header = qobject_cast<ActiveHeader*>(object))
        return new QAccessibleWidget(header, QAccessible::Heading);
    if (auto* const panel = qobject_cast<ActivePanel*>(object))
        return new QAccessibleWidget(panel, QAccessible::Pane);
    if (auto* const bars = qobject_cast<ScrollBars*>(object))
        return new QAccessibleWidget(bars, QAccessible::Grouping);
    return nullptr;
}

}  // namespace

void InstallPanelAccessibility()
{
    QAccessible::installFactory(MakeInterface);
}
