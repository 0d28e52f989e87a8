#include "seeds.h"

#include "brushes/kelvortool.h"
#include "canvas/payloads.h"
#include "protocol/messagewriter.h"
#include "tests/brushes/picturefiles.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

namespace {

using files = QMap<QByteArray, QByteArray>;

QByteArray records(const QList<QByteArray>& list) { return list.join('\0') + '\0'; }

char valueOf(kelvortool tool) { return static_cast<char>(tool); }

QByteArray drawn(kelvortool tool, const QList<QPoint>& points, qreal thick = 3.5)
{
    return wire::write(drawmessage{valueOf(tool), QString::fromLatin1("#ff8000"), thick, points, 2});
}

QByteArray drawnData(kelvortool tool, const QString& data)
{
    return wire::write(extendeddrawmessage{valueOf(tool), data, 2});
}

QByteArray startOf(uint64 channel, const char* path, bool background)
{
    return wire::write(startmessage{64, 48, channel, background, 77, QString::fromLatin1(path), 2});
}

QByteArray sender(messagekind kind, anyID client) { return wire::write(kind, sendermessage{client}); }

// Every kind of paint message by its name, as participant 2 sends it.
files paintMessages()
{
    const QList<QPoint> path{{10, 20}, {11, 21}, {30, 5}, {-4, 60}};
    const QRect region(5, 6, 20, 10);
    const QString whole = payloads::wholeCanvas();
    return {
        {"pencil", drawn(kelvortool::pencil, path)},
        {"dot", drawn(kelvortool::pencil, {{3, 4}})},
        {"line", drawn(kelvortool::line, {{0, 0}, {63, 47}})},
        {"rectangle", drawn(kelvortool::rect, {{5, 5}, {30, 20}})},
        {"square", drawn(kelvortool::rect, {{5, 5}, {30, 20}, {-1, -1}})},
        {"ellipse", drawn(kelvortool::ellipse, {{5, 5}, {30, 20}})},
        {"circle", drawn(kelvortool::ellipse, {{5, 5}, {30, 20}, {-1, -1}})},
        {"eraser", drawn(kelvortool::eraser, path)},
        {"airbrush", drawn(kelvortool::airbrush, path, 12)},
        {"select", drawn(kelvortool::select, {{5, 5}, {20, 20}, {10, 10}, {30, 12}})},
        {"clear", drawn(kelvortool::clear, {})},
        {"far", drawn(kelvortool::pencil, {{2147483647, -2147483647}, {0, 0}, {-2147483647, 5}}, 1e9)},
        {"wide", drawn(kelvortool::airbrush, {{1, 1}, {40, 40}, {50, 2}}, 4000)},
        {"text",
         drawnData(kelvortool::text,
                   payloads::textData(Qt::black, 1.5, {4, 4}, {60, 40}, QString::fromLatin1("hello")))},
        {"fill", drawnData(kelvortool::fill, payloads::fillData(Qt::red, {12, 4}))},
        {"clearselection", drawnData(kelvortool::clearselection, payloads::regionData(region))},
        {"fliphorizontally", drawnData(kelvortool::fliphorizontally, whole)},
        {"flipvertically", drawnData(kelvortool::flipvertically, payloads::regionData(region))},
        {"swap", drawnData(kelvortool::swap, payloads::regionData(QRect(-9, -9, 300, 300)))},
        {"invert", drawnData(kelvortool::invert, whole)},
        {"grayscale", drawnData(kelvortool::grayscale, QString::fromLatin1("-2147483648|-1 2147483647|2147483647"))},
    };
}

files lobbyMessages()
{
    const clientmessage ben{3, 2};
    const channelmessage beside{3, 2};
    return {
        {"clientInvited", wire::write(messagekind::clientInvited, ben)},
        {"clientTakenBack", wire::write(messagekind::clientTakenBack, ben)},
        {"clientAcceptedInvite", wire::write(messagekind::clientAcceptedInvite, ben)},
        {"clientRejectedInvite", wire::write(messagekind::clientRejectedInvite, ben)},
        {"clientRejectedInviteVersion", wire::write(messagekind::clientRejectedInviteVersion, ben)},
        {"channelInvited", wire::write(messagekind::channelInvited, beside)},
        {"channelTakenBack", wire::write(messagekind::channelTakenBack, beside)},
        {"invitelist", wire::write(messagekind::invitelist, clientlistmessage{{3, 4, 0}, 2})},
        {"acceptlist", wire::write(messagekind::acceptlist, clientlistmessage{{3, 4, 0}, 2})},
        {"rejectlist", wire::write(messagekind::rejectlist, clientlistmessage{{3, 4, 0}, 2})},
        {"channelInvitelist", wire::write(channellistmessage{{1, 3, 0}, 2})},
        {"accept", sender(messagekind::accept, 3)},
        {"reject", sender(messagekind::reject, 3)},
        {"rejectVersion", sender(messagekind::rejectVersion, 3)},
        {"busy", sender(messagekind::busy, 3)},
        {"pong", sender(messagekind::pong, 3)},
        {"ping", sender(messagekind::ping, 2)},
        {"takeBack", sender(messagekind::takeBack, 2)},
        {"logout", sender(messagekind::logout, 2)},
    };
}

// What happens around a session, with what comes amid the windows that it opens.
files worldScripts()
{
    const QByteArray invite = wire::write(invitemessage{protocolVersion, 2});
    const QByteArray start = startOf(1, "/cat.png", true);
    const QByteArray pencil = paintMessages().value("pencil");
    return {
        {"invited-yes", records({"4" + invite, "y"})},
        {"invited-no", records({"4" + invite, "n"})},
        {"invited-twice", records({"4" + invite, "4" + invite, "6" + invite, "n", "y"})},
        {"invited-by-another-version", records({"4" + wire::write(invitemessage{3, 2})})},
        {"invited-amid-messages", records({"4" + invite, "1" + pencil, "4" + start, "3" + start, "2\x0d 3", "y", "y"})},
        {"start-plain", records({"3" + startOf(0, "", false), "3" + pencil})},
        {"start-picture", records({"3" + start, "3" + pencil, "y"})},
        {"start-broken-picture", records({"3" + startOf(3, "/broken.png", false), "y"})},
        {"start-password", records({"3" + startOf(2, "/cat.png", false), "4" + invite, "y", "y", "y"})},
        {"start-password-refused", records({"3" + startOf(2, "/cat.png", false), "n"})},
        {"start-no-download", records({"3" + start, "ht 3 100 2066 5 broken", "3\x12 2", "n"})},
        {"start-below-the-directory", records({"3" + startOf(1, "/../../cat.png", false), "y"})},
        {"download-finished", records({"1\x14 2 true", "1\x14 3 false", "5\x14 2 maybe"})},
        {"host-starts", records({"2\x0d 3", "ui 2 4", "ut 2 3", "ua 2", "2" + pencil, "2\x0d 4"})},
        {"host-cancels", records({"2\x0d 3", "uc 2"})},
        {"host-loads", records({"ul 2", "y", "hl 2 1 / cat.png 77 5 1", "hl 2 1 / dir 0 0 0", "y", "y", "ua 2"})},
        {"host-drops-picture", records({"ul 2", "y", "hl 2 1 / cat.png 77 5 1", "y", "n", "uk 2", "ua 2"})},
        {"guest-leaves", records({"uc 3", "4" + invite, "y"})},
        {"board-closed", records({"uw 1", "uo 1", "1\x0d 2"})},
        {"board-escaped", records({"ue 5", "5" + invite, "n"})},
        {"board-actions", records({"ub 1 0", "n", "ub 1 1", "ub 1 2", "n", "ub 1 7", "ub 1 9", "n"})},
        {"all-leave", records({"1\x12 2", "1\x12 3", "1" + pencil, "5\x12 2", "5\x12 3"})},
        {"stroke", records({"us 1 2", "ud 1 5 5", "um 1 9 9", "1" + pencil, "um 1 40 40", "ur 1 41 41"})},
        {"selection", records({"us 1 11", "ud 1 5 5", "um 1 30 30", "ur 1 30 30", "ud 1 9 9", "ur 1 40 9", "ub 1 3"})},
        {"typing", records({"us 5 3", "ud 5 5 5", "ur 5 40 30", "uq 5 65", "uq 5 32", "us 5 2", "uw 5"})},
        {"clients-move", records({"hm 2 3 3 1 1", "hm 2 2 1 0 2", "hm 2 9 0 3 0", "hm 1 2 1 0 2", "hm 3 2 1 0 2"})},
        {"channels-change", records({"hc 2 9 1", "hv 2 9 3", "hd 2 1", "hc 3 0 0", "hv 3 1 2", "hd 3 3"})},
        {"failing-names", records({"f4", "f14", "4" + invite, "y", "f", "3" + startOf(0, "", false)})},
        {"failing-own-id", records({"f2", "4" + invite, "y", "uc 4", "1\x0d 4", "f"})},
        {"failing-lists", records({"f7", "f12", "uo 4", "hm 4 3 0 1 0", "ua 4"})},
        {"failing-transfer", records({"f17", "3" + start})},
        {"shut-down", records({"x"})},
        {"shut-down-asking", records({"4" + invite, "x"})},
        {"shut-down-loading", records({"3" + start, "4" + invite, "x"})},
        {"shut-down-browsing", records({"ul 2", "y", "x"})},
        {"settings-open", records({"ug", "4" + invite, "y", "n"})},
    };
}

files dispatchSeeds()
{
    files seeds = worldScripts();
    const files paint = paintMessages();
    for (auto message = paint.begin(); message != paint.end(); ++message)
        seeds.insert("paint-" + message.key(), records({"1" + message.value(), "5" + message.value()}));
    const files lobby = lobbyMessages();
    for (auto message = lobby.begin(); message != lobby.end(); ++message)
        seeds.insert("lobby-" + message.key(), records({"2" + message.value(), "3" + message.value()}));
    return seeds;
}

// The first byte chooses the canvas: 0 is plain, 4 lies over a background.
files payloadSeeds()
{
    files seeds;
    const files paint = paintMessages();
    for (auto message = paint.begin(); message != paint.end(); ++message)
        seeds.insert(message.key(), QByteArray(1, '\0') + paint.value("pencil") + '\0' + message.value());
    QByteArray all(1, '\4');
    for (const QByteArray& message : paint)
        all += message + '\0';
    seeds.insert("all-over-a-background", all);
    return seeds;
}

files settingsSeeds()
{
    return {
        {"full",
         "[General]\ndownloaddir=/tmp/pictures\nplaysound=true\nsoundpath=/ding.wav\nawayreject=false\n"
         "onlyactivetab=true\ndefaultwidth=640\ndefaultheight=320\npong=true\n"},
        {"partly", "[General]\npong=false\ndefaultwidth=200\n"},
        {"empty", ""},
        {"empty-directory", "[General]\ndownloaddir=\n"},
        {"escaped", "[General]\ndownloaddir=\"C:\\\\a\\x20\\x263a\\n;b\"\nsoundpath=%20x\n"},
        {"typed",
         "[General]\ndownloaddir=@ByteArray(abc)\nsoundpath=@Variant(\\0\\0\\0\\n\\0\\0\\0\\x2\\0\\x41)\n"
         "playsound=@Invalid()\ndefaultwidth=@Size(3 4)\n"},
        {"lists", "[General]\ndownloaddir=a, b, \"c,d\"\ndefaultwidth=1, 2\n"},
        {"numbers", "[General]\ndefaultwidth=99999999999999999999\ndefaultheight=-1e9\npong=2\nplaysound=nan\n"},
        {"other-groups",
         "; comment\n[kelvor]\npong=false\n[%General]\npong=false\n[General]\n\xef\xbb\xbfpong=false\n"},
        {"no-group", "pong=false\r\ndefaultwidth=7\r\n"},
    };
}

QImage paintedPicture()
{
    QImage picture(20, 14, QImage::Format_ARGB32);
    picture.fill(0x80ffffff);
    QPainter(&picture).fillRect(3, 3, 9, 7, Qt::red);
    return picture;
}

QByteArray asFile(const char* format, QImage picture = paintedPicture())
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, format);
    return file.data();
}

