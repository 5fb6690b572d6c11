#include "render/private/HOFeatureCategories.h"

#include <ogrsf_frmts.h>

#include <limits>

namespace HXObjects {

std::shared_ptr<const HOFeatureCategories> HOFeatureCategories::Read(
    OGRLayer* layer, const HOFeatureTopology& topology, const HOString& field,
    const std::map<HOString, HORefPtr<HOStyle>>& styles) {
    OGRFeatureDefn* defn = layer->GetLayerDefn();
    const int fieldIndex = defn->GetFieldIndex(field.c_str());
    if (fieldIndex < 0 || styles.size() >= std::numeric_limits<uint16_t>::max()) return nullptr;
    auto categories = std::make_shared<HOFeatureCategories>();
    std::map<std::string, uint16_t> byValue;
    for (const auto& entry : styles) {
        if (!entry.second) continue;
        categories->m_styles.push_back(entry.second);
        byValue[entry.first.toStdString()] = uint16_t(categories->m_styles.size());
    }
    categories->m_categories.assign(topology.FeatureCount(), 0);

    // Only the one field, and geometry not at all.
    CPLStringList ignored;
    for (int i = 0; i < defn->GetFieldCount(); ++i)
        if (i != fieldIndex) ignored.AddString(defn->GetFieldDefn(i)->GetNameRef());
    ignored.AddString("OGR_GEOMETRY");
    ignored.AddString("OGR_STYLE");
    layer->SetIgnoredFields(const_cast<const char**>(ignored.List()));
    layer->ResetReading();
    std::size_t position = 0;
    while (OGRFeatureUniquePtr feature{layer->GetNextFeature()}) {
        // Features come in the order they were loaded; look the id up only if not.
        long index = position < topology.FeatureCount() && topology.Id(position) == feature->GetFID()
                         ? long(position)
                         : topology.IndexOf(feature->GetFID());
        ++position;
        if (index < 0 || !feature->IsFieldSetAndNotNull(fieldIndex)) continue;
        const auto it = byValue.find(feature->GetFieldAsString(fieldIndex));
        if (it != byValue.end()) categories->m_categories[std::size_t(index)] = it->second;
    }
    layer->SetIgnoredFields(nullptr);
    return categories;
}

}  // namespace HXObjects
