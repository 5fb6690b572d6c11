#pragma once
// HODataFrame: a map on the page. It holds a map view, sized to the frame's pixel size on screen, and
// a screen display that maps the frame's pixels on screen to the map's coordinates. On screen it shows
// the view's finished picture; for output it draws the map at once through the same layer drawing, at
// the output's resolution. Its map scale (ground over paper) is its own, whatever the page's zoom.
#include <QRectF>
#include <QString>
#include <mutex>

#include "HODisplay.h"
#include "HOEvent.h"
#include "HOPageLayoutBaseElement.h"
#include "HORefPtr.h"
#include "HXExport.h"

namespace HXObjects {

class HOMapView;

class HX_EXPORT HODataFrame : public HOPageLayoutBaseElement {
public:
    HODataFrame();

    HOMapView* get_map_view() const;
    // The frame keeps a reference on the view; the page sizes it when it lays the frame out.
    void set_map_view(HOMapView* view);
    HODisplay* get_screendisplay() const;
    void draw(QPainter& painter, const HOPageRenderContext& context) override;

    // Where the page is on screen: sizes the map view to the frame's pixels, keeping its extent.
    void set_page_transform(const HODisplayTransform& pageToPixels);
    // The frame's rectangle in pixels under the page transform.
    QRectF pixel_rect(const HODisplayTransform& pageToPixels) const;

    // The map area the frame shows on paper (map units): the last one set or navigated to in the
    // map view, else the map's full extent. The page's zoom does not change it.
    HORect get_map_extent() const;
    void set_map_extent(const HORect& extent);
    // The map's scale on paper as its denominator; 0 when the frame shows nothing.
    double get_map_scale() const;
    void set_map_scale(double denominator);
    // A note drawn in the frame when its map has no layers (e.g. the sources that were missing).
    void set_note(const QString& note);
    QString get_note() const;

protected:
    ~HODataFrame() override;
    // The copy shows the same map view.
    HORefPtr<HOPageLayoutBaseElement> create() const override;

private:
    HORefPtr<HOMapView> view() const;
    // The view moved (a pan or zoom inside the frame): that is now the frame's extent.
    void onViewMoved(void* sender, HOEvent* event);
    // Sets the view's extent without taking its pixel-fitted result back.
    void showInView(HOMapView& view, const HORect& extent, const HOSize* size);
    double metresPerMapUnit() const;
    void drawMap(QPainter& painter, const HOPageRenderContext& context, const QRectF& frame);
    void drawNote(QPainter& painter, const HOPageRenderContext& context, const QRectF& frame);

    mutable std::mutex m_mutex;  // guards m_view and m_note (drawn on render threads, set on the GUI thread)
    HORefPtr<HOMapView> m_view;
    HORect m_extent;
    QString m_note;
    bool m_showing = false;  // GUI thread: the frame itself is moving the view
    HODisplay m_page;        // the page's transform the frame was last laid out with
    mutable HODisplay m_display;
};

}  // namespace HXObjects
