// The scale box's text: what any typed text turns into, and that a scale survives being shown.
//   byte 0: locale; byte 1: even = the rest is typed text, odd = 8 bytes of a ratio.
#include <cmath>
#include <limits>

#include "FuzzInput.h"
#include "HXScaleText.h"

namespace {

QString numberText(double value) {
    return QString::number(value, 'g', 17);
}

// The box shows toString of a ratio and then holds what that text reads as: a usable scale (or 0,
// "no scale") that it shows again unchanged, or it refuses the text and keeps its scale. (The text
// itself may change once: a ratio just above 1 shows as "1:1" in the locale's digits, "۱:1", and
// 1 shows as "1:۱".)
void checkShown(double ratio) {
    const QString shown = HXScaleText::toString(ratio);
    if (shown.isEmpty()) return;
    bool ok = false;
    const double held = HXScaleText::toDouble(shown, &ok);
    if (!ok) return;
    const QString context = numberText(ratio) + " shown as " + shown;
    FUZZ_CHECK(std::isfinite(held) && held >= 0.0, context);
    FUZZ_CHECK((held == 0.0) == (shown == QLatin1String("0")), context);
    bool againOk = false;
    FUZZ_CHECK(HXScaleText::toDouble(HXScaleText::toString(held), &againOk) == held && againOk, context);
}

void checkTyped(const QString& text) {
    bool ok = false;
    const double scale = HXScaleText::toDouble(text, &ok);
    FUZZ_CHECK(!ok || std::isfinite(scale), text);
    bool typedOk = false;
    const double typed = HXScaleText::fromTyped(text, &typedOk);
    FUZZ_CHECK(typedOk == ok, text);
    if (typedOk) checkShown(typed);
}

// A positive ratio whose denominator (or numerator) fits an int reads back as exactly 1/n (or n).
void checkRatio(double ratio) {
    if (!std::isfinite(ratio) || ratio <= 0.0) return;
    checkShown(ratio);
    const bool reduction = ratio <= 1.0;
    const double n = std::round(reduction ? 1.0 / ratio : ratio);
    if (n < 1.0 || n > std::numeric_limits<int>::max()) return;
    const QString shown = HXScaleText::toString(ratio);
    bool ok = false;
    const double held = HXScaleText::toDouble(shown, &ok);
    const QString context = numberText(ratio) + " shown as " + shown;
    FUZZ_CHECK(ok, context);
    FUZZ_CHECK(held == (reduction ? 1.0 / n : n), context);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    input.useLocale();
    if (input.byte() % 2 == 0) {
        checkTyped(input.text());
    } else {
        checkRatio(input.rawDouble());
    }
    return 0;
}
