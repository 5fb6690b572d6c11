#include "HOFeatureLayer.h"

#include <QCoreApplication>

#include <ogrsf_frmts.h>

#include <algorithm>

#include "render/private/HOFeatureRenderer.h"
#include "render/private/HOFeatureStyleSet.h"
#include "render/private/HOStreamRenderer.h"
#include "source/private/HOExtentProjector.h"
#include "source/private/HOFeatureHitTest.h"
#include "source/private/HOFeatureLayerPrivate.h"
#include "source/private/HOFeatureStoreEditor.h"
#include "source/private/HOGdalOpener.h"
#include "source/private/HOMemoryBudget.h"
#include "source/private/HOOgrGeometryReader.h"

namespace HXObjects {

HOFeatureLayer::HOFeatureLayer() = default;
HOFeatureLayer::~HOFeatureLayer() = default;

HOLayer::LayerType HOFeatureLayer::GetLayerType() const {
    return d->type;
}

HORefPtr<HOCoordinateSystem> HOFeatureLayer::GetSpatialReference() const {
    return d->system;
}

HORect HOFeatureLayer::GetExtent() const {
    const HOBox& e = d->stream ? d->stream->Extent() : d->stores.Source()->Extent();
    return e.IsValid() ? HORect(e.min.x, e.max.x, e.min.y, e.max.y) : HORect();
}

HORect HOFeatureLayer::GetExtentIn(const HOCoordinateSystem* system) const {
    if (const std::shared_ptr<const HOFeatureStore> store = d->stores.MadeFor(system)) {
        const HOBox& e = store->Extent();
        return e.IsValid() ? HORect(e.min.x, e.max.x, e.min.y, e.max.y) : HORect();
    }
    return HOLayer::GetExtentIn(system);
}

void HOFeatureLayer::Render(const HORenderContext& context) {
    std::unique_lock<std::mutex> lock(d->mutex);
    const HOFeatureStyleSet styles(d->style, d->custom->GetAllStyles(), d->selected, d->categories);
    lock.unlock();
    if (d->stream) {
        HOStreamRenderer(*d->stream, d->overview.get(), styles, context, d->system.get()).Render();
        return;
    }
    const std::shared_ptr<const HOFeatureStore> store = d->stores.StoreFor(context.mapSystem);
    if (!store) return;  // no transformation into the map's system
    HOFeatureRenderer(*store, styles, context).Render();
}

int HOFeatureLayer::GetFeatureCount() const {
    return int(d->stream ? d->stream->FeatureCount() : d->stores.Source()->FeatureCount());
}

std::size_t HOFeatureLayer::GetGeometryBytes() const {
    const std::shared_ptr<const HOFeatureStore> held =
        d->overview ? d->overview->Store() : d->stores.Source();
    return held ? held->GeometryBytes() : 0;
}

void HOFeatureLayer::SetMemoryBudget(std::size_t bytes) {
    HOMemoryBudget::Set(bytes);
}

std::size_t HOFeatureLayer::GetMemoryBudget() {
    return HOMemoryBudget::Bytes();
}

bool HOFeatureLayer::IsStreamed() const {
    return d->stream != nullptr;
}

HORefPtr<HOStyle> HOFeatureLayer::GetStyle() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->style;
}

void HOFeatureLayer::SetStyle(HORefPtr<HOStyle> style) {
    std::lock_guard<std::mutex> lock(d->mutex);
    if (!style) return;
    d->style = std::move(style);
    d->styleIsDefault = false;
}

void HOFeatureLayer::SetDefaultStyleIndex(int index) {
    std::lock_guard<std::mutex> lock(d->mutex);
    if (d->styleIsDefault && d->style) d->style = HOStyle::NewDefault(d->style->GetStyleType(), index);
}

HORefPtr<HOUserFeatureRender> HOFeatureLayer::GetCustomFeatureRender() const {
    return d->custom;
}

