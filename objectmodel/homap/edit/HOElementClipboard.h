#pragma once
// HOElementClipboard: graphic elements on the system clipboard. Copied elements travel in a private
// MIME type (geometry, style and label, exactly) and as WKT text, one geometry per line, so a text
// editor receives WKT; WKT text copied elsewhere comes back as elements with the default style.
#include "HOElement.h"
#include "HXExport.h"

#include <vector>

class QMimeData;

namespace HXObjects {

class HX_EXPORT HOElementClipboard {
public:
    static const char* const kMimeType;

    // New mime data holding the elements; the caller owns it.
    static QMimeData* Encode(const std::vector<HORefPtr<HOElement>>& elements);
    // The elements the data holds (with id 0); empty when it holds neither elements nor WKT.
    static std::vector<HORefPtr<HOElement>> Decode(const QMimeData* data);

    // Puts the elements on the application's clipboard.
    static void Put(const std::vector<HORefPtr<HOElement>>& elements);
    // The elements on the application's clipboard.
    static std::vector<HORefPtr<HOElement>> Take();

private:
    static std::vector<HORefPtr<HOElement>> decodePrivate(const QByteArray& bytes);
    static std::vector<HORefPtr<HOElement>> decodeWkt(const QString& text);
};

}  // namespace HXObjects
