#pragma once
// HORecordingView<View>: a map view or page-layout view that records, as text, each call the canvas
// makes of it, and reports the scale, extent and centre a test sets. Operations it does not override
// (Draw, RefreshMap, StopRender…) are the real view's.
#include <QMutex>
#include <QMutexLocker>
#include <QString>
#include <QStringList>

#include "HOMapView.h"
#include "HOPageLayoutView.h"

template <class View>
class HORecordingView : public View {
public:
    double scale = 50000.0;
    HXObjects::HORect extent{0.0, 400.0, 0.0, 200.0};
    HXObjects::HOPoint centre{200.0, 100.0};

    QStringList calls() const {
        QMutexLocker lock(&m_mutex);
        return m_calls;
    }
    void clearCalls() {
        QMutexLocker lock(&m_mutex);
        m_calls.clear();
    }

    void Wheel(int reserved, int delta, int x, int y) override {
        record(QString("Wheel %1 %2 %3 %4").arg(reserved).arg(delta).arg(x).arg(y));
    }
    void SetSize(int width, int height) override { record(QString("SetSize %1x%2").arg(width).arg(height)); }
    void SetSize(const HXObjects::HOSize& size) override { SetSize(size.width, size.height); }
    HXObjects::HORect GetExtent() override { return extent; }
    void SetExtent(const HXObjects::HORect& r) override {
        record(QString("SetExtent %1 %2 %3 %4").arg(r.minx).arg(r.maxx).arg(r.miny).arg(r.maxy));
    }
    void RefreshView(bool all) override { record(QString("RefreshView %1").arg(all)); }
    void PauseRender() override { record("PauseRender"); }
    void ResumeRender() override { record("ResumeRender"); }
    HXObjects::HOPoint GetCenter() override { return centre; }
    double GetScale() override { return scale; }
    void SetScale(double denominator) override { record(QString("SetScale %1").arg(denominator)); }
    void ZoomIn() override { record("ZoomIn"); }
    void ZoomOut() override { record("ZoomOut"); }
    void ZoomByFactor(double factor, const HXObjects::HOPoint* at) override {
        record(at ? QString("ZoomByFactor %1 at %2,%3").arg(factor).arg(at->x).arg(at->y)
                  : QString("ZoomByFactor %1").arg(factor));
    }
    void ResizeRefresh(int delayMs) override { record(QString("ResizeRefresh %1").arg(delayMs)); }

protected:
    ~HORecordingView() override = default;

private:
    void record(const QString& call) {
        QMutexLocker lock(&m_mutex);
        m_calls << call;
    }

    mutable QMutex m_mutex;
    QStringList m_calls;
};

using HORecordingMapView = HORecordingView<HXObjects::HOMapView>;
using HORecordingPageLayoutView = HORecordingView<HXObjects::HOPageLayoutView>;
