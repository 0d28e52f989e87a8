#pragma once

/// Counts what is allocated while it lives, by whatever code of the process. A program that links it has its own malloc
/// in front of the C library's. One lives at a time.
class heapwatch {
public:
    heapwatch();
    ~heapwatch();
    heapwatch(const heapwatch&) = delete;
    heapwatch& operator=(const heapwatch&) = delete;

    /// The most bytes that were allocated on top of what was allocated before.
    long long most() const;
};
