#pragma once

#include "base/Result.h"

#include <QWidget>

#include <functional>

// Puts a procedure before a window: it gets every message (event) to the window first. Two properties on the
// window tell of it: "OldWndProc" while it is subclassed, "ObjectPtr" when an owner was given.
// User-interface thread only.
namespace modWndProc {

// Answers true for a message that it consumed. One that it does not consume goes on by itself, to earlier
// filters and the window; a procedure that needs the window's answer, or acts after it, passes the message to
// CallPrevious and answers what that does. A procedure may unsubclass or delete the window. The last message
// of a window is QEvent::Destroy: the window is at its end, and so is the subclassing.
using Procedure = std::function<bool(QWidget* window, QEvent* message)>;

// True also for a window that is subclassed already; that changes nothing. Fails with 601, the window as it
// was, when there is no window or procedure, it lives in another thread, or it refuses a property.
Result<bool> Subclass(QWidget* window, Procedure procedure, QObject* owner = nullptr);

// False for a window that is not subclassed.
bool Unsubclass(QWidget* window);

// The window's own answer to a message, without the filters that others have installed; false for a window
// that is not subclassed.
bool CallPrevious(QWidget* window, QEvent* message);

}  // namespace modWndProc
