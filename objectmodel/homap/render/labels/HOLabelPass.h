#pragma once
// HOLabelPass: the labels of a map picture. After the layers are drawn, the labels of every visible
// labelled feature layer are placed together — by layer priority, then the topmost layer first — so
// they compete for space and never overlap, and drawn into one picture composed above all layers.
// The picture is kept while the view does not move and no layer is redrawn.
//
// Owned by the map renderer and used on its render thread only.
#include <QSize>
#include <vector>

#include "HORefPtr.h"
#include "HORenderRequest.h"
#include "HOTrackCancel.h"
#include "HOViewFrame.h"

class QPainter;

namespace HXObjects {

class HOCoordinateSystem;
class HOFeatureLayer;
class HOLabelEngine;
class HOLayer;

class HOLabelPass {
public:
    // Some layer changed: the labels must be placed again.
    void Invalidate() { m_current = false; }
    bool IsCurrent(const HORenderRequest& request) const;
    // Places and draws the labels; false when cancelled (the old picture stays for the preview).
    bool Render(const std::vector<HORefPtr<HOLayer>>& layers, const HORenderRequest& request,
                HOCoordinateSystem* system, const HOTrackCancel* cancel);
    void DrawInto(QPainter& painter, const HODisplayTransform& target) const;
    void Clear();

    // Places the labels wholly inside `area` and draws them straight onto `painter`, in the
    // request's pixels, keeping no picture: a page printed at once gets its labels as text. False
    // when cancelled.
    static bool Paint(QPainter& painter, const std::vector<HORefPtr<HOLayer>>& layers,
                      const HORenderRequest& request, const QRectF& area, HOCoordinateSystem* system,
                      const HOTrackCancel* cancel);

    // The visible feature layers labelled at this scale, in placing order: higher priority first,
    // then the topmost layer first (`layers` is in drawing order).
    static std::vector<HOFeatureLayer*> PlacingOrder(const std::vector<HORefPtr<HOLayer>>& layers,
                                                     double scale);

private:
    static bool place(HOLabelEngine& engine, const std::vector<HORefPtr<HOLayer>>& layers,
                      const HORenderRequest& request, HOCoordinateSystem* system,
                      const HOTrackCancel* cancel);

    HOViewFrame m_picture;  // null when nothing was placed
    HODisplayTransform m_placedAt;
    QSize m_placedSize;
    bool m_current = false;
};

}  // namespace HXObjects
