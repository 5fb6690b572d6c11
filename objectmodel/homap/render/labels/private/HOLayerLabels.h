#pragma once
// HOLayerLabels: a feature layer's label settings and the texts read for them. The texts are read
// lazily, on the render thread, the first time the layer is labelled with an expression, and kept
// until the expression changes; the GUI thread only ever swaps the settings.
#include <QString>
#include <memory>
#include <mutex>

#include "HOLabelSettings.h"
#include "HORenderContext.h"
#include "render/labels/private/HOLabelTexts.h"
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOLabelEngine;

class HOLayerLabels {
public:
    // The data source (a path GDAL opens) and the layer in it the texts come from.
    HOLayerLabels(QString source, QString layerName);

    HOLabelSettings Settings() const;
    void SetSettings(const HOLabelSettings& settings);

    // Offers the labels of the store's visible features; false when cancelled.
    bool Place(const HOFeatureStore& store, const HORenderContext& context, HOLabelEngine& engine,
               double symbolRadius);

private:
    std::shared_ptr<const HOLabelTexts> textsFor(const HOFeatureStore& store, const HOLabelSettings& settings,
                                                 const HORenderContext& context);

    const QString m_source;
    const QString m_layerName;
    mutable std::mutex m_mutex;  // guards the two below; never held while reading
    HOLabelSettings m_settings;
    std::shared_ptr<const HOLabelTexts> m_texts;
};

}  // namespace HXObjects
