#include "render/labels/private/HOLabelTexts.h"

#include <ogrsf_frmts.h>

#include "source/private/HOGdalOpener.h"

namespace HXObjects {

namespace {

constexpr int kCancelPollInterval = 4096;

// Reads only the named fields, never the geometry.
bool readOnly(OGRLayer* layer, const std::vector<QString>& fields, std::vector<int>& indices) {
    OGRFeatureDefn* defn = layer->GetLayerDefn();
    for (const QString& field : fields) {
        indices.push_back(defn->GetFieldIndex(field.toUtf8().constData()));
        if (indices.back() < 0) return false;
    }
    CPLStringList ignored;
    for (int i = 0; i < defn->GetFieldCount(); ++i)
        if (std::find(indices.begin(), indices.end(), i) == indices.end())
            ignored.AddString(defn->GetFieldDefn(i)->GetNameRef());
    ignored.AddString("OGR_GEOMETRY");
    ignored.AddString("OGR_STYLE");
    layer->SetIgnoredFields(const_cast<const char**>(ignored.List()));
    return true;
}

}  // namespace

std::shared_ptr<const HOLabelTexts> HOLabelTexts::Read(
    const QString& source, const QString& layerName, const std::shared_ptr<const HOFeatureTopology>& features,
    const HOLabelSettings& settings, const HOTrackCancel* cancel) {
    const GDALDatasetUniquePtr dataset = HOGdalOpener::OpenVector(source.toStdString());
    OGRLayer* layer = dataset ? dataset->GetLayerByName(layerName.toUtf8().constData()) : nullptr;
    const std::vector<QString> fields = settings.Fields();
    std::vector<int> indices;
    const HOFeatureTopology& topology = *features;
    if (!layer || !readOnly(layer, fields, indices)) return nullptr;

    // Texts are collected by feature number; features arrive in load order, looked up by id if not.
    std::vector<QString> texts(topology.FeatureCount());
    std::vector<QString> values(fields.size());
    std::size_t position = 0;
    for (OGRFeatureUniquePtr feature{layer->GetNextFeature()}; feature;
         feature.reset(layer->GetNextFeature())) {
        if (++position % kCancelPollInterval == 0 && cancel && cancel->IsCancelled()) return nullptr;
        const std::size_t guess = position - 1;
        const long index = guess < topology.FeatureCount() && topology.Id(guess) == feature->GetFID()
                               ? long(guess)
                               : topology.IndexOf(feature->GetFID());
        if (index < 0) continue;
        for (std::size_t i = 0; i < fields.size(); ++i)
            values[i] = feature->IsFieldSetAndNotNull(indices[i])
                            ? QString::fromUtf8(feature->GetFieldAsString(indices[i]))
                            : QString();
        texts[std::size_t(index)] = settings.Compose(values);
    }

    auto result = std::make_shared<HOLabelTexts>();
    result->m_expression = settings.expression;
    result->m_topology = features;
    result->m_start.reserve(texts.size() + 1);
    for (QString& text : texts) {
        result->m_start.push_back(uint32_t(result->m_buffer.size()));
        result->m_buffer += text;
        text.clear();
    }
    result->m_start.push_back(uint32_t(result->m_buffer.size()));
    return result;
}

}  // namespace HXObjects
