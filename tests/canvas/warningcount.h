#pragma once

#include <QtGlobal>

/// Counts the toolkit's warnings for as long as it lives, and passes them on.
class warningcount {
public:
    warningcount();
    ~warningcount();
    warningcount(const warningcount&) = delete;
    warningcount& operator=(const warningcount&) = delete;

    int count() const;

private:
    QtMessageHandler former;
};
