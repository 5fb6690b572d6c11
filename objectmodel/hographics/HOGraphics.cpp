#include "HOGraphics.h"

#include <QPainter>

namespace HXObjects {

HOGraphics::HOGraphics() = default;

HOGraphics::~HOGraphics() { End(); }

void HOGraphics::SetSize(int width, int height) {
    if (width == m_image.width() && height == m_image.height() && !m_image.isNull()) return;
    End();
    if (width <= 0 || height <= 0) {
        m_image = QImage();
        return;
    }
    m_image = QImage(width, height, QImage::Format_ARGB32_Premultiplied);
    m_image.fill(Qt::transparent);
}

unsigned char* HOGraphics::Bits() { return m_image.isNull() ? nullptr : m_image.bits(); }

int HOGraphics::Width() const { return m_image.width(); }

int HOGraphics::Height() const { return m_image.height(); }

void HOGraphics::Begin() { End(); }

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
