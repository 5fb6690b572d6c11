#include "render/private/HOFeatureStyleSet.h"

#include "HOStylePainter.h"

#include <algorithm>

namespace HXObjects {

HOStyle::StyleType HOFeatureStyleSet::StyleTypeOf(HOFeatureKind kind) {
    switch (kind) {
        case HOFeatureKind::Point:
            return HOStyle::MarkerStyle;
        case HOFeatureKind::Line:
            return HOStyle::LineStyle;
        default:
            return HOStyle::FillStyle;
    }
}

HORefPtr<HOStyle> HOFeatureStyleSet::DefaultStyle(HOFeatureKind kind) {
    return HOStyle::NewDefault(StyleTypeOf(kind), 0);
}

HORefPtr<HOStyle> HOFeatureStyleSet::HighlightStyle(HOFeatureKind kind) {
    const HOColor cyan(0, 255, 255), yellow(255, 255, 0, 160);
    switch (kind) {
        case HOFeatureKind::Point: {
            HORefPtr<HOStyle> style = HOStyle::NewMarker(HOStyle::Circle, 9.0, HOColor(255, 255, 0));
            style->SetOutlineColor(cyan);
            style->SetWidth(2.0);
            return style;
        }
        case HOFeatureKind::Line:
            return HOStyle::NewLine(3.0, cyan);
        default:
            return HOStyle::NewFill(yellow, cyan, 2.0);
    }
}

HOFeatureStyleSet::HOFeatureStyleSet(HORefPtr<HOStyle> layerStyle, std::map<int, HORefPtr<HOStyle>> overrides,
                                     std::vector<int64_t> selectedSorted,
                                     std::shared_ptr<const HOFeatureCategories> categories)
    : m_overrides(std::move(overrides)),
      m_selected(std::move(selectedSorted)),
      m_categories(std::move(categories)) {
    for (int k = 0; k < 4; ++k) {
        const auto kind = HOFeatureKind(k);
        const bool own =
            layerStyle && layerStyle->GetStyleType() == StyleTypeOf(kind) && kind != HOFeatureKind::Empty;
        m_byKind[k] = own ? layerStyle : DefaultStyle(kind);
        m_highlight[k] = HighlightStyle(kind);
        m_reach = std::max(m_reach, HOStylePainter::Reach(*m_byKind[k]));
    }
    for (const auto& style : m_overrides) m_reach = std::max(m_reach, HOStylePainter::Reach(*style.second));
    if (m_categories)
        for (const auto& style : m_categories->Styles())
            m_reach = std::max(m_reach, HOStylePainter::Reach(*style));
}

const HOStyle& HOFeatureStyleSet::StyleFor(HOFeatureKind kind, std::size_t feature, int64_t id) const {
    if (!m_overrides.empty()) {
        const auto it = m_overrides.find(int(id));
        if (it != m_overrides.end()) return *it->second;
    }
    if (m_categories)
        if (const HOStyle* style = m_categories->StyleOf(feature)) return *style;
    return *m_byKind[int(kind)];
}

const HOStyle& HOFeatureStyleSet::MemberStyleFor(HOFeatureKind kind, std::size_t feature, int64_t id) const {
    const HOStyle& style = StyleFor(kind, feature, id);
    return style.GetStyleType() == StyleTypeOf(kind) ? style : KindStyle(kind);
}

bool HOFeatureStyleSet::IsSelected(int64_t id) const {
    return std::binary_search(m_selected.begin(), m_selected.end(), id);
}

}  // namespace HXObjects
