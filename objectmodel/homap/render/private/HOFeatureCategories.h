#pragma once
// HOFeatureCategories: a style per value of one attribute field, and which of them each feature of a
// layer takes (read once through OGR when the styles are set).
#include <map>
#include <memory>
#include <vector>

#include "HOString.h"
#include "HOStyle.h"
#include "source/private/HOFeatureTopology.h"

class OGRLayer;

namespace HXObjects {

class HOFeatureCategories {
public:
    // Null when the layer has no such field.
    static std::shared_ptr<const HOFeatureCategories> Read(
        OGRLayer* layer, const HOFeatureTopology& topology, const HOString& field,
        const std::map<HOString, HORefPtr<HOStyle>>& styles);

    // The style of the feature's value, or null when its value has none.
    const std::vector<HORefPtr<HOStyle>>& Styles() const { return m_styles; }
    const HOStyle* StyleOf(std::size_t feature) const {
        const uint16_t category = m_categories[feature];
        return category ? m_styles[category - 1u].get() : nullptr;
    }

private:
    std::vector<uint16_t> m_categories;  // per feature: 0 none, else 1 + index into m_styles
    std::vector<HORefPtr<HOStyle>> m_styles;
};

}  // namespace HXObjects
