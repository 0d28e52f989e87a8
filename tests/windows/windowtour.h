#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

class QWidget;

/// Opens the windows of the plugin one by one, each on the road on which a user meets it.
namespace windowtour {

/// What the windows are called here.
QList<QByteArray> stops();

/// Opens the window of that name, calls look with it while it is shown, and closes it; false when it did not come up.
bool visit(const QByteArray& stop, const std::function<void(QWidget&)>& look);

} // namespace windowtour
