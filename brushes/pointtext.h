#pragma once

#include <QPoint>
#include <QString>

/// Reads a point in the form "x|y" of extended paint messages. Further sections are ignored; what is no number is 0.
QPoint readPoint(const QString& text);
