#pragma once

#include <QList>
#include <QPointer>
#include <QSet>
#include <QWidget>

/// Knows every window that the controller made and that is not yet destroyed. Windows delete themselves when the
/// client's event loop comes round, which may be after the library was unmapped: what is left at the end is deleted
/// directly.
class windowkeeper {
public:
    void keep(QWidget* window);

    /// Between these two the end of the window is handled further up the stack, and whoever called them deletes it.
    void beginEnd(const QWidget* window) { ending.insert(window); }
    void finishEnd(const QWidget* window) { ending.remove(window); }
    /// Compares addresses only, so that it may be asked of a window that is gone.
    bool isEnding(const QWidget* window) const { return ending.contains(window); }

    /// Takes the windows that are ending off their parents, which would delete them too early.
    void freeEnding();

    /// Deletes all that is left, but for windows that are ending.
    void deleteAll();

private:
    QList<QPointer<QWidget>> windows;
    QSet<const QWidget*> ending;
};
