#pragma once

#include <QPointer>

/// Owns a window for as long as it is run in a nested event loop. Its parent may be destroyed in that loop, and takes
/// the window with it; then the pointer is empty, and nothing is deleted twice. A window on the stack would not survive
/// that.
template <typename Window> class heldwindow {
public:
    /// Takes over a window that was made with new.
    explicit heldwindow(Window* window)
        : window(window)
    {
    }
    ~heldwindow() { delete window.data(); }
    heldwindow(const heldwindow&) = delete;
    heldwindow& operator=(const heldwindow&) = delete;

    /// False once the window was destroyed by somebody else.
    explicit operator bool() const { return !window.isNull(); }
    Window* operator->() const { return window.data(); }
    Window* get() const { return window.data(); }

private:
    QPointer<Window> window;
};
