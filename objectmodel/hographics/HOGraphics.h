#pragma once
// HOGraphics: a drawing surface of the graphics engine. The "QT" engine backs it with a QImage in
// Format_ARGB32_Premultiplied; renderers paint on it through a QPainter opened by Painter().
// Reference-counted; create through HOGraphicsEngineManager::NewGraphics().
#include "HOColor.h"
#include "HORefBase.h"
#include "HXExport.h"

#include <QImage>
#include <memory>

class QPainter;

namespace HXObjects {

class HX_EXPORT HOGraphics : public HORefBase {
public:
    HOGraphics();

    // The size in logical pixels; the pixel buffer holds the device pixel ratio times as many.
    virtual void SetSize(int width, int height);
    // Device pixels per logical pixel (1 unless set): painters opened on the surface draw in logical
    // pixels at the device's resolution. Takes effect with the next SetSize.
    void SetDevicePixelRatio(double ratio);
    // Rows of 32-bit premultiplied ARGB, Width() * 4 bytes each; null before the first SetSize.
    // Width() and Height() count the buffer's pixels, that is device pixels.
    virtual unsigned char* Bits();
    virtual int Width() const;
    virtual int Height() const;
    // Prepares the surface for drawing (ends any painter left open by a previous pass).
    virtual void Begin();
    virtual void Clear(const HOColor& color);

    // The painter renderers draw with; opened on first use and kept until End() or Begin().
    QPainter* Painter();
    void End();
    QImage& Image() { return m_image; }
    const QImage& Image() const { return m_image; }

protected:
    ~HOGraphics() override;

private:
    QImage m_image;
    double m_devicePixelRatio = 1.0;
    std::unique_ptr<QPainter> m_painter;
};

}  // namespace HXObjects
