#pragma once
// HOMarkerBlitter: stamps a cached marker image at many points. When the painter draws straight
// into a 32-bit image with no transform or clip, the marker's pixels are composited by hand (a
// million points in a few tens of milliseconds); otherwise it falls back to QPainter::drawImage.
// A marker stamped again on a pixel already holding the same marker is skipped.
#include <QImage>
#include <QPointF>

#include <cstdint>
#include <vector>

class QPainter;

namespace HXObjects {

class HOMarkerBlitter {
public:
    explicit HOMarkerBlitter(QPainter& painter);

    // The image to stamp (kept by the caller); `skipRepeats` stamps each pixel at most once.
    void SetMarker(const QImage* marker, bool skipRepeats);
    void Stamp(const QPointF& centre);

private:
    bool alreadyStamped(int x, int y);
    void composite(int left, int top);

    QPainter& m_painter;
    QImage* m_target = nullptr;  // null: draw through the painter
    const QImage* m_marker = nullptr;
    bool m_skipRepeats = false;
    std::vector<uint64_t> m_stamped;  // one bit per target pixel, for the repeat-skipping marker
};

}  // namespace HXObjects
