#pragma once

#include <QString>

/// A text from somebody else as a row, a label or a question can show it, whatever its sender made of it: on one line,
/// with a space for each control character and line break, without characters that turn the direction of what follows
/// them, and, where it is then longer than most characters, with a character that stands for its middle.
QString plainLine(const QString& text, int most);
