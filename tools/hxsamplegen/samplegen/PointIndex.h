#pragma once

#include <QPointF>
#include <memory>
#include <vector>

// A spatial index over numbered points (an R-tree): spacing checks and nearest-neighbour queries for
// towns, rivers and parcels without scanning every point.
class PointIndex {
public:
    PointIndex();
    ~PointIndex();
    PointIndex(const PointIndex&) = delete;
    PointIndex& operator=(const PointIndex&) = delete;

    void insert(const QPointF& p, int id);
    bool anyWithin(const QPointF& p, double radius) const;
    // Ids of the count points nearest to p, nearest first.
    std::vector<int> nearest(const QPointF& p, int count) const;
    // The id of the nearest point if it lies within radius, else -1.
    int nearestWithin(const QPointF& p, double radius) const;
    QPointF point(int id) const;

private:
    double distanceTo(int id, const QPointF& p) const;

    struct Tree;
    std::unique_ptr<Tree> m_tree;
};
