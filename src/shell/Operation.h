#pragma once

#include "shell/frmMain.h"

// Marks an operation that lets messages run. A window that the user closes meanwhile goes down when the
// outermost operation has ended, so that nothing below it on the stack works on a window that is gone.
class frmMain::Operation {
public:
    explicit Operation(frmMain& window) : m_window(window) { ++m_window.m_operations; }
    ~Operation()
    {
        if (--m_window.m_operations == 0 && m_window.m_isClosing) m_window.close();
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

private:
    frmMain& m_window;
};