bool HOFeatureLayer::SetCategoryStyles(const HOString& field,
                                       const std::map<HOString, HORefPtr<HOStyle>>& styles) {
    std::lock_guard<std::mutex> lock(d->mutex);
    if (field.isEmpty()) {
        d->categories.reset();
        d->categoryField = HOString();
        d->categoryStyles.clear();
        return true;
    }
    if (d->stream) return false;  // categories are read per feature held in memory
    std::unique_lock<std::mutex> reading(d->source->mutex);
    auto categories = HOFeatureCategories::Read(d->ogrLayer, d->stores.Source()->Topology(), field, styles);
    reading.unlock();
    if (!categories) return false;
    d->categories = std::move(categories);
    d->categoryField = field;
    d->categoryStyles = styles;
    return true;
}

HOString HOFeatureLayer::GetCategoryField() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->categoryField;
}

std::map<HOString, HORefPtr<HOStyle>> HOFeatureLayer::GetCategoryStyles() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->categoryStyles;
}

std::vector<HOString> HOFeatureLayer::GetFieldNames() const {
    // From what was read with the layer: an edit on a worker may be opening the source again.
    std::vector<HOString> names;
    for (const auto& field : d->fields) names.push_back(field.first);
    return names;
}

HOLabelSettings HOFeatureLayer::GetLabelSettings() const {
    return d->labels.Settings();
}

void HOFeatureLayer::SetLabelSettings(const HOLabelSettings& settings) {
    d->labels.SetSettings(settings);
}

bool HOFeatureLayer::PlaceLabels(const HORenderContext& context, HOLabelEngine& engine) {
    const std::shared_ptr<const HOFeatureStore> store = d->stores.StoreFor(context.mapSystem);
    if (!store || d->stream) return true;
    const HORefPtr<HOStyle> style = GetStyle();
    const double symbolRadius =
        style && style->GetStyleType() == HOStyle::MarkerStyle ? style->GetSize() / 2 : 0.0;
    return d->labels.Place(*store, context, engine, symbolRadius);
}

bool HOFeatureLayer::IsSameCoordinateSystem(HOCoordinateSystem* system) const {
    if (!system || !d->system) return !system && !d->system;
    return d->system->IsSame(system);
}

bool HOFeatureLayer::HasSelectedFeatures() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return !d->selected.empty();
}

std::vector<int> HOFeatureLayer::GetSelectedIds() const {
    std::lock_guard<std::mutex> lock(d->mutex);
    return std::vector<int>(d->selected.begin(), d->selected.end());
}

int HOFeatureLayer::SelectByRect(const HORect& rect, bool add, const HOCoordinateSystem* rectSystem) {
    const std::vector<int> found = IdentifyIn(rect, rectSystem);
    std::vector<int> ids = add ? GetSelectedIds() : std::vector<int>();
    ids.insert(ids.end(), found.begin(), found.end());
    SetSelectedIds(ids);
    return int(found.size());
}

void HOFeatureLayer::SetSelectedIds(const std::vector<int>& ids) {
    std::vector<int64_t> sorted(ids.begin(), ids.end());
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    std::lock_guard<std::mutex> lock(d->mutex);
    d->selected = std::move(sorted);
}

void HOFeatureLayer::ClearSelection() {
    std::lock_guard<std::mutex> lock(d->mutex);
    d->selected.clear();
}

std::vector<int> HOFeatureLayer::IdentifyAt(const HOPoint& point, double tolerance,
                                            const HOCoordinateSystem* pointSystem) const {
    const double t = std::max(tolerance, 0.0);
    std::vector<int> ids =
        IdentifyIn(HORect(point.x - t, point.x + t, point.y - t, point.y + t), pointSystem);
    std::reverse(ids.begin(), ids.end());
    return ids;
}

