#pragma once
// HOFeatureChange: one change of one feature of a feature layer, as the layer read it (`before`)
// and as it is to be (`after`). No `before` adds `after`; no `after` deletes `before`; both replace
// it. The attributes name the fields to set; fields not named keep their values (or their defaults
// for a new feature). A feature without geometry in a change of attributes keeps its geometry
// (and the stored one is not compared). A list of changes is written to the data source as one transaction.
#include "HOFeature.h"
#include "HORefPtr.h"
#include "HXExport.h"

namespace HXObjects {

struct HX_EXPORT HOFeatureChange {
    HORefPtr<HOFeature> before;
    HORefPtr<HOFeature> after;

    // The change that takes `after` back to `before`.
    HOFeatureChange Inverse() const { return {after, before}; }
};

}  // namespace HXObjects
