#include "HODataFrame.h"

#include "HOMapView.h"

namespace HXObjects {

HODataFrame::HODataFrame() : HOPageLayoutBaseElement(HOElementDataFrame) {}
HODataFrame::~HODataFrame() = default;

HOMapView* HODataFrame::get_map_view() const { return m_view.get(); }
void HODataFrame::set_map_view(HOMapView* view) { m_view = view; }
HODisplay* HODataFrame::get_screendisplay() const { return &m_display; }
void HODataFrame::draw(QPainter&, const HODisplayTransform&) {}

}  // namespace HXObjects
