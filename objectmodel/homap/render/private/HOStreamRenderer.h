#pragma once
// HOStreamRenderer: one render of a layer drawn from its source (HOFeatureStream). At a scale where
// the layer's overview is within a pixel of the source, draws the overview from memory (once it is
// built); otherwise reads the features meeting the visible extent through the source's spatial index, batch
// by batch, and draws each batch as it arrives — the picture fills in progressively, and each batch is
// reported through the context's progress, so the view may show it meanwhile. Features in another coordinate
// system than the map's are carried over batch by batch.
#include "HORenderContext.h"
#include "render/private/HOFeatureStyleSet.h"

namespace HXObjects {

class HOFeatureOverview;
class HOFeatureStore;
class HOFeatureStream;

class HOStreamRenderer {
public:
    // `layerSystem`: the features' system (null: the map's).
    HOStreamRenderer(const HOFeatureStream& stream, const HOFeatureOverview* overview,
                     const HOFeatureStyleSet& styles, const HORenderContext& context,
                     const HOCoordinateSystem* layerSystem);

    void Render();

private:
    bool drawBatch(const HOFeatureStore& batch) const;
    // Whether the view's scale is one the overview is drawn at.
    bool overviewFits() const;
    // Draws the overview when it fits and is ready; false when not.
    bool drawOverview() const;
    bool needsProjection() const;
    // The visible extent in the layer's system (invalid when there is no transformation).
    HOBox areaInLayer() const;

    const HOFeatureStream& m_stream;
    const HOFeatureOverview* m_overview;
    const HOFeatureStyleSet& m_styles;
    const HORenderContext& m_context;
    const HOCoordinateSystem* m_layerSystem;
};

}  // namespace HXObjects
