// Numbers people type (HXGis): a failure reads as 0, a whole number reads the same as a double, and
// every number the locale writes reads back exactly.
//   byte 0: locale; byte 1: 0 = the rest is text, 1 = 8 bytes of a double, 2 = 4 bytes of an int.
#include <cmath>

#include "FuzzInput.h"
#include "HXGis.h"

namespace {

void checkText(const QString& text) {
    bool ok = false;
    const double value = HXGis::permissiveToDouble(text, ok);
    FUZZ_CHECK(ok || value == 0.0, text);
    bool intOk = false;
    const int whole = HXGis::permissiveToInt(text, intOk);
    FUZZ_CHECK(intOk || whole == 0, text);
    if (intOk) FUZZ_CHECK(ok && value == whole, text);
}

void checkReadBack(double value, const QString& text) {
    bool ok = false;
    const double read = HXGis::permissiveToDouble(text, ok);
    FUZZ_CHECK(ok && read == value, text);
}

// Written without grouping, as people type, every locale's number reads back. Grouped, it does
// wherever the locale reads its own text (Qt 5 groups doubles by threes even where it reads only
// the locale's own grouping, as in hi_IN: 8,589,932,819.5 against 8,58,99,32,819.5).
void checkDouble(double value) {
    if (!std::isfinite(value)) return;
    QLocale plain;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    checkReadBack(value, plain.toString(value, 'g', 17));
    const QString grouped = QLocale().toString(value, 'g', 17);
    bool localeReads = false;
    QLocale().toDouble(grouped, &localeReads);
    if (localeReads) checkReadBack(value, grouped);
}

void checkInt(int value) {
    const QString text = QLocale().toString(value);
    bool ok = false;
    const int read = HXGis::permissiveToInt(text, ok);
    FUZZ_CHECK(ok && read == value, text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    input.useLocale();
    switch (input.byte() % 3) {
        case 0:
            checkText(input.text());
            break;
        case 1:
            checkDouble(input.rawDouble());
            break;
        default:
            checkInt(input.rawInt());
            break;
    }
    return 0;
}
