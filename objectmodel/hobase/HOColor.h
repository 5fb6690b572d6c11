#pragma once
// HOColor: red, green, blue and alpha, each 0-255.
#include <QColor>

#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOColor {
public:
    HOColor() = default;
    HOColor(int r, int g, int b, int a = 255) : m_r(r), m_g(g), m_b(b), m_a(a) {}
    explicit HOColor(const QColor& c) : HOColor(c.red(), c.green(), c.blue(), c.alpha()) {}

    int getR() const { return m_r; }
    int getG() const { return m_g; }
    int getB() const { return m_b; }
    int getA() const { return m_a; }
    QColor toQColor() const { return QColor(m_r, m_g, m_b, m_a); }

    bool operator==(const HOColor& o) const {
        return m_r == o.m_r && m_g == o.m_g && m_b == o.m_b && m_a == o.m_a;
    }
    bool operator!=(const HOColor& o) const { return !(*this == o); }

private:
    int m_r = 0, m_g = 0, m_b = 0, m_a = 255;
};

}  // namespace HXObjects
