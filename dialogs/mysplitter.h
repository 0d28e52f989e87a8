#pragma once

#include <QList>
#include <QSplitter>

/// A splitter on which a double click on a handle folds away the pane behind that handle, and a second one brings it
/// back at the size to which the user last dragged it.
class mysplitter : public QSplitter {
    Q_OBJECT

public:
    explicit mysplitter(QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;

protected slots:
    void onHandleDoubleClicked(int index);
    void saveSizes();

private:
    /// True while a double click itself changes the sizes, which must not be saved as the user's.
    bool restoring = false;
    /// The sizes that the user last set by dragging, or those of the first double click when nothing was dragged yet.
    QList<int> savedSizes;
};
