#pragma once
// HOString: the object model's text type. UTF-8 inside; converts to and from narrow, wide and Qt
// strings. Value type, cheap to copy (std::string).
#include <QString>
#include <string>

#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOString {
public:
    HOString() = default;
    HOString(const char* utf8);
    HOString(const std::string& utf8) : m_text(utf8) {}
    HOString(const wchar_t* wide);
    HOString(const std::wstring& wide);
    HOString(const QString& text) : m_text(text.toStdString()) {}

    bool isEmpty() const { return m_text.empty(); }
    std::size_t size() const { return m_text.size(); }
    const char* c_str() const { return m_text.c_str(); }

    // printf-style formatting into this string (any length); returns *this.
    HOString& Format(const char* fmt, ...) __attribute__((format(printf, 2, 3)));

    // 0 when equal ignoring ASCII and Unicode case, <0 / >0 otherwise.
    int CompareNoCase(const char* other) const;
    int compareTo(const HOString& other) const { return m_text.compare(other.m_text); }

    bool operator==(const HOString& o) const { return m_text == o.m_text; }
    bool operator!=(const HOString& o) const { return m_text != o.m_text; }
    bool operator==(const char* o) const { return o ? m_text == o : m_text.empty(); }
    bool operator!=(const char* o) const { return !(*this == o); }
    bool operator==(const wchar_t* o) const { return *this == HOString(o); }
    bool operator!=(const wchar_t* o) const { return !(*this == o); }
    bool operator==(const std::wstring& o) const { return *this == HOString(o); }
    bool operator!=(const std::wstring& o) const { return !(*this == o); }
    bool operator<(const HOString& o) const { return m_text < o.m_text; }

    const std::string& toStdString() const { return m_text; }
    std::wstring toStdWString() const;
    operator std::wstring() const { return toStdWString(); }
    QString toQString() const { return QString::fromStdString(m_text); }
    operator QString() const { return toQString(); }

    // The leading number of the text (C locale, surrounding blanks ignored); 0 when the text does
    // not start with a number.
    double ToDouble() const;

private:
    std::string m_text;
};

}  // namespace HXObjects