// Long enough to be packed.
QImage withText(QImage picture)
{
    picture.setText(QString::fromLatin1("Comment"), QString(500, QLatin1Char('a')));
    return picture;
}

files pictureSeeds()
{
    QByteArray hugePng = asFile("PNG");
    // Width and height of the header say 65535 each.
    hugePng.replace(18, 2, "\xff\xff", 2).replace(22, 2, "\xff\xff", 2);
    return {
        {"png", asFile("PNG")},
        {"png-mono", asFile("PNG", paintedPicture().convertToFormat(QImage::Format_Mono))},
        {"png-indexed", asFile("PNG", paintedPicture().convertToFormat(QImage::Format_Indexed8))},
        {"png-text", asFile("PNG", withText(paintedPicture()))},
        {"png-truncated", asFile("PNG").left(60)},
        {"png-huge", hugePng},
        {"bmp", asFile("BMP")},
        {"bmp-runs", picturefiles::bmp(8, 1, picturefiles::runs())},
        {"jpg", asFile("JPG")},
        {"jpg-progressive", picturefiles::progressiveJpeg(paintedPicture())},
        {"ppm", asFile("PPM")},
        {"ppm-huge", "P6 40000 40000 255\n"},
        {"xpm", asFile("XPM")},
        {"xbm", asFile("XBM")},
        {"ico", asFile("ICO")},
        {"gif",
         QByteArray::fromHex("47494638396102000200800100ff0000ffffff21f90401000001002c00000000020002000002020"
                             "c0a003b")},
        {"svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><rect width='5' height='5'/></svg>"},
        {"text", "no picture"},
        {"empty", ""},
    };
}

} // namespace

QMap<QByteArray, QByteArray> seedsOf(const QByteArray& target)
{
    if (target == "dispatch")
        return dispatchSeeds();
    if (target == "payloads")
        return payloadSeeds();
    if (target == "settings")
        return settingsSeeds();
    return target == "pictures" ? pictureSeeds() : files();
}
