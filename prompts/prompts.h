#pragma once

#include <QColor>
#include <QLineEdit>
#include <QString>

#include <optional>

class QMessageBox;

/// Modal questions to the user. Each stands in for the toolkit's static function of the same kind, with two
/// differences: the parent may be destroyed while the question is open (the question then counts as cancelled), and
/// texts are never read as HTML and shown on plain lines, the longest without their middle, for names of people,
/// channels and servers stand in them. An answer means that the parent still lives; after a cancelled question whoever
/// goes on must look.
namespace prompts {

/// A line of text, an empty optional when cancelled.
std::optional<QString> askText(QWidget* parent, const QString& title, const QString& label, QLineEdit::EchoMode echo);

/// Names of files and directories; empty when the user cancelled.
QString askSaveFile(QWidget* parent, const QString& caption, const QString& filter);
QString askOpenFile(QWidget* parent, const QString& caption, const QString& start, const QString& filter);
QString askDirectory(QWidget* parent, const QString& caption, const QString& start);

/// An invalid colour when cancelled.
QColor askColor(QWidget* parent, const QColor& initial);

/// A box with Yes and No, default Yes, that the caller runs with exec() and owns; the text is plain.
QMessageBox* makeQuestion(QWidget* parent, const QString& title, const QString& text);

} // namespace prompts
