#pragma once
// HOFeatureStyleSet: the styles one render of a feature layer uses, copied at its start so the GUI
// thread may change the layer meanwhile: a style per geometry kind, the per-feature overrides, and
// the styles by attribute value, and the selected ids with the emphasis they are drawn in.
#include <map>
#include <vector>

#include "HOStyle.h"
#include "render/private/HOFeatureCategories.h"
#include "source/private/HOFeatureTopology.h"

namespace HXObjects {

class HOFeatureStyleSet {
public:
    // The built-in style of a kind (what a layer draws with until given one).
    static HORefPtr<HOStyle> DefaultStyle(HOFeatureKind kind);
    // The emphasis for selected features of a kind.
    static HORefPtr<HOStyle> HighlightStyle(HOFeatureKind kind);
    static HOStyle::StyleType StyleTypeOf(HOFeatureKind kind);

    HOFeatureStyleSet(HORefPtr<HOStyle> layerStyle, std::map<int, HORefPtr<HOStyle>> overrides,
                      std::vector<int64_t> selectedSorted,
                      std::shared_ptr<const HOFeatureCategories> categories);

    // The feature's override, else the style of its category, else the layer's style for the kind.
    const HOStyle& StyleFor(HOFeatureKind kind, std::size_t feature, int64_t id) const;
    // The same for one member of a collection that mixes kinds: a style made for another kind gives
    // way to the layer's style for the member's.
    const HOStyle& MemberStyleFor(HOFeatureKind kind, std::size_t feature, int64_t id) const;
    const HOStyle& Highlight(HOFeatureKind kind) const { return *m_highlight[int(kind)]; }
    const HOStyle& KindStyle(HOFeatureKind kind) const { return *m_byKind[int(kind)]; }
    bool IsSelected(int64_t id) const;
    bool HasSelection() const { return !m_selected.empty(); }
    // The most any feature's style draws beyond its geometry, in pixels (the emphasis aside).
    double Reach() const { return m_reach; }

private:
    HORefPtr<HOStyle> m_byKind[4];
    HORefPtr<HOStyle> m_highlight[4];
    std::map<int, HORefPtr<HOStyle>> m_overrides;
    std::vector<int64_t> m_selected;
    std::shared_ptr<const HOFeatureCategories> m_categories;
    double m_reach = 0;
};

}  // namespace HXObjects
