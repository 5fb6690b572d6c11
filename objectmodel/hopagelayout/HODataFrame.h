#pragma once
// HODataFrame: a map on the page. It holds a map view and a screen display that maps the frame's
// pixels on screen to the map's coordinates.
#include "HODisplay.h"
#include "HOPageLayoutBaseElement.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOMapView;

class HODataFrame : public HOPageLayoutBaseElement {
public:
    HODataFrame();

    HOMapView* get_map_view() const;
    void set_map_view(HOMapView* view);
    HODisplay* get_screendisplay() const;
    void draw(QPainter& painter, const HODisplayTransform& pageToPixels) override;

protected:
    ~HODataFrame() override;

private:
    HORefPtr<HOMapView> m_view;
    mutable HODisplay m_display;
};

}  // namespace HXObjects
