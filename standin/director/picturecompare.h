#pragma once

#include <QString>

/// How many pixels of two picture files differ; -1 when one cannot be read or they are of different sizes.
int differentPixels(const QString& one, const QString& other);
