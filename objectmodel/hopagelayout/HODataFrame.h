#pragma once
// HODataFrame: a map on the page. It holds a map view, sized to the frame's pixel size on screen, and
// a screen display that maps the frame's pixels on screen to the map's coordinates.
#include <QRectF>
#include <mutex>

#include "HODisplay.h"
#include "HOPageLayoutBaseElement.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOMapView;

class HODataFrame : public HOPageLayoutBaseElement {
public:
    HODataFrame();

    HOMapView* get_map_view() const;
    // The frame keeps a reference on the view; the page sizes it when it lays the frame out.
    void set_map_view(HOMapView* view);
    HODisplay* get_screendisplay() const;
    void draw(QPainter& painter, const HODisplayTransform& pageToPixels) override;

    // Where the page is on screen: sizes the map view to the frame's pixels, keeping its extent.
    void set_page_transform(const HODisplayTransform& pageToPixels);
    // The frame's rectangle in pixels under the page transform.
    QRectF pixel_rect(const HODisplayTransform& pageToPixels) const;

protected:
    ~HODataFrame() override;

private:
    HORefPtr<HOMapView> view() const;

    mutable std::mutex m_mutex;  // guards m_view (drawn on render threads, set on the GUI thread)
    HORefPtr<HOMapView> m_view;
    HODisplay m_page;  // the page's transform the frame was last laid out with
    mutable HODisplay m_display;
};

}  // namespace HXObjects
