#include "windowkeeper.h"

void windowkeeper::keep(QWidget* window)
{
    windows.removeAll(QPointer<QWidget>());
    windows.append(window);
}

void windowkeeper::freeEnding()
{
    for (const QPointer<QWidget>& window : qAsConst(windows)) {
        if (isEnding(window) && window)
            window->setParent(nullptr);
    }
}

void windowkeeper::deleteAll()
{
    const QList<QPointer<QWidget>> left = windows;
    for (const QPointer<QWidget>& window : left) {
        if (!isEnding(window))
            delete window.data();
    }
}
