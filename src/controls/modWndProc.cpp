#include "controls/modWndProc.h"

#include "controls/ControlErrors.h"

#include <QEvent>
#include <QPointer>
#include <QThread>
#include <QVariant>

#include <memory>
#include <utility>

namespace {

constexpr char kOldWndProc[] = "OldWndProc";
constexpr char kObjectPtr[] = "ObjectPtr";

// Stands before a window, which owns it, from Install() to Retire() or the window's end.
class Subclassing : public QObject {
public:
    Subclassing(QWidget& window, modWndProc::Procedure procedure)
        : QObject(&window),
          m_window(&window),
          m_procedure(std::make_shared<modWndProc::Procedure>(std::move(procedure)))
    {
    }

    ~Subclassing() override
    {
        if (!m_window) return;
        QEvent last(QEvent::Destroy);
        (*std::shared_ptr(m_procedure))(m_window, &last);
    }

    Subclassing(const Subclassing&) = delete;
    Subclassing& operator=(const Subclassing&) = delete;

    void Install() { m_window->installEventFilter(this); }

    void Retire()
    {
        std::exchange(m_window, nullptr)->removeEventFilter(this);
        deleteLater();
    }

    bool PassOn(QEvent* message)
    {
        m_wasPassedOn = true;
        return static_cast<QObject*>(m_window)->event(message);
    }

protected:
    bool eventFilter(QObject*, QEvent* message) override
    {
        if (!m_window) return false;
        const QPointer<Subclassing> alive(this);
        const auto procedure = m_procedure;
        const bool outer = std::exchange(m_wasPassedOn, false);
        const bool isConsumed = (*procedure)(m_window, message);
        return alive.isNull() || std::exchange(m_wasPassedOn, outer) || isConsumed;
    }

private:
    QWidget* m_window;
    std::shared_ptr<modWndProc::Procedure> m_procedure;  // shared with its calls, which may end this object
    bool m_wasPassedOn = false;                          // the message that is with the procedure
};

Subclassing* SubclassingOf(const QWidget* window)
{
    return window ? dynamic_cast<Subclassing*>(window->property(kOldWndProc).value<QObject*>()) : nullptr;
}

bool Put(QWidget& window, const char* property, QObject* value)
{
    window.setProperty(property, QVariant::fromValue(value));
    return window.property(property).value<QObject*>() == value;
}

void RemoveProperties(QWidget& window)
{
    window.setProperty(kOldWndProc, QVariant());
    window.setProperty(kObjectPtr, QVariant());
}

bool Install(QWidget& window, modWndProc::Procedure procedure, QObject* owner)
{
    auto* const subclassing = new Subclassing(window, std::move(procedure));
    if (Put(window, kOldWndProc, subclassing) && (!owner || Put(window, kObjectPtr, owner))) {
        subclassing->Install();
        return true;
    }
    subclassing->Retire();
    RemoveProperties(window);
    return false;
}

}  // namespace

Result<bool> modWndProc::Subclass(QWidget* window, Procedure procedure, QObject* owner)
{
    if (SubclassingOf(window)) return true;
    const bool isUsable = window != nullptr && procedure && window->thread() == QThread::currentThread();
    if (isUsable && Install(*window, std::move(procedure), owner)) return true;
    const auto handle = QString::number(reinterpret_cast<quintptr>(window), 16).toUpper();
    return Fail(ControlError::CannotSubclass, "modWndProc",
                "Error subclassing window &H" + handle.toStdString() + " (Err# 0: )");
}

bool modWndProc::Unsubclass(QWidget* window)
{
    auto* const subclassing = SubclassingOf(window);
    if (!subclassing) return false;
    subclassing->Retire();
    RemoveProperties(*window);
    return true;
}

bool modWndProc::CallPrevious(QWidget* window, QEvent* message)
{
    auto* const subclassing = SubclassingOf(window);
    return subclassing != nullptr && subclassing->PassOn(message);
}
