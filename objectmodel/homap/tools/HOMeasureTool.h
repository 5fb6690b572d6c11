#pragma once
// HOMeasureTool: the base of the measuring tools. Clicks place the measured points (snapped like any
// point a tool places); while the mouse moves the running figure shows in the buddy's tip beside the
// pointer and on its command line; a double click or Enter ends the measurement and adds the figure to
// the command line's notices, Backspace drops the last point and Escape clears. The points are the
// elements of the tool's own graphics layer, whose id the buddy keeps (setMeasurePointLayerId), drawn
// over the map until the next measurement starts. Figures are geodesic (HOMeasurement) in the map's
// display unit.
#include <QString>

#include "HOGraphicsLayer.h"
#include "HOMapTool.h"
#include "HOUnitType.h"

namespace HXObjects {

class HOMeasurement;

class HOMeasureTool : public HOMapTool {
public:
    void Activate() override;
    void Deactivate() override;
    void ClearToolPaint() override;
    void OnMouseDown(int button, int x, int y) override;
    void OnMouseMove(int button, int x, int y) override;
    void OnDoubleClick(int button, int x, int y) override;
    bool OnKeyDown(int key) override;
    void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) override;

    // The measured points, in map units.
    HOGeometry::Part GetPoints() const;
    // The text of the last figure shown ("Length: 111319.49 m"); empty before any.
    QString GetFigureText() const;

protected:
    HOMeasureTool();
    ~HOMeasureTool() override;
    // The figure's text for the points (the pointer's position included while measuring).
    virtual QString Figure(const HOMeasurement& measurement, const HOGeometry::Part& points,
                           HOUnitType unit) const = 0;
    // The shape that joins the points on the map (a line, or a ring).
    virtual HOGeometry::GeoType PathType() const = 0;

private:
    void addPoint(const HOPoint& point);
    void dropLastPoint();
    void finish();
    void clear();
    // Shows the points and the figure for them (with `hover` when given).
    void show(const HOPoint* hover, int x, int y);
    void redrawLayer(const HOGeometry::Part& points);

    HORefPtr<HOGraphicsLayer> m_layer;
    HOGeometry::Part m_points;
    bool m_finished = false;
    QString m_figure;
};

}  // namespace HXObjects
