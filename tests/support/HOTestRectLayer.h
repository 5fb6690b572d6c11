#pragma once
// A test layer that fills one rectangle (map units) with a colour. It can be made slow: it then takes
// `renderMs` per render, polling the cancel flag and reporting progress every millisecond as real
// layers do, so tests can cancel a render mid-way. It counts how often it was asked to render and how often
// it gave up. Header-only: only tests that link the map library include it.
#include <QColor>
#include <QPainter>
#include <atomic>
#include <chrono>
#include <thread>

#include "HOCoordinateSystem.h"
#include "HOLayer.h"
#include "HORenderContext.h"

class HOTestRectLayer : public HXObjects::HOLayer {
public:
    HOTestRectLayer(const HXObjects::HORect& rect, const QColor& color,
                    HXObjects::HORefPtr<HXObjects::HOCoordinateSystem> system = nullptr)
        : m_rect(rect), m_color(color), m_system(std::move(system)) {}

    LayerType GetLayerType() const override { return PolygonLayer; }
    HXObjects::HORefPtr<HXObjects::HOCoordinateSystem> GetSpatialReference() const override {
        return m_system;
    }
    HXObjects::HORect GetExtent() const override { return m_rect; }
    HXObjects::HORect GetExtentIn(const HXObjects::HOCoordinateSystem*) const override { return m_rect; }

    void Render(const HXObjects::HORenderContext& context) override {
        ++renders;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(renderMs.load());
        while (std::chrono::steady_clock::now() < end) {
            if (context.IsCancelled()) {
                ++cancelled;
                return;
            }
            context.ReportProgress();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        const HXObjects::HOPoint a = context.transform.ToDevice({m_rect.minx, m_rect.maxy});
        const HXObjects::HOPoint b = context.transform.ToDevice({m_rect.maxx, m_rect.miny});
        context.painter->fillRect(QRectF(QPointF(a.x, a.y), QPointF(b.x, b.y)), m_color);
        ++completed;
    }

    std::atomic<int> renderMs{0};
    std::atomic<int> renders{0};
    std::atomic<int> completed{0};
    std::atomic<int> cancelled{0};

private:
    HXObjects::HORect m_rect;
    QColor m_color;
    HXObjects::HORefPtr<HXObjects::HOCoordinateSystem> m_system;
};
