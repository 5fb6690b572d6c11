#pragma once
// HOLabelCollisionIndex: the boxes of the labels placed so far in one picture, in a grid of square
// cells, so that testing a new box looks at the few boxes near it. It also counts, per cell, the
// labels that found no room there: once a cell has refused enough, later features anchored in it
// are skipped before their text is even measured — that bounds the cost on dense layers.
#include <QRectF>
#include <QSize>
#include <cstdint>
#include <vector>

namespace HXObjects {

class HOLabelCollisionIndex {
public:
    static constexpr int kCellSize = 32;  // pixels
    static constexpr uint8_t kMaxMissesPerCell = 2;

    // Labels must lie wholly inside `area`, a part of the picture whose top left is (0, 0).
    explicit HOLabelCollisionIndex(const QRectF& area);

    // True when the box lies inside the area and meets no placed box.
    bool IsFree(const QRectF& box) const;
    void Insert(const QRectF& box);

    // A cell that has refused kMaxMissesPerCell labels is full for the rest of this picture.
    bool IsFull(const QPointF& anchor) const;
    void NoteMiss(const QPointF& anchor);

private:
    int cellOf(const QPointF& p) const;
    template <typename Visit>
    bool forCells(const QRectF& box, Visit visit) const;

    QRectF m_bounds;
    int m_columns;
    int m_rows;
    std::vector<QRectF> m_boxes;
    std::vector<std::vector<uint32_t>> m_cells;  // box numbers per cell
    std::vector<uint8_t> m_misses;
};

}  // namespace HXObjects
