#pragma once
// HOPageClipboard: what the element commands (copy, paste, delete) do on a page. Copied elements
// travel as a private MIME type holding their layout-document entries (data sources with absolute
// paths, frame links kept among the copied elements) and as WKT text of their outlines in page
// units; pasting adds copies offset by a few millimetres and selects them.
#include <QString>
#include <vector>

#include "HOPageLayoutBaseElement.h"

class QMimeData;

namespace HXObjects {

class HOGraphicsContainer;

class HOPageClipboard {
public:
    static const char* const kMimeType;  // "application/x-hxmapcontrols-page-elements"
    static constexpr double kPasteOffset = 5.0;

    // The selected elements for the clipboard; null when nothing is selected. The caller owns it.
    static QMimeData* Copy(const HOGraphicsContainer& container);
    // Adds the elements of the clipboard data on top and selects them (only them); the elements added.
    static std::vector<HORefPtr<HOPageLayoutBaseElement>> Paste(HOGraphicsContainer& container,
                                                                const QMimeData& data);
    // Removes the selected elements; how many.
    static int DeleteSelected(HOGraphicsContainer& container);
};

}  // namespace HXObjects
