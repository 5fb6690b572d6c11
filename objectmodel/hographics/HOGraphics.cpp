#include "HOGraphics.h"

#include <QPainter>
#include <QtMath>

namespace HXObjects {

HOGraphics::HOGraphics() = default;

HOGraphics::~HOGraphics() {
    End();
}

void HOGraphics::SetSize(int width, int height) {
    const QSize pixels(qCeil(width * m_devicePixelRatio), qCeil(height * m_devicePixelRatio));
    if (!m_image.isNull() && m_image.size() == pixels && m_image.devicePixelRatio() == m_devicePixelRatio)
        return;
    End();
    if (width <= 0 || height <= 0) {
        m_image = QImage();
        return;
    }
    m_image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    m_image.setDevicePixelRatio(m_devicePixelRatio);
    m_image.fill(Qt::transparent);
}

void HOGraphics::SetDevicePixelRatio(double ratio) {
    m_devicePixelRatio = ratio > 0 ? ratio : 1.0;
}

unsigned char* HOGraphics::Bits() {
    return m_image.isNull() ? nullptr : m_image.bits();
}

int HOGraphics::Width() const {
    return m_image.width();
}

int HOGraphics::Height() const {
    return m_image.height();
}

void HOGraphics::Begin() {
    End();
}

void HOGraphics::Clear(const HOColor& color) {
    if (m_image.isNull()) return;
    End();
    m_image.fill(color.toQColor());
}

QPainter* HOGraphics::Painter() {
    if (m_image.isNull()) return nullptr;
    if (!m_painter) {
        m_painter = std::make_unique<QPainter>(&m_image);
        m_painter->setRenderHint(QPainter::Antialiasing, true);
    }
    return m_painter.get();
}

void HOGraphics::End() {
    if (m_painter) {
        m_painter->end();
        m_painter.reset();
    }
}

}  // namespace HXObjects
