#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>

class voiceclient;

/// How far a command has come.
enum class playstate {
    waiting, ///< what it needs is not there yet: it is tried again until its deadline; the text says what is missing
    acted, ///< it did something that takes effect in the event loop, and is answered behind that
    again, ///< as acted, but the command then goes on with its next phase
    done, ///< the text is the answer
    failed, ///< the text says why
};

struct playoutcome {
    playstate state = playstate::done;
    QString text;
};

/// One command as it is carried out.
struct playrequest {
    voiceclient* client = nullptr;
    QString verb;
    QStringList words; ///< behind the verb
    int phase = 0; ///< the verb's own, 0 at the first try; raised after each outcome "again"
    QString note; ///< the verb's own, kept between tries

    QString word(int index) const { return words.value(index); }
    /// All words from this one on, in one text.
    QString rest(int index) const { return QStringList(words.mid(index)).join(QLatin1Char(' ')); }
};

/// Tries a command once, without blocking and without running an event loop.
using playverb = std::function<playoutcome(playrequest&)>;
using verbtable = QHash<QString, playverb>;

inline playoutcome playDone(const QString& text = QString()) { return {playstate::done, text}; }
inline playoutcome playFailed(const QString& text) { return {playstate::failed, text}; }
inline playoutcome playWaiting(const QString& text) { return {playstate::waiting, text}; }
inline playoutcome playActed() { return {playstate::acted, QString()}; }
inline playoutcome playAgain() { return {playstate::again, QString()}; }

// The verbs by what they are about; each of these adds its own to the table.
void addWindowVerbs(verbtable* verbs);
void addCanvasVerbs(verbtable* verbs);
void addPaintVerbs(verbtable* verbs);
void addRowVerbs(verbtable* verbs);
void addDialogVerbs(verbtable* verbs);
void addWaitVerbs(verbtable* verbs);
void addServerVerbs(verbtable* verbs);
void addHostVerbs(verbtable* verbs);
void addPeerVerbs(verbtable* verbs);
void addPointerVerbs(verbtable* verbs);
void addStrokeVerbs(verbtable* verbs);
