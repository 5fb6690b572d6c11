#pragma once
// HORenderContext: everything a layer needs to draw one picture: the painter, the pixel <-> map
// transform, the output size, the visible extent in the map's coordinate system, that system, and
// the cancel flag to poll between batches, and the progress hook to call there too.
#include <functional>

#include "HODisplayTransform.h"
#include "HORect.h"
#include "HOSize.h"
#include "HOTrackCancel.h"

class QPainter;

namespace HXObjects {

class HOCoordinateSystem;

struct HORenderContext {
    QPainter* painter = nullptr;
    HODisplayTransform transform;
    HOSize size;
    HORect extent;                                  // map coordinates of the visible area
    const HOCoordinateSystem* mapSystem = nullptr;  // null: layers draw in their own coordinates
    const HOTrackCancel* cancel = nullptr;
    double dpi = 96.0;
    // Device pixels per logical pixel of the painter's device. The painter already draws in logical
    // pixels; a layer that reads or rasterises pixels itself uses this to work at the device's.
    double devicePixelRatio = 1.0;
    // Threads a large layer may draw on at once: 0 for as many as the machine has cores, 1 for the
    // calling thread alone. The picture is the same either way.
    int parallelism = 0;
    // Called by ReportProgress; may be empty.
    std::function<void()> progress;

    // `transform` in device pixels, for a layer that makes its own pixels at the device's resolution.
    HODisplayTransform DeviceTransform() const {
        HODisplayTransform device = transform;
        device.deviceLeft *= devicePixelRatio;
        device.deviceTop *= devicePixelRatio;
        device.unitsPerPixel /= devicePixelRatio;
        return device;
    }
    bool IsCancelled() const { return cancel && cancel->IsCancelled(); }
    // A long layer calls this now and then between batches, on the thread that owns `painter` and
    // with the picture consistent: the view may show what is drawn so far (it decides how often).
    void ReportProgress() const {
        if (progress) progress();
    }
    // Draws `size` pixels under the transform: sets both and the visible extent they make.
    void SetArea(const HODisplayTransform& pixels, const HOSize& area) {
        transform = pixels;
        size = area;
        const HOPoint topLeft = pixels.ToMap(0, 0);
        const HOPoint bottomRight = pixels.ToMap(area.width, area.height);
        extent = HORect(topLeft.x, bottomRight.x, bottomRight.y, topLeft.y);
    }
};

}  // namespace HXObjects
