#pragma once
// A map view that records the redraws asked of it instead of rendering. Header-only; needs the
// map library.
#include <QStringList>

#include "HOMapView.h"

class HORedrawRecordingView : public HXObjects::HOMapView {
public:
    QStringList calls;
    void Refresh(HXObjects::HOLayer* layer, HXObjects::HOMapCache::CacheType type,
                 const HXObjects::HORect& area) override {
        calls << QString("Refresh %1 %2%3")
                     .arg(layer->GetName().toQString())
                     .arg(type)
                     .arg(area.IsEmpty() ? "" : " area");
    }
    void RequestRedraw(bool all) override { calls << QString("RequestRedraw %1").arg(all); }

protected:
    ~HORedrawRecordingView() override = default;
};
