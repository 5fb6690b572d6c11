#pragma once
// HOMarkerBlitter: stamps a cached marker image at many points. When the painter draws straight
// into a 32-bit image with no transform or clip, the marker's pixels are composited by hand (a
// million points in a few tens of milliseconds); otherwise it falls back to QPainter::drawImage.
// A marker stamped again on a pixel already holding the same marker is skipped. Markers of the bulk
// style are queued and stamped band by band of rows on Flush(), so the image is walked in order
// instead of at random (a million scattered stamps otherwise wait on memory); stamps of one marker
// commute, so only the order against other drawing matters, and Flush() keeps that.
#include <QImage>
#include <QPointF>
#include <cstdint>
#include <vector>

#include "render/private/HODirectTarget.h"

class QPainter;

namespace HXObjects {

class HOMarkerBlitter {
public:
    explicit HOMarkerBlitter(QPainter& painter);

    ~HOMarkerBlitter();

    // The image to stamp (kept by the caller); `bulk` stamps each pixel at most once, in batches.
    void SetMarker(const QImage* marker, bool bulk);
    void Stamp(const QPointF& centre);
    // Stamps what is queued; call before drawing anything else.
    void Flush();

private:
    bool alreadyStamped(int x, int y);
    void composite(int left, int top);

    QPainter& m_painter;
    HODirectTarget m_target;  // invalid: draw through the painter
    const QImage* m_marker = nullptr;
    int m_markerWidth = 0, m_markerHeight = 0;
    bool m_skipRepeats = false;
    std::vector<uint64_t> m_stamped;  // one bit per target pixel, for the bulk marker
    std::vector<QPoint> m_queue;      // pixels of bulk stamps not yet made
};

}  // namespace HXObjects
