#include "HOLayer.h"

#include <QFileInfo>

#include "HOCoordinateSystem.h"
#include "HODataSource.h"
#include "source/private/HOExtentProjector.h"

namespace HXObjects {

namespace {
std::atomic<int> nextLayerId{1};
}

HOLayer::HOLayer() : m_id(nextLayerId.fetch_add(1)) {}

HORect HOLayer::GetExtentIn(const HOCoordinateSystem* system) const {
    // The default rectangle is a layer without data, not a point at the origin to carry elsewhere.
    const HORect extent = GetExtent();
    if (extent == HORect()) return extent;
    return HOExtentProjector::Project(extent, GetSpatialReference().get(), system);
}

HOString HOLayer::GetName() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_name;
}

void HOLayer::SetName(const HOString& name) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_name = name;
}

HOString HOLayer::GetSource() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_source;
}

void HOLayer::SetSource(const HOString& source) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_source = source;
}

HORefPtr<HOLayer> OpenLayer(const HOString& source, HOString* error) {
    // "path|layername=NAME" picks one layer of a multi-layer source; a file whose own name holds
    // that text still opens whole.
    const QString text = source.toQString();
    const QLatin1String marker("|layername=");
    const int bar = text.lastIndexOf(marker);
    const bool named = bar >= 0 && !QFileInfo::exists(text);
    HOString reason;
    HORefPtr<HOLayer> layer;
    if (HORefPtr<HODataSource> data =
            HODataSource::open(named ? HOString(text.left(bar)) : source, &reason)) {
        const int index = named ? data->indexOf(HOString(text.mid(bar + marker.size())), &reason) : 0;
        if (index >= 0) layer = data->openLayer(index, &reason);
    }
    if (layer)
        layer->SetSource(source);
    else if (error)
        error->Format("cannot open '%s': %s", source.c_str(), reason.c_str());
    return layer;
}

}  // namespace HXObjects
