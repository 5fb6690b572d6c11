#pragma once
// HOStyleJson: a style as a small JSON object (kind, colours as "#aarrggbb", sizes in pixels), the
// form in which graphic elements keep their styles in a file that people and other programs can read.
#include <QString>

#include "HOStyle.h"

namespace HXObjects {

class HOStyleJson {
public:
    static QString Write(const HOStyle& style);
    // Null when the text is not such an object.
    static HORefPtr<HOStyle> Read(const QString& text);
};

}  // namespace HXObjects
