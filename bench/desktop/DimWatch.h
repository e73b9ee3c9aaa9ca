#pragma once

#include "tests/desktop/XClient.h"

#include <QPoint>

#include <vector>

// Tells the screen as it was when the watch was made from the same screen half dimmed, by a few bright pixels
// spread over it: the edges and the last row belong to them.
class DimWatch {
public:
    explicit DimWatch(const XClient& server);

    bool isDimmed() const; // every watched pixel
    bool isPlain() const;

private:
    template <class Same>
    bool allPixels(Same same) const;

    const XClient& m_server;
    std::vector<QPoint> m_points;
    std::vector<QRgb> m_plain; // a pixel for each point
};
