#pragma once
// FuzzInput: reads what a fuzz target needs out of libFuzzer's bytes, in the order the target asks:
// single bytes (a locale, a mode), raw doubles and ints (every bit pattern, NaN and infinities too)
// and, last, the rest as UTF-8 text. Exhausted input reads as zeros and empty text.
// FUZZ_CHECK aborts with the failed property and the input in view, which libFuzzer reports as a
// crash and keeps as an artifact.
#include <QLocale>
#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : mData(data), mSize(size) {}

    uint8_t byte() { return mPos < mSize ? mData[mPos++] : 0; }

    double rawDouble() {
        double value = 0.0;
        take(&value, sizeof value);
        return value;
    }

    int32_t rawInt() {
        int32_t value = 0;
        take(&value, sizeof value);
        return value;
    }

    QString text() {
        const QString rest =
            QString::fromUtf8(reinterpret_cast<const char*>(mData + mPos), int(mSize - mPos));
        mPos = mSize;
        return rest;
    }

    // Makes one of several locales the default: digits grouped by ',', '.', a no-break space or an
    // apostrophe, decimal ',' or '.', Latin or Arabic-Indic digits.
    void useLocale() {
        static const char* const names[] = {"C",     "en_US", "de_DE", "fr_FR", "ru_RU",
                                            "hi_IN", "de_CH", "ar_EG", "fa_IR", "sv_SE"};
        QLocale::setDefault(QLocale(QString::fromLatin1(names[byte() % (sizeof names / sizeof *names)])));
    }

private:
    void take(void* out, size_t bytes) {
        const size_t n = mPos + bytes <= mSize ? bytes : mSize - mPos;
        std::memcpy(out, mData + mPos, n);
        mPos += n;
    }

    const uint8_t* mData;
    size_t mSize;
    size_t mPos = 0;
};

[[noreturn]] inline void fuzzFail(const char* property, const QString& context) {
    std::fprintf(stderr, "property failed: %s\n  locale %s, input: %s\n", property,
                 qPrintable(QLocale().name()), context.toUtf8().constData());
    std::abort();
}

#define FUZZ_CHECK(property, context)                  \
    do {                                               \
        if (!(property)) fuzzFail(#property, context); \
    } while (0)
