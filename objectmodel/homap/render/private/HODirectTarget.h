#pragma once
// HODirectTarget: the pixels of the 32-bit image a painter draws into, when they may be written
// directly — no transform, device pixel ratio, opacity or composition mode of the painter's would then
// be skipped, and its clip, if any, is a run of whole rows, which writers keep to. Invalid (null
// bits) otherwise. Also the one premultiplied source-over blend they share.
#include <QPainter>
#include <algorithm>
#include <cstdint>

namespace HXObjects {

struct HODirectTarget {
    uint32_t* bits = nullptr;
    std::ptrdiff_t stride = 0;  // pixels from one row to the next
    int width = 0;
    int height = 0;
    int top = 0;     // the first row that may be written
    int bottom = 0;  // the row after the last

    static HODirectTarget Of(QPainter& painter) {
        HODirectTarget target;
        QPaintDevice* device = painter.device();
        if (!device || device->devType() != QInternal::Image) return target;
        auto* image = static_cast<QImage*>(device);
        const bool format =
            image->format() == QImage::Format_ARGB32_Premultiplied || image->format() == QImage::Format_RGB32;
        // A HiDPI picture's painter scales logical pixels to device ones outside its transform.
        if (!format || image->devicePixelRatio() != 1.0 || !painter.transform().isIdentity() ||
            painter.opacity() != 1.0 || painter.compositionMode() != QPainter::CompositionMode_SourceOver)
            return target;
        target.bits = reinterpret_cast<uint32_t*>(image->bits());
        target.stride = image->bytesPerLine() / 4;
        target.width = image->width();
        target.height = image->height();
        target.top = 0;
        target.bottom = target.height;
        if (painter.hasClipping()) {
            const QRegion clip = painter.clipRegion();
            const QRect rows = clip.boundingRect();
            if (clip.rectCount() != 1 || rows.left() > 0 || rows.right() < target.width - 1) return {};
            target.top = std::max(0, rows.top());
            target.bottom = std::max(target.top, std::min(target.height, rows.bottom() + 1));
        }
        return target;
    }

    bool IsValid() const { return bits != nullptr; }

    // x * a / 255 on all four premultiplied channels at once.
    static uint32_t ByteMul(uint32_t x, uint32_t a) {
        uint32_t t = (x & 0xff00ff) * a;
        t = ((t + ((t >> 8) & 0xff00ff) + 0x800080) >> 8) & 0xff00ff;
        x = ((x >> 8) & 0xff00ff) * a;
        x = (x + ((x >> 8) & 0xff00ff) + 0x800080) & 0xff00ff00;
        return x | t;
    }
    // Source over destination, both premultiplied.
    static void Blend(uint32_t& dst, uint32_t src) {
        const uint32_t alpha = src >> 24;
        if (alpha == 255)
            dst = src;
        else if (alpha)
            dst = src + ByteMul(dst, 255 - alpha);
    }
};

}  // namespace HXObjects
