#pragma once
// HOStoreReprojector: builds a feature store's copy in another coordinate system, once, when a layer
// is first drawn in it. The vertices are carried to the target's geographic system and cut to what
// the target can show (HOValidRegion): a part wholly inside is copied as it is, one across the edge or
// the seam is cut by GEOS and its pieces moved to the side they are drawn on, one outside is dropped.
// Edges longer than a degree are densified (straight in degrees is a curve once projected); then
// everything is projected, and a vertex that still fails is left out when drawn. Features keep their
// numbers, ids and kinds, so styles, categories and the selection apply to the copy as to the source.
#include <memory>
#include <vector>

#include "source/private/HOFeatureStore.h"

class OGRGeometry;
class OGRSimpleCurve;

namespace HXObjects {

class HOCoordinateSystem;
class HOValidRegion;

class HOStoreReprojector {
public:
    // Null when there is no transformation between the systems.
    static std::shared_ptr<const HOFeatureStore> Project(const HOFeatureStore& source,
                                                         const HOCoordinateSystem* from,
                                                         const HOCoordinateSystem* to);

private:
    HOStoreReprojector(const HOValidRegion& region, bool densify);

    void cutFeatures(const HOFeatureTopology& topology, const std::vector<HOVertex>& degrees);
    void cutPart(const HOVertex* first, const HOVertex* last, HOFeatureKind kind);
    // The part in m_scratch as an OGR polygon or line.
    std::unique_ptr<OGRGeometry> toOgr(bool area) const;
    void appendPieces(const OGRGeometry& geometry, HOFeatureKind kind, double shift);
    void appendCurve(const OGRSimpleCurve& curve, HOFeatureKind kind, double shift);
    // Appends the finite vertices moved by `shift` degrees of longitude, densified, as one part.
    void appendPart(const HOVertex* first, const HOVertex* last, HOFeatureKind kind, double shift);

    const HOValidRegion& m_region;
    bool m_densify;
    HOFeatureTopology m_topology;
    std::vector<HOVertex> m_vertices;
    std::vector<HOVertex> m_scratch;  // the finite vertices of the part being cut
    std::vector<HOVertex> m_piece;    // one cut piece at a time
};

}  // namespace HXObjects
