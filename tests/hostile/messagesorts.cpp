#include "messagesorts.h"

#include "brushes/kelvortool.h"

namespace {

using picture = messagesort::picture;

constexpr int longest = 8192; ///< bytes of a message, as the voice client bounds it

QByteArray draw(kelvortool tool, const char* color, const char* thick, const QByteArray& points)
{
    return QByteArray("\x11 2 ") + static_cast<char>(tool) + ' ' + color + ' ' + thick + points;
}

QByteArray extended(kelvortool tool, const QByteArray& data)
{
    return QByteArray("\x13 2 ") + static_cast<char>(tool) + ' ' + data;
}

// Places from which wide discs reach nearly all rows, but only the first columns: no row is ever full.
QByteArray besidePicture()
{
    QByteArray text;
    while (text.size() < longest - 50)
        text += " -8190|-8190 -8190|10180";
    return text;
}

} // namespace

QByteArray messagedice::points(int most)
{
    QByteArray text;
    for (int count = 0; count < most && text.size() < longest - 50; ++count) {
        const int x = below(messagesort::side);
        text += ' ' + QByteArray::number(x) + '|' + QByteArray::number(below(messagesort::side));
    }
    return text;
}

std::vector<messagesort> costlySorts()
{
    // clang-format off
    return {
        {"pencil, 20 points, width 10", picture::white, [](messagedice& r) { return draw(kelvortool::pencil, "#ff0000", "10", r.points(20)); }},
        {"pencil, 8 KB of points, width 1", picture::white, [](messagedice& r) { return draw(kelvortool::pencil, "#ff0000", "1", r.points(9999)); }},
        {"pencil, 8 KB of points, width 200", picture::white, [](messagedice& r) { return draw(kelvortool::pencil, "#ff0000", "200", r.points(9999)); }},
        {"pencil, 8 KB of points, width 3000", picture::white, [](messagedice& r) { return draw(kelvortool::pencil, "#ff0000", "3000", r.points(9999)); }},
        {"pencil, 8 KB of points, width 1e9", picture::white, [](messagedice& r) { return draw(kelvortool::pencil, "#ff0000", "1e9", r.points(9999)); }},
        {"pencil, 8 KB of short points, width 3000", picture::white, [](messagedice&) { return draw(kelvortool::pencil, "#ff0000", "3000", QByteArray(" 1|9 9|1").repeated(1000)); }},
        {"pencil, 8 KB, half transparent, width 1", picture::noise, [](messagedice& r) { return draw(kelvortool::pencil, "#80ff0000", "1", r.points(9999)); }},
        {"pencil, 8 KB, half transparent, width 200", picture::noise, [](messagedice& r) { return draw(kelvortool::pencil, "#80ff0000", "200", r.points(9999)); }},
        {"pencil, 8 KB, half transparent, width 3000", picture::noise, [](messagedice& r) { return draw(kelvortool::pencil, "#80ff0000", "3000", r.points(9999)); }},
        {"pencil, 8 KB, nearly transparent, width 3000", picture::noise, [](messagedice& r) { return draw(kelvortool::pencil, "#01ff0000", "3000", r.points(9999)); }},
        {"eraser, 8 KB of points, width 200", picture::noise, [](messagedice& r) { return draw(kelvortool::eraser, "#ff0000", "200", r.points(9999)); }},
        {"eraser, 8 KB of points, width 3000", picture::noise, [](messagedice& r) { return draw(kelvortool::eraser, "#ff0000", "3000", r.points(9999)); }},
        {"airbrush, 20 points, width 200", picture::white, [](messagedice& r) { return draw(kelvortool::airbrush, "#ff0000", "200", r.points(20)); }},
        {"airbrush, 3 far points, width 4000", picture::white, [](messagedice&) { return draw(kelvortool::airbrush, "#ff0000", "4000", " -2147483647|-2147483647 2147483647|2147483647 0|0"); }},
        {"airbrush, 8 KB of points, width 20", picture::white, [](messagedice& r) { return draw(kelvortool::airbrush, "#ff0000", "20", r.points(9999)); }},
        {"airbrush, 8 KB of points, width 200", picture::white, [](messagedice& r) { return draw(kelvortool::airbrush, "#ff0000", "200", r.points(9999)); }},
        {"airbrush, 8 KB of points, width 4000", picture::white, [](messagedice& r) { return draw(kelvortool::airbrush, "#ff0000", "4000", r.points(9999)); }},
        {"airbrush, 8 KB, half transparent, width 20", picture::noise, [](messagedice& r) { return draw(kelvortool::airbrush, "#80ff0000", "20", r.points(9999)); }},
        {"airbrush, 8 KB, half transparent, width 200", picture::noise, [](messagedice& r) { return draw(kelvortool::airbrush, "#80ff0000", "200", r.points(9999)); }},
        {"airbrush, 8 KB, half transparent, width 4000", picture::noise, [](messagedice& r) { return draw(kelvortool::airbrush, "#80ff0000", "4000", r.points(9999)); }},
        {"airbrush, 20 points, nearly transparent, width 200", picture::noise, [](messagedice& r) { return draw(kelvortool::airbrush, "#01ff0000", "200", r.points(20)); }},
        {"airbrush, 8 KB, nearly transparent, width 200", picture::noise, [](messagedice& r) { return draw(kelvortool::airbrush, "#01ff0000", "200", r.points(9999)); }},
        {"airbrush, 8 KB beside the picture, width 16384", picture::white, [](messagedice&) { return draw(kelvortool::airbrush, "#ff0000", "16384", besidePicture()); }},
        {"airbrush, 8 KB beside the picture, half transparent, width 16384", picture::noise, [](messagedice&) { return draw(kelvortool::airbrush, "#80ff0000", "16384", besidePicture()); }},
        {"line, width 4000", picture::white, [](messagedice& r) { return draw(kelvortool::line, "#ff0000", "4000", r.points(2)); }},
        {"rectangle, width 500", picture::white, [](messagedice& r) { return draw(kelvortool::rect, "#ff0000", "500", r.points(2)); }},
        {"ellipse, width 500", picture::white, [](messagedice& r) { return draw(kelvortool::ellipse, "#80ff0000", "500", r.points(2)); }},
        {"selection of all moved", picture::noise, [](messagedice&) { return draw(kelvortool::select, "#ff0000", "1", " 0|0 1999|1999 5|5 9|9"); }},
        {"clear", picture::noise, [](messagedice&) { return draw(kelvortool::clear, "#ff0000", "1", ""); }},
        {"text of 8 KB", picture::white, [](messagedice&) { return extended(kelvortool::text, "#ff0000 1 0|0 1999|1999 " + QByteArray("Wj").repeated(4000)); }},
        {"text of 8 KB of lines", picture::white, [](messagedice&) { return extended(kelvortool::text, "#ff0000 1 0|0 1999|1999 " + QByteArray("W\n").repeated(4000)); }},
        {"fill of a white canvas", picture::white, [](messagedice& r) { return extended(kelvortool::fill, r.fillColor() + QByteArray(" 5|5")); }},
        {"fill of a maze", picture::maze, [](messagedice& r) { return extended(kelvortool::fill, r.fillColor() + QByteArray(" 0|0")); }},
        {"selection cleared", picture::noise, [](messagedice&) { return extended(kelvortool::clearselection, "-2147483648|0 2147483647|1999"); }},
        {"flip horizontally, all", picture::noise, [](messagedice&) { return extended(kelvortool::fliphorizontally, "full"); }},
        {"flip horizontally, region", picture::noise, [](messagedice&) { return extended(kelvortool::fliphorizontally, "-100|-100 1990|1995"); }},
        {"flip vertically, all", picture::noise, [](messagedice&) { return extended(kelvortool::flipvertically, "full"); }},
        {"flip vertically, far region", picture::noise, [](messagedice&) { return extended(kelvortool::flipvertically, "-2147483648|-2147483648 2147483647|2147483647"); }},
        {"swap, all", picture::noise, [](messagedice&) { return extended(kelvortool::swap, "full"); }},
        {"invert, region", picture::noise, [](messagedice&) { return extended(kelvortool::invert, "0|0 1999|1999"); }},
        {"grayscale, all", picture::noise, [](messagedice&) { return extended(kelvortool::grayscale, "full"); }},
    };
    // clang-format on
}
