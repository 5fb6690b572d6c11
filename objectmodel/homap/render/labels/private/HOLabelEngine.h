#pragma once
// HOLabelEngine: places the labels of one picture. Layers offer their features' labels in order of
// priority; each label comes with candidate positions, best first, and takes the first whose box is
// inside the picture and free of every label placed before it. Placed labels are drawn together at
// the end, above all layers. Lives for one render on the render thread.
#include <QPointF>
#include <QRectF>
#include <QString>
#include <memory>
#include <vector>

#include "render/labels/private/HOLabelCollisionIndex.h"
#include "render/labels/private/HOLabelStyle.h"

class QPainter;

namespace HXObjects {

// One character of a label bent along a line: its text, its width and where it goes.
struct HOLabelGlyph {
    QString text;
    double width = 0.0;
    QPointF centre;
    double angle = 0.0;
};

// A position for a label: the centre of its text and its angle (degrees, clockwise on screen); or,
// for text that follows a line, where each of its characters goes.
struct HOLabelCandidate {
    QPointF centre;
    double angle = 0.0;
    std::vector<HOLabelGlyph> glyphs;  // empty: the text is drawn in one piece
};

struct HOPlacedLabel {
    QString text;
    QPointF centre;
    double angle = 0.0;
    std::vector<HOLabelGlyph> glyphs;
    // The picture's pixels the label covers (halo included), in upright boxes: one for level text,
    // a row of small ones along slanted text so that it claims little more than its own area.
    std::vector<QRectF> boxes;
    int style = 0;
};

class HOLabelEngine {
public:
    // Labels lie wholly inside `area` of the picture.
    explicit HOLabelEngine(const QRectF& area);

    // The style's number for Offer.
    int AddStyle(const HOLabelSettings& settings, double dpi);
    const HOLabelStyle& Style(int style) const { return *m_styles[std::size_t(style)]; }

    // True when placed, at the first free candidate.
    bool Offer(const QString& text, QSizeF size, int style, const std::vector<HOLabelCandidate>& candidates);
    HOLabelCollisionIndex& Index() { return m_index; }

    const std::vector<HOPlacedLabel>& Placed() const { return m_placed; }
    void Draw(QPainter& painter) const;

private:
    static std::vector<QRectF> boxesOf(const HOLabelCandidate& candidate, QSizeF size);

    HOLabelCollisionIndex m_index;
    std::vector<std::unique_ptr<HOLabelStyle>> m_styles;
    std::vector<HOPlacedLabel> m_placed;
};

}  // namespace HXObjects
