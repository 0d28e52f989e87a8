#pragma once

#include "tests/plugin/mainwindow.h"
#include "tests/support/fakehost.h"

#include <QByteArray>
#include <QSize>
#include <QTemporaryDir>
#include <QWidget>

#include <vector>

class QDialog;

/// A voice client with server connections 1 and up, on each of which the own client is 1: what the library runs in. One
/// lives at a time.
class clienthouse {
public:
    /// Each connection with so many others, 2 and up, in channels 2 and up of at most 500; the settings name this size
    /// for new sessions.
    explicit clienthouse(const std::vector<int>& others, const QSize& canvas = QSize(64, 48));
    ~clienthouse();
    clienthouse(const clienthouse&) = delete;
    clienthouse& operator=(const clienthouse&) = delete;

    static constexpr int channelSize = 500;

    /// The shown window of the class, by its name, so that it can be one of the loaded library too; null without one.
    static QDialog* window(const char* className);
    /// A descendant of a shown window, by its class name.
    static QWidget* child(const char* windowClass, const char* childClass);
    /// Invites all channels of the shown lobby, with all clients in them.
    static void inviteAll();
    /// Lets everything happen that waits in the event loop, painting and the end of closed windows included.
    static void settle();
    /// A message that says only who sent it, such as pong.
    static QByteArray message(char kind, int sender);

    fakehost host;

private:
    void addServer(uint64 connection, int others);

    QTemporaryDir directory;
    MainWindow mainWindow{6};
};
