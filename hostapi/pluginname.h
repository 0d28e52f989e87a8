#pragma once

#include <QString>

/// The name of a plugin as peers on every platform know it: the part of pluginName before the first dot, without the
/// platform that the files of interface 26 bear behind their names. Clients differ in whether that arrives with a
/// command. One platform is taken off, and only such as the client writes it.
QString pluginStem(const QString& pluginName);
