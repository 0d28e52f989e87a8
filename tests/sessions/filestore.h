#pragma once

#include "plugin/kelvor.h"
#include "tests/support/fakehost.h"

#include <QImage>

/// The file store of a voice server: a picture in the root of each channel, whatever the name that is asked for.
class filestore {
public:
    /// Noise in light colours, from a seed of its own.
    explicit filestore(const QSize& size);

    const QImage& picture() const { return image; }

    /// Answers a request as the client of the controller would: lists the directory, or moves the whole file and tells
    /// that it is done.
    void fulfil(const filerequest& request, kelvor& controller) const;
    /// The same, but stops halfway: there is half of the file, or of the list nothing.
    void breakOff(const filerequest& request, kelvor& controller) const;

private:
    static void write(const filerequest& request, const QByteArray& content);

    QImage image;
    QByteArray file; ///< PNG
};
