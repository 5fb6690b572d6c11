#include "source/private/HOFeatureStream.h"

#include <ogrsf_frmts.h>

#include "source/private/HOFeatureHitTest.h"
#include "source/private/HOGdalOpener.h"
#include "source/private/HOOgrGeometryReader.h"

namespace HXObjects {

namespace {

// Bytes a feature costs in memory besides its vertices: its box, offsets, kind and a share of the
// spatial index.
constexpr double bytesPerFeature = sizeof(HOBox) + 2 * sizeof(uint32_t) + 1 + 16;
constexpr int sampleSize = 1000;

std::shared_ptr<const HOFeatureStore> storeOf(HOOgrGeometryReader& reader) {
    reader.Finish();
    auto topology = std::make_shared<HOFeatureTopology>(std::move(reader.Topology()));
    return std::make_shared<const HOFeatureStore>(topology, std::move(reader.Vertices()),
                                                  std::move(reader.Boxes()), HOFeatureStore::Indexing::None);
}

}  // namespace

struct HOFeatureStream::Handle {
    GDALDatasetUniquePtr dataset;
    OGRLayer* layer = nullptr;
};

// A handle taken from the pool (or newly opened) and given back when the read is over.
class HOFeatureStream::Lease {
public:
    explicit Lease(const HOFeatureStream& stream) : m_stream(stream) {
        std::unique_lock<std::mutex> lock(stream.m_mutex);
        if (!stream.m_idle.empty()) {
            m_handle = std::move(stream.m_idle.back());
            stream.m_idle.pop_back();
            return;
        }
        lock.unlock();
        m_handle = stream.open();
    }
    ~Lease() {
        if (!m_handle) return;
        std::lock_guard<std::mutex> lock(m_stream.m_mutex);
        m_stream.m_idle.push_back(std::move(m_handle));
    }
    OGRLayer* Layer() const { return m_handle ? m_handle->layer : nullptr; }

private:
    const HOFeatureStream& m_stream;
    std::unique_ptr<Handle> m_handle;
};

bool HOFeatureStream::Exceeds(OGRLayer* layer, std::size_t budget) {
    const GIntBig count = layer->GetFeatureCount(FALSE);
    if (count <= 0 || double(count) * bytesPerFeature <= double(budget) / 1024) return false;  // surely fits
    HOOgrGeometryReader sample;
    layer->SetSpatialFilter(nullptr);
    layer->ResetReading();
    int read = 0;
    for (; read < sampleSize; ++read) {
        OGRFeatureUniquePtr feature{layer->GetNextFeature()};
        if (!feature) break;
        sample.AppendFeature(feature->GetGeometryRef(), feature->GetFID());
    }
    layer->ResetReading();
    if (read == 0) return false;
    const double perFeature = double(sample.Vertices().size() * sizeof(HOVertex)) / read + bytesPerFeature;
    return perFeature * double(count) > double(budget);
}

HOFeatureStream::HOFeatureStream(std::string path, std::string layerName, const HOBox& extent,
                                 std::size_t count)
    : m_path(std::move(path)), m_layerName(std::move(layerName)), m_extent(extent), m_count(count) {}

HOFeatureStream::~HOFeatureStream() = default;

std::unique_ptr<HOFeatureStream::Handle> HOFeatureStream::open() const {
    auto handle = std::make_unique<Handle>();
    handle->dataset = HOGdalOpener::OpenVector(m_path);
    handle->layer = handle->dataset ? handle->dataset->GetLayerByName(m_layerName.c_str()) : nullptr;
    if (!handle->layer) return nullptr;
    HOOgrGeometryReader::SkipAttributes(handle->layer);
    return handle;
}

bool HOFeatureStream::Read(const HOBox& area, std::size_t batchSize, const BatchHandler& handler) const {
    Lease lease(*this);
    OGRLayer* layer = lease.Layer();
    if (!layer) return false;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    layer->SetSpatialFilterRect(area.min.x, area.min.y, area.max.x, area.max.y);
    layer->ResetReading();
    auto reader = std::make_unique<HOOgrGeometryReader>();
    std::size_t inBatch = 0;
    while (OGRFeatureUniquePtr feature{layer->GetNextFeature()}) {
        reader->AppendFeature(feature->GetGeometryRef(), feature->GetFID());
        if (++inBatch < batchSize) continue;
        if (!handler(*storeOf(*reader))) return false;
        reader = std::make_unique<HOOgrGeometryReader>();
        inBatch = 0;
    }
    return inBatch == 0 || handler(*storeOf(*reader));
}

std::vector<int64_t> HOFeatureStream::IdsMeeting(const HOBox& area) const {
    std::vector<int64_t> ids;
    Read(area, 4096, [&](const HOFeatureStore& batch) {
        for (uint32_t f = 0; f < batch.FeatureCount(); ++f)
            if (HOFeatureHitTest::Meets(batch, f, area)) ids.push_back(batch.Topology().Id(f));
        return true;
    });
    return ids;
}

std::shared_ptr<const HOFeatureStore> HOFeatureStream::Feature(int64_t id) const {
    Lease lease(*this);
    OGRLayer* layer = lease.Layer();
    if (!layer) return nullptr;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OGRFeatureUniquePtr feature{layer->GetFeature(id)};
    if (!feature) return nullptr;
    HOOgrGeometryReader reader;
    reader.AppendFeature(feature->GetGeometryRef(), feature->GetFID());
    return storeOf(reader);
}

}  // namespace HXObjects
