#pragma once
// HOLineRasterizer: one-pixel solid polylines written straight into a direct target — antialiased
// by coverage along the minor axis, or plain — for the thin lines and outlines that make up most of
// a map. Only for cosmetic solid pens: the caller draws anything else through QPainter.
// Segments are queued in bands of rows and drawn band by band on Flush(): a map's lines criss-cross
// the whole image, and drawn as they come nearly every pixel would wait on memory. Call Flush()
// before anything else draws, so the order of drawing stays as given.
#include <QPen>
#include <QPointF>
#include <vector>

#include "render/private/HODirectTarget.h"

namespace HXObjects {

class HOLineRasterizer {
public:
    HOLineRasterizer(const HODirectTarget& target, bool antialias);
    ~HOLineRasterizer();

    // Whether the pen is one this rasterizer draws exactly.
    static bool Handles(const QPen& pen);
    void SetColor(const QColor& color);
    // `queued`: wait for Flush() (lines across the image); otherwise draw now (small outlines, whose
    // pixels are close together anyway).
    void DrawPolyline(const QPointF* points, int count, bool queued);
    void Flush();

private:
    struct Segment {
        float x0, y0, x1, y1;
        bool last;  // draws its end pixel (the polyline's last segment)
    };
    static constexpr int bandShift = 5;  // 32 rows: a band of a wide image stays in cache

    // The segment in pixel-centre coordinates; false when it cannot touch the image.
    bool segment(const QPointF& a, const QPointF& b, bool last, Segment* s) const;
    void queue(const Segment& s);
    void drawSegment(const Segment& s, int top, int bottom);

    HODirectTarget m_target;
    bool m_antialias;
    uint32_t m_color = 0;  // premultiplied
    std::vector<std::vector<Segment>> m_bands;
    std::size_t m_queued = 0;
    int m_top = 0, m_bottom = 0;  // rows of the band being drawn
};

}  // namespace HXObjects
