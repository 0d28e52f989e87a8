#pragma once

#include <QByteArray>
#include <QList>

class clientworld;

/// Reads a script of what happens in a world and carries it out record by record. A record ends at a NUL, as a message
/// does, and begins with a letter; numbers behind it are decimal, with blanks between them:
///
///     1..6   a message of a peer on that connection, as the wire has it
///     y, n   the user agrees in the topmost modal window, or refuses
///     u      the user does something else, see worlduser.h
///     h      the client reports something: h kind connection numbers, see playEvent() for the kinds
///     f      host function number n fails from now on; without a number all of them work again
///     x      the client shuts the plugin down
///
/// Anything else, and what makes no sense at the moment, does nothing.
class worldscript {
public:
    worldscript(clientworld& world, const QByteArray& script);

    /// False when there is no record left.
    bool playNext();

    /// The functions that the record f counts from 0 on.
    static QList<QByteArray> hostFunctions();

private:
    void playRecord(const QByteArray& record);
    void playMessage(int connection, const QByteArray& text);
    void playEvent(char kind, const QList<QByteArray>& parts);
    void playFailure(const QByteArray& number);

    clientworld& world;
    QByteArray script;
    int at = 0;
};
