#pragma once

// The mouse pointer over the whole program: 0 the usual one, 11 the hourglass.
class ScreenPointer {
public:
    static constexpr int Default = 0;
    static constexpr int Hourglass = 11;

    virtual ~ScreenPointer() = default;
    virtual int Get() const = 0;
    virtual void Set(int pointer) = 0;  // cheap; takes effect at the next paint
};

// Shows a busy pointer for the life of one object: remembers the pointer when created, puts it back when
// destroyed.
class CWaitCursor {
public:
    explicit CWaitCursor(ScreenPointer& screen) : m_screen(screen), m_before(screen.Get()) {}
    ~CWaitCursor() { m_screen.Set(m_before); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    void ShowCursor(int pointer) { m_screen.Set(pointer); }

private:
    ScreenPointer& m_screen;
    const int m_before;
};
