#pragma once
// HOFeatureRenderer: one render of a feature layer. Finds the features meeting the visible extent,
// draws them in source order — split in two pictures composed in order, the second drawn on a render
// worker, when the load is large and the target is a plain image — and then the selected ones,
// emphasised, on top. Reports progress through the context while it draws.
#include <vector>

#include "HORenderContext.h"
#include "render/private/HOFeatureStyleSet.h"
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOFeaturePainter;

class HOFeatureRenderer {
public:
    HOFeatureRenderer(const HOFeatureStore& store, const HOFeatureStyleSet& styles,
                      const HORenderContext& context);

    void Render();

private:
    using Range = std::pair<const uint32_t*, const uint32_t*>;

    bool draw(QPainter& painter, Range features, bool highlighted) const;
    void drawMembers(HOFeaturePainter& painter, uint32_t feature, bool highlighted) const;
    bool drawInTwo(Range features) const;
    Range::first_type balancedMiddle(Range features) const;
    bool canSplit(std::size_t count) const;

    const HOFeatureStore& m_store;
    const HOFeatureStyleSet& m_styles;
    const HORenderContext& m_context;
};

}  // namespace HXObjects
