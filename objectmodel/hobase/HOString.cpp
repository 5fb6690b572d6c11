#include "HOString.h"

#include <QLocale>
#include <clocale>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace HXObjects {

HOString::HOString(const char* utf8) : m_text(utf8 ? utf8 : "") {}

HOString::HOString(const wchar_t* wide) : HOString(std::wstring(wide ? wide : L"")) {}

HOString::HOString(const std::wstring& wide) : m_text(QString::fromStdWString(wide).toStdString()) {}

HOString& HOString::Format(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    va_list again;
    va_copy(again, args);
    const int needed = std::vsnprintf(nullptr, 0, fmt, args);
    va_end(args);
    if (needed < 0) {
        m_text.clear();
    } else {
        std::vector<char> buffer(static_cast<std::size_t>(needed) + 1);
        std::vsnprintf(buffer.data(), buffer.size(), fmt, again);
        m_text.assign(buffer.data(), static_cast<std::size_t>(needed));
    }
    va_end(again);
    return *this;
}

int HOString::CompareNoCase(const char* other) const {
    return QString::compare(toQString(), QString::fromUtf8(other ? other : ""), Qt::CaseInsensitive);
}

std::wstring HOString::toStdWString() const {
    return toQString().toStdWString();
}

double HOString::ToDouble() const {
    // strtod honours the process locale; parse with the C locale so "1.5" means one and a half
    // everywhere.
    const char* begin = m_text.c_str();
    locale_t c = newlocale(LC_NUMERIC_MASK, "C", static_cast<locale_t>(nullptr));
    char* end = nullptr;
    const double value = strtod_l(begin, &end, c);
    freelocale(c);
    return end == begin ? 0.0 : value;
}

}  // namespace HXObjects
