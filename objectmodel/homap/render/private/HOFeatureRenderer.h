#pragma once
// HOFeatureRenderer: one render of a feature layer. Finds the features meeting the visible extent,
// draws them in source order — when the load is large and the target a plain image, in horizontal
// bands of that image drawn at once on the render workers, each band drawing the features that reach
// it — and then the selected ones, emphasised, on top. Reports progress through the context while
// it draws.
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
    struct Band;

    // False when cancelled. `reports`: show progress now and then (only where the picture is whole).
    bool draw(HOFeaturePainter& painter, Range features, bool highlighted, bool reports) const;
    // Through the context's own painter.
    bool drawHere(const std::vector<uint32_t>& features, bool highlighted) const;
    void drawMembers(HOFeaturePainter& painter, uint32_t feature, bool highlighted) const;
    // `rows`: the first row of each band, then the picture's height.
    bool drawInBands(const std::vector<uint32_t>& features, const std::vector<int>& rows) const;
    // The threads the picture may be drawn on in bands (1: not in bands).
    int threads() const;
    // An estimate of the drawing work above each row of the picture (the last: all of it).
    std::vector<double> workByRow(const std::vector<uint32_t>& features) const;
    // The first row of each of `bandCount` bands of about equal work, then the picture's height.
    static std::vector<int> bandRows(const std::vector<double>& work, int bandCount);
    std::vector<Band> bandsOf(const std::vector<int>& rows) const;
    void drawBand(Band& band, Range features) const;

    const HOFeatureStore& m_store;
    const HOFeatureStyleSet& m_styles;
    const HORenderContext& m_context;
};

}  // namespace HXObjects
