#pragma once

#include <QByteArray>
#include <QMap>

/// The inputs that the corpus of a target begins with, by the name of their file. Messages come from the real writer,
/// so that the corpus follows the wire. Pictures come from the toolkit, whose files may differ from version to version.
QMap<QByteArray, QByteArray> seedsOf(const QByteArray& target);
