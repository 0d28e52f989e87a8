#include "brushes/pencilbrush.h"
#include "canvas/paintscene.h"
#include "clienthouse.h"
#include "pictures.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/messagewriter.h"
#include "row.h"
#include "strokesamples.h"
#include "tests/plugin/loadedplugin.h"
#include "whiteboard/whiteboard.h"

#include <QDialog>
#include <QPainter>
#include <QTemporaryDir>

#include <memory>

namespace {

constexpr char acceptKind = 13;

/// The finished library with a session of two, whose canvas is of the table's size, as the host's client has it.
struct loadedsession {
    loadedsession()
    {
        plugin.init();
        plugin.command(1, "open");
        clienthouse::inviteAll();
        plugin.receive(1, clienthouse::message(acceptKind, 2).constData());
        clienthouse::window("invitationdialog")->accept();
        clienthouse::settle();
        // A stroke of a stranger, or onto nothing, would be dropped fast.
        QWidget* const scene = clienthouse::child("whiteboard", "paintscene");
        const drawmessage batch = strokesamples::message(1);
        plugin.receive(1, wire::write(batch).constData());
        const QRect dot(batch.points.first(), QSize(1, 1));
        if (scene->size() != pictures::size || scene->grab(dot).toImage().pixelColor(0, 0) != strokesamples::color())
            qFatal("no session of the table's size shows a peer's stroke");
    }
    ~loadedsession()
    {
        plugin.shutdown();
        clienthouse::settle();
    }

    clienthouse client{{1}, pictures::size};
    loadedplugin plugin{client.host.table()};
};

row peerRow(const std::string& width, qreal thick)
{
    const auto make = [thick]() -> std::vector<contender> {
        const auto session = std::make_shared<loadedsession>();
        const auto canvas = std::make_shared<QImage>(pictures::blank(pictures::size));
        const drawmessage batch = strokesamples::message(thick);
        const QByteArray bytes = wire::write(batch);
        const auto enter = [session, bytes] { session->plugin.receive(1, bytes.constData()); };
        const auto pencil = std::make_shared<pencilbrush>();
        const auto paint = [canvas, pencil, batch, thick] {
            QPainter painter(canvas.get());
            pencil->replay(&painter, strokesamples::color(), thick, batch.points);
        };
        // Repaints that others have asked for are done before the next sample.
        return {{"product", enter, clienthouse::settle, 50}, {"painting", paint, clienthouse::settle, 50}};
    };
    return {"peer/" + width,
            make,
            {{"A peer's draw from entering the library to its pixels, width " + width + ": painting alone",
              quantity::seconds, "product", "painting", claim::side::atMost, 1.3}},
            15};
}

/// Loads the library once and ends it with the process.
struct loadedlater {
    ~loadedlater()
    {
        if (plugin)
            plugin->shutdown();
        clienthouse::settle();
    }

    void load()
    {
        plugin = std::make_unique<loadedplugin>(client.host.table());
        plugin->init();
    }

    clienthouse client{{1}};
    std::unique_ptr<loadedplugin> plugin;
};

std::vector<contender> loading()
{
    const auto later = std::make_shared<loadedlater>();
    return {{"product", [later] { later->load(); }}};
}

/// A window of a session, shown and painted.
std::vector<contender> opening(bool background)
{
    const auto client = std::make_shared<clienthouse>(std::vector<int>{2});
    const auto protocol = std::make_shared<kelvorprotocol>(client->host.table());
    const auto board = std::make_shared<std::unique_ptr<whiteboard>>();
    const auto directory = std::make_shared<QTemporaryDir>();
    QString path;
    if (background) {
        path = directory->filePath(QString::fromLatin1("background.png"));
        pictures::painted(pictures::size).save(path, "PNG", 100);
    }
    const auto open = [=] {
        *board =
            std::make_unique<whiteboard>(client->host.table(), protocol.get(), 1, QList<anyID>{2, 3}, pictures::side,
                                         pictures::side, path, background, directory->path(), nullptr);
        (*board)->show();
        clienthouse::settle();
    };
    return {{"product", open}};
}

constexpr double mebibyte = 1024 * 1024;
constexpr double pictureBytes = 4.0 * pictures::side * pictures::side;

} // namespace

std::vector<row> sessionRows()
{
    return {
        peerRow("1", 1),
        peerRow("5.5", 5.5),
        peerRow("40", 40),
        {"load",
         loading,
         {{"Loading the library and ts3plugin_init: processor time", quantity::firstSeconds, "product", "",
           claim::side::atMost, 0.020},
          {"Loading the library and ts3plugin_init: files opened beside the settings", quantity::files, "product", "",
           claim::side::atMost, 0}},
         0},
        {"open/plain",
         [] { return opening(false); },
         {{"Open session of 2000 by 2000: growth of the peak heap", quantity::heap, "product", "", claim::side::atMost,
           pictureBytes + 8 * mebibyte}},
         0},
        {"open/background",
         [] { return opening(true); },
         {{"Open session of 2000 by 2000 with a background: growth of the peak heap", quantity::heap, "product", "",
           claim::side::atMost, 2 * pictureBytes + 8 * mebibyte}},
         0},
    };
}
