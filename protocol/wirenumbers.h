#pragma once

#include "hostapi/hosttypes.h"

#include <QPoint>
#include <QString>

#include <string_view>

/// Texts and numbers as they stand on the wire. Reading a number never fails: what is no number is 0. Digits alone,
/// which is what peers write, are read and written here; everything else goes to the toolkit's own conversion, whose
/// rules for blanks, signs and overflow are what peers rely on.
namespace wire {

/// The bytes of the part as Latin-1.
QString toText(std::string_view part);

/// As QString::toUInt, toInt, toULongLong and toDouble read the part.
unsigned int toUInt(std::string_view part);
int toInt(std::string_view part);
uint64 toUInt64(std::string_view part);
qreal toReal(std::string_view part);

/// A client id: toUInt cut to 16 bits.
anyID toClient(std::string_view part);

/// The sections 0 and 1 around vertical bars; a section that is not there is 0, further ones are ignored.
QPoint toPoint(std::string_view part);

/// Reads a number as sscanf reads %u and %llu, but with a defined value on overflow: the largest one. Returns the place
/// behind the number, or null, with value untouched, when there is none.
const char* scanNumber(const char* text, uint64* value);

/// Reads a number as atoi does, but with a defined value on overflow, and cuts it to a client id.
anyID scanClient(const char* text);

/// Bytes that the longest number takes: 20 digits, or a sign, six digits, a dot and an exponent of three digits.
constexpr int longestNumber = 20;

/// Write the number and return the place behind it; out has room for longestNumber bytes.
char* putNumber(char* out, uint64 value);
char* putNumber(char* out, int value);
/// Up to six significant digits, as QString::arg writes them with the format g and the precision -1.
char* putReal(char* out, qreal value);

} // namespace wire