std::vector<int> HOFeatureLayer::IdentifyIn(const HORect& rect, const HOCoordinateSystem* rectSystem) const {
    std::vector<int> ids;
    if (d->stream) return streamedIdsIn(rect, rectSystem);
    const std::shared_ptr<const HOFeatureStore> store = d->stores.StoreFor(rectSystem);
    if (!store || !(rect.maxx >= rect.minx && rect.maxy >= rect.miny)) return ids;
    const HOBox box = HOBoxOf(rect);
    for (const uint32_t f : store->FeaturesIn(box))
        if (HOFeatureHitTest::Meets(*store, f, box)) ids.push_back(int(store->Topology().Id(f)));
    return ids;
}

std::vector<HOGeometry::Part> HOFeatureLayer::PartsIn(const HORect& rect,
                                                      const HOCoordinateSystem* rectSystem) const {
    std::vector<HOGeometry::Part> parts;
    const std::shared_ptr<const HOFeatureStore> store = d->stores.MadeFor(rectSystem);
    if (!store || !store->IsIndexReady() || !(rect.maxx >= rect.minx && rect.maxy >= rect.miny)) return parts;
    const HOFeatureTopology& t = store->Topology();
    const HOVertex* v = store->Vertices().data();
    for (const uint32_t f : store->FeaturesIn(HOBoxOf(rect))) {
        for (uint32_t part = t.PartBegin(f); part < t.PartEnd(f); ++part) {
            HOGeometry::Part points;
            points.reserve(t.VertexEnd(part) - t.VertexBegin(part));
            for (uint32_t i = t.VertexBegin(part); i < t.VertexEnd(part); ++i)
                points.emplace_back(v[i].x, v[i].y);
            parts.push_back(std::move(points));
        }
    }
    return parts;
}

bool HOFeatureLayer::IsValid() const {
    return d && d->stores.Source();
}

HORefPtr<HOFeature> HOFeatureLayer::GetFeature(int id) const {
    HORefPtr<HOGeometry> geometry = GetFeatureGeometry(id);
    if (!geometry) return nullptr;
    const auto read = [this, id](std::vector<HOFeature::Attribute>* attributes) {
        std::lock_guard<std::mutex> lock(d->source->mutex);
        OGRFeatureUniquePtr feature(d->ogrLayer->GetFeature(id));
        for (int i = 0; feature && i < feature->GetFieldCount(); ++i)
            attributes->emplace_back(
                HOString(feature->GetFieldDefnRef(i)->GetNameRef()),
                HOString(feature->IsFieldSetAndNotNull(i) ? feature->GetFieldAsString(i) : ""));
        return feature != nullptr;
    };
    return HORefPtr<HOFeature>(new HOFeature(id, geometry, d->attributes.Get(id, read)));
}

HORefPtr<HOGeometry> HOFeatureLayer::GetFeatureGeometry(int id) const {
    const std::shared_ptr<const HOFeatureStore> store =
        d->stream ? d->stream->Feature(id) : d->stores.Source();
    if (!store) return nullptr;
    const HOFeatureTopology& t = store->Topology();
    const long feature = t.IndexOf(id);
    if (feature < 0) return nullptr;
    HORefPtr<HOGeometry> geometry(new HOGeometry(GetGeometryType()));
    const HOVertex* v = store->Vertices().data();
    for (uint32_t part = t.PartBegin(std::size_t(feature)); part < t.PartEnd(std::size_t(feature)); ++part) {
        HOGeometry::Part points;
        points.reserve(t.VertexEnd(part) - t.VertexBegin(part));
        for (uint32_t i = t.VertexBegin(part); i < t.VertexEnd(part); ++i)
            points.emplace_back(v[i].x, v[i].y);
        geometry->AddPart(std::move(points));
    }
    return geometry;
}

HOGeometry::GeoType HOFeatureLayer::GetGeometryType() const {
    return d->geometryType;
}

}  // namespace HXObjects

