#pragma once

#include <QByteArray>

/// Whether a value in the text of an INI file is an object that the toolkit would unpack. No settings file of the
/// plugin has one, and the toolkit crashes on some that are damaged, so such a file is not given to it.
bool holdsPackedValues(const QByteArray& ini);
