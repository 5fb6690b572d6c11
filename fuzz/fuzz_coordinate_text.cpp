// The coordinates box's text: a typed position is finite or refused, and a shown position reads back
// to within its three decimals.
//   byte 0: even = the rest is typed text, odd = 16 bytes of two coordinates.
#include <cmath>

#include "FuzzInput.h"
#include "HXCoordinateText.h"

namespace {

// Three decimals shown, and the binary error of a long number on top.
bool closeEnough(double shown, double value) {
    return std::fabs(shown - value) <= 0.0005 + std::fabs(value) * 1e-15;
}

void checkTyped(const QString& text) {
    const double untouched = -7.25;
    double x = untouched;
    double y = untouched;
    if (!HXCoordinateText::parse(text, &x, &y)) {
        FUZZ_CHECK(x == untouched && y == untouched, text);
        return;
    }
    FUZZ_CHECK(std::isfinite(x) && std::isfinite(y), text);
    double x2 = 0.0;
    double y2 = 0.0;
    FUZZ_CHECK(HXCoordinateText::parse(HXCoordinateText::pair(x, y), &x2, &y2), text);
    FUZZ_CHECK(closeEnough(x2, x) && closeEnough(y2, y), text);
}

void checkShown(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return;
    const QString shown = HXCoordinateText::pair(x, y);
    const QString spaced = HXCoordinateText::number(x) + "   " + HXCoordinateText::number(y);
    for (const QString& text : {shown, spaced}) {
        double x2 = 0.0;
        double y2 = 0.0;
        FUZZ_CHECK(HXCoordinateText::parse(text, &x2, &y2), text);
        FUZZ_CHECK(closeEnough(x2, x) && closeEnough(y2, y), text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    if (input.byte() % 2 == 0) {
        checkTyped(input.text());
    } else {
        const double x = input.rawDouble();
        checkShown(x, input.rawDouble());
    }
    return 0;
}