namespace HXObjects {

bool HOFeatureLayer::IsEditable() const {
    return d->writer != nullptr;
}

HOString HOFeatureLayer::GetReadOnlyReason() const {
    return d->writer ? HOString()
                     : HOString(QCoreApplication::translate("HXObjects::HOFeatureLayer",
                                                            "the layer cannot be edited: %1")
                                    .arg(d->readOnlyReason.toQString()));
}

bool HOFeatureLayer::ApplyChanges(std::vector<HOFeatureChange>& changes, HOString* error) {
    HOString reason;
    HOString& why = error ? *error : reason;
    if (!d->writer) {
        why = GetReadOnlyReason();
        return false;
    }
    std::lock_guard<std::mutex> editing(d->editMutex);
    std::vector<HOFeatureChange> written = changes;
    for (HOFeatureChange& change : written) resolveIds(change);
    if (!d->writer->Apply(written, &why)) return false;
    noteIds(changes, written);
    d->attributes.Forget(written);
    changes = written;
    d->stores.ReplaceSource(HOFeatureStoreEditor::Apply(*d->stores.Source(), changes));
    if (d->writer->ReplacesFiles() && !reopenSource(&why)) return false;
    std::lock_guard<std::mutex> lock(d->mutex);
    for (const HOFeatureChange& change : changes)
        if (change.before && !change.after)
            d->selected.erase(std::remove(d->selected.begin(), d->selected.end(), change.before->GetID()),
                              d->selected.end());
    return true;
}

void HOFeatureLayer::resolveIds(HOFeatureChange& change) const {
    for (HORefPtr<HOFeature>* feature : {&change.before, &change.after}) {
        const auto found = *feature ? d->renamed.find((*feature)->GetID()) : d->renamed.end();
        if (found != d->renamed.end())
            *feature =
                new HOFeature(int(found->second), (*feature)->GetGeometry(), (*feature)->GetAttributes());
    }
}

void HOFeatureLayer::noteIds(const std::vector<HOFeatureChange>& wanted,
                             const std::vector<HOFeatureChange>& written) {
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const HOFeatureChange& asked = wanted[i];
        if (!asked.before && asked.after && asked.after->GetID() >= 0 &&
            asked.after->GetID() != written[i].after->GetID())
            d->renamed[asked.after->GetID()] = written[i].after->GetID();
    }
}

bool HOFeatureLayer::reopenSource(HOString* error) {
    std::lock_guard<std::mutex> lock(d->source->mutex);
    const std::string name = d->ogrLayer->GetName();
    GDALDatasetUniquePtr reopened = HOGdalOpener::Open(d->source->path, error);
    OGRLayer* layer = reopened ? reopened->GetLayerByName(name.c_str()) : nullptr;
    if (!layer) return false;
    d->source->dataset = std::move(reopened);
    d->ogrLayer = layer;
    return true;
}

std::vector<std::pair<HOString, HOString>> HOFeatureLayer::GetFields() const {
    return d->fields;
}

bool HOFeatureLayer::Reload(HOString* error) {
    if (d->stream) return true;  // it holds nothing read before
    std::lock_guard<std::mutex> editing(d->editMutex);
    if (d->writer && d->writer->ReplacesFiles() && !reopenSource(error)) return false;
    d->attributes.Clear();
    std::lock_guard<std::mutex> lock(d->source->mutex);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    HOOgrGeometryReader reader;
    reader.ReadLayer(d->ogrLayer, *d->source);
    auto topology = std::make_shared<HOFeatureTopology>(std::move(reader.Topology()));
    d->stores.ReplaceSource(std::make_shared<const HOFeatureStore>(topology, std::move(reader.Vertices()),
                                                                   std::move(reader.Boxes())));
    return true;
}

}  // namespace HXObjects

namespace HXObjects {

std::vector<int> HOFeatureLayer::streamedIdsIn(const HORect& rect,
                                               const HOCoordinateSystem* rectSystem) const {
    const HORect area = HOExtentProjector::Project(rect, rectSystem, d->system.get());
    if (!(area.maxx >= area.minx && area.maxy >= area.miny)) return {};
    const std::vector<int64_t> ids = d->stream->IdsMeeting(HOBoxOf(area));
    return std::vector<int>(ids.begin(), ids.end());
}

}  // namespace HXObjects
