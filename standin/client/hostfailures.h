#pragma once

#include <QByteArray>
#include <QHash>
#include <QRandomGenerator>

/// How a host function fails that was told to.
enum class failurekind {
    none, ///< it works
    error, ///< it returns an error code and hands out nothing
    empty, ///< it succeeds with an empty text or list
    nothing, ///< it succeeds, and what it hands out is a null pointer
};

struct hostfailure {
    failurekind kind = failurekind::none;
    unsigned int code = 0;
};

/// Which functions of the host fail, for tests: named ones, or any by chance.
class hostfailures {
public:
    void set(const QByteArray& function, const hostfailure& failure);
    /// This share of all calls fails with ERROR_undefined; 0 turns it off.
    void setChance(int percent, quint32 seed);
    void clear();

    /// What the call that begins now does; counts it.
    hostfailure next(const QByteArray& function);
    int calls(const QByteArray& function) const { return called.value(function); }

private:
    QHash<QByteArray, hostfailure> named;
    QHash<QByteArray, int> called;
    QRandomGenerator dice;
    int chance = 0;
};
