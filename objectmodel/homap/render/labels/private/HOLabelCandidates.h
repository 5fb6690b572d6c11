#pragma once
// HOLabelCandidates: where a label may go, best first, in picture pixels. A point's label goes
// around its symbol; a line's along its course, character by character, upright, once per stretch
// of the repeat distance where the line bends gently enough; a polygon's at its pole of inaccessibility when
// the text's height fits there.
#include <QPolygonF>
#include <QSizeF>
#include <utility>
#include <vector>

#include "render/labels/private/HOLabelEngine.h"

namespace HXObjects {

class HOLabelCandidates {
public:
    using Group = std::vector<HOLabelCandidate>;

    // Eight positions around a symbol of the given radius.
    static Group AroundPoint(const QPointF& point, double radius, QSizeF text);
    // One group per label along the line, each with positions shifted along the course; the text's
    // characters follow the line's bends.
    static std::vector<Group> AlongLine(const QPolygonF& line,
                                        const std::vector<std::pair<QString, double>>& characters,
                                        QSizeF text, double repeatDistance);
    // Empty when the text's height does not fit inside the visible part of the polygon.
    static Group InsidePolygon(const std::vector<QPolygonF>& rings, const QRectF& visible, QSizeF text);

    // An angle (degrees) turned to read left to right: within (-90, 90].
    static double Upright(double angle);
};

}  // namespace HXObjects
