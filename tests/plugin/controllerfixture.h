#pragma once

#include "plugin/kelvor.h"
#include "tests/support/fakehost.h"

#include <QMessageBox>
#include <QTemporaryDir>
#include <QVariant>

#include <functional>
#include <memory>

class invitationdialog;
class whiteboard;

/// A controller on a fake client with two servers (connections 1 and 2), each with the own client 1 and the clients
/// 2 "Ann", 3 "Ben" and 4 "Eve" in channel 1, and settings in a directory of its own.
class controllerfixture {
public:
    controllerfixture();

    /// What the settings file says when start() reads it.
    void writeSetting(const char* key, const QVariant& value);
    void start();
    /// Delivers a message of a peer; the text is written as the wire has it.
    void receive(const QByteArray& text, uint64 schid = 1);
    /// Answers the next question that shows; asked() tells its text afterwards.
    void answerNext(QMessageBox::StandardButton button);
    /// Calls act from inside the nested loop of the next question.
    void duringNextQuestion(const std::function<void()>& act);
    QString asked() const { return question; }
    /// Ann invites, on the connection of the active tab, and the user says Yes.
    void acceptInvitation(uint64 schid = 1);

    static QList<QMessageBox*> questions();
    static QList<invitationdialog*> lobbies();
    static QList<whiteboard*> boards();
    /// Lets closed windows go, as the client's event loop does.
    static void settle();

    static constexpr char inviteFromAnn[] = "\x01 2 2";

    QTemporaryDir directory;
    fakehost host;
    std::unique_ptr<kelvor> controller;

private:
    QString question;
};
