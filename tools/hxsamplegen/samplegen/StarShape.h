#pragma once

#include <QPointF>
#include <memory>
#include <vector>

class FractalNoise;
class OGRLinearRing;

// An outline that every ray from its centre crosses exactly once, given by its radius at equal angle
// steps counter-clockwise from east. Lakes, islands and the mainland are such shapes: however rough the
// noise that sets the radii, the outline cannot cross itself.
class StarShape {
public:
    StarShape(const QPointF& centre, std::vector<double> radii);

    // A rounded blob of the given mean radius; roughness is the relative amplitude of the noisy rim and
    // noisePhase picks an independent part of the noise field.
    static StarShape blob(const QPointF& centre, double radius, double roughness, int vertexCount,
                          const FractalNoise& noise, double noisePhase);

    const QPointF& centre() const { return m_centre; }
    double maxRadius() const { return m_maxRadius; }
    int vertexCount() const { return int(m_radii.size()); }
    double angleOf(int vertex) const;
    double radius(int vertex) const { return m_radii[vertex]; }

    double radiusAt(double angle) const;  // interpolated between the vertices
    // The rim's distance beyond p along p's ray: positive inside, negative outside.
    double edgeDistance(const QPointF& p) const;
    bool contains(const QPointF& p, double margin = 0) const { return edgeDistance(p) > margin; }

    std::unique_ptr<OGRLinearRing> ring() const;  // closed, counter-clockwise

private:
    QPointF m_centre;
    std::vector<double> m_radii;
    double m_maxRadius = 0;
};
