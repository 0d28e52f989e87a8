#include "windowkeeper.h"

void windowkeeper::keep(QWidget* window)
{
    windows.removeAll(QPointer<QWidget>());
    windows.append(window);
}

void windowkeeper::deleteAll()
{
    const QList<QPointer<QWidget>> left = windows;
    for (const QPointer<QWidget>& window : left) {
        if (!isEnding(window))
            delete window.data();
    }
}
