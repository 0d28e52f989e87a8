#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What the tools of binutils and others print about a file, as somebody would look at the file of a stranger.
namespace libraryfacts {

/// The standard output of a program that ran to its end; an empty text if it failed.
QByteArray output(const QString& program, const QStringList& arguments);

/// Whether the library has nothing in it that loading it does not need: no table of symbols, nothing for debuggers.
/// False as well for a file that is no library.
bool isStripped(const QString& file);

/// The versions of symbols for which the library asks, such as "GLIBC_2.14", each once, in order.
QStringList neededVersions(const QString& file);

} // namespace libraryfacts
