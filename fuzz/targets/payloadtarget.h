#pragma once

#include "canvas/paintscene.h"
#include "fuzztarget.h"

#include <QTemporaryDir>

#include <vector>

/// Paint messages on small canvases. The first byte of the input chooses the canvas; behind it stand messages of the
/// kinds draw and extendedDraw, each ended by a NUL.
class payloadtarget : public fuzztarget {
public:
    payloadtarget();
    void run(const QByteArray& input) override;
    QMap<QByteArray, int> reached() const override { return {{"painted", painted}}; }

private:
    void addCanvas(int width, int height);

    QTemporaryDir directory;
    std::vector<std::unique_ptr<paintscene>> canvases;
    int painted = 0;
};
