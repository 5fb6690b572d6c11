#include "render/labels/private/HOLabelCollisionIndex.h"

#include <algorithm>
#include <cmath>

namespace HXObjects {

HOLabelCollisionIndex::HOLabelCollisionIndex(const QRectF& area)
    : m_bounds(area),
      m_columns(std::max(1, int(std::ceil(area.right() / kCellSize)))),
      m_rows(std::max(1, int(std::ceil(area.bottom() / kCellSize)))),
      m_cells(std::size_t(m_columns) * std::size_t(m_rows)),
      m_misses(m_cells.size(), 0) {}

int HOLabelCollisionIndex::cellOf(const QPointF& p) const {
    if (!m_bounds.contains(p)) return -1;
    const int column = std::min(int(p.x()) / kCellSize, m_columns - 1);
    const int row = std::min(int(p.y()) / kCellSize, m_rows - 1);
    return row * m_columns + column;
}

template <typename Visit>
bool HOLabelCollisionIndex::forCells(const QRectF& box, Visit visit) const {
    const int left = std::max(0, int(box.left()) / kCellSize);
    const int right = std::min(m_columns - 1, int(box.right()) / kCellSize);
    const int top = std::max(0, int(box.top()) / kCellSize);
    const int bottom = std::min(m_rows - 1, int(box.bottom()) / kCellSize);
    for (int row = top; row <= bottom; ++row)
        for (int column = left; column <= right; ++column)
            if (!visit(row * m_columns + column)) return false;
    return true;
}

bool HOLabelCollisionIndex::IsFree(const QRectF& box) const {
    if (!m_bounds.contains(box)) return false;
    return forCells(box, [&](int cell) {
        for (const uint32_t placed : m_cells[std::size_t(cell)])
            if (m_boxes[placed].intersects(box)) return false;
        return true;
    });
}

void HOLabelCollisionIndex::Insert(const QRectF& box) {
    const auto number = uint32_t(m_boxes.size());
    m_boxes.push_back(box);
    forCells(box, [&](int cell) {
        m_cells[std::size_t(cell)].push_back(number);
        return true;
    });
}

bool HOLabelCollisionIndex::IsFull(const QPointF& anchor) const {
    const int cell = cellOf(anchor);
    return cell >= 0 && m_misses[std::size_t(cell)] >= kMaxMissesPerCell;
}

void HOLabelCollisionIndex::NoteMiss(const QPointF& anchor) {
    const int cell = cellOf(anchor);
    if (cell >= 0 && m_misses[std::size_t(cell)] < kMaxMissesPerCell) ++m_misses[std::size_t(cell)];
}

}  // namespace HXObjects
