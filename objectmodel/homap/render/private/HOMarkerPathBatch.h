#pragma once
// HOMarkerPathBatch: point markers for a vector device (PDF, printer), gathered into one path per run
// of one style and drawn in one call, so a million points are a few large paths instead of a million
// painter state changes. Overlapping markers join (non-zero fill). Flushes when the style changes,
// when asked, when a run is long and when it goes.
#include <QPainterPath>

class QPainter;

namespace HXObjects {

class HOStyle;

class HOMarkerPathBatch {
public:
    explicit HOMarkerPathBatch(QPainter& painter) : m_painter(painter) {}
    ~HOMarkerPathBatch() { Flush(); }
    HOMarkerPathBatch(const HOMarkerPathBatch&) = delete;
    HOMarkerPathBatch& operator=(const HOMarkerPathBatch&) = delete;

    void Add(const HOStyle& style, const QPointF& centre);
    void Flush();

private:
    static constexpr int kMaxRun = 20000;  // markers per path: bounds the memory of one run

    QPainter& m_painter;
    const HOStyle* m_style = nullptr;
    QPainterPath m_shape;  // the style's marker at (0, 0)
    QPainterPath m_path;
    int m_count = 0;
};

}  // namespace HXObjects
