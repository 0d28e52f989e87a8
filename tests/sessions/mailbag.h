#pragma once

#include "company.h"

#include <QRandomGenerator>

/// What is on its way between the members of a company, handed out as a seed will have it.
class mailbag {
public:
    explicit mailbag(quint32 seed)
        : random(seed)
    {
    }

    void put(const QList<letter>& letters) { underway += letters; }
    int size() const { return underway.size(); }

    /// Anybody's letter to anybody, but the oldest between the two: what one sends to one other keeps its order.
    letter takeNext()
    {
        const letter any = underway.at(random.bounded(underway.size()));
        int oldest = 0;
        while (underway.at(oldest).from != any.from || underway.at(oldest).to != any.to)
            ++oldest;
        return underway.takeAt(oldest);
    }
    /// Any letter, whatever was sent before it.
    letter takeAny() { return underway.takeAt(random.bounded(underway.size())); }

private:
    QList<letter> underway;
    QRandomGenerator random;
};
