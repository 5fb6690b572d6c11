#pragma once
// HOFeatureLabeler: offers the labels of one feature layer's visible features to the label engine —
// points around their symbol, lines along each part, polygons inside. Features anchored in a cell
// of the picture that is already full are skipped before their text is measured.
#include <QPolygonF>
#include <vector>

#include "HORenderContext.h"
#include "render/labels/private/HOLabelEngine.h"
#include "render/labels/private/HOLabelTexts.h"
#include "source/private/HOFeatureStore.h"

namespace HXObjects {

class HOFeatureLabeler {
public:
    HOFeatureLabeler(const HOFeatureStore& store, const HOLabelTexts& texts, const HOLabelSettings& settings,
                     const HORenderContext& context, HOLabelEngine& engine, double symbolRadius);

    // False when cancelled.
    bool Run();

private:
    void label(uint32_t feature);
    void labelPoint(uint32_t feature);
    void labelLines(uint32_t feature);
    void labelPolygon(uint32_t feature);
    QPolygonF pixels(uint32_t part) const;
    // The text to offer, or nothing when the anchor's cell is full or the feature has no text.
    bool textFor(uint32_t feature, const QPointF& anchor, QString& text) const;
    // Places the label at its first free candidate; a miss counts against the anchor's cell.
    void offer(const QString& text, QSizeF size, const QPointF& anchor,
               const std::vector<HOLabelCandidate>& candidates);

    const HOFeatureStore& m_store;
    const HOLabelTexts& m_texts;
    const HOLabelSettings& m_settings;
    const HORenderContext& m_context;
    HOLabelEngine& m_engine;
    double m_symbolRadius;
    int m_style;
};

}  // namespace HXObjects
