#include "mysplitter.h"

#include "mysplitterhandle.h"

mysplitter::mysplitter(QWidget* parent)
    : QSplitter(parent)
{
    connect(this, &QSplitter::splitterMoved, this, &mysplitter::saveSizes);
}

QSplitterHandle* mysplitter::createHandle()
{
    auto* handle = new mysplitterhandle(orientation(), this);
    connect(handle, &mysplitterhandle::doubleClicked, this, &mysplitter::onHandleDoubleClicked);
    return handle;
}

void mysplitter::onHandleDoubleClicked(int index)
{
    if (index <= 0 || index >= count())
        return;
    restoring = true;
    QList<int> current = sizes();
    if (current.size() != savedSizes.size())
        savedSizes = current;
    if (current[index] != 0)
        current[index] = 0;
    else
        current = savedSizes;
    setSizes(current);
    restoring = false;
}

void mysplitter::saveSizes()
{
    if (!restoring)
        savedSizes = sizes();
}
