#include "render/labels/private/HOLayerLabels.h"

#include "render/labels/private/HOFeatureLabeler.h"

namespace HXObjects {

HOLayerLabels::HOLayerLabels(QString source, QString layerName)
    : m_source(std::move(source)), m_layerName(std::move(layerName)) {}

HOLabelSettings HOLayerLabels::Settings() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_settings;
}

void HOLayerLabels::SetSettings(const HOLabelSettings& settings) {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_settings = settings;
}

std::shared_ptr<const HOLabelTexts> HOLayerLabels::textsFor(const HOFeatureStore& store,
                                                            const HOLabelSettings& settings,
                                                            const HORenderContext& context) {
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_texts && m_texts->Fits(settings.expression, store.SharedTopology())) return m_texts;
    }
    auto texts = HOLabelTexts::Read(m_source, m_layerName, store.SharedTopology(), settings, context.cancel);
    std::lock_guard<std::mutex> lock(m_mutex);
    if (texts) m_texts = texts;
    return texts;
}

bool HOLayerLabels::Place(const HOFeatureStore& store, const HORenderContext& context, HOLabelEngine& engine,
                          double symbolRadius) {
    const HOLabelSettings settings = Settings();
    if (!settings.IsEnabled()) return true;
    const std::shared_ptr<const HOLabelTexts> texts = textsFor(store, settings, context);
    if (!texts) return !context.IsCancelled();
    return HOFeatureLabeler(store, *texts, settings, context, engine, symbolRadius).Run();
}

}  // namespace HXObjects
