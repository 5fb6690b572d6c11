#pragma once
// HOLayoutDocument: a page layout as a JSON document, versioned and readable by a person:
//
//   { "format": "hxlayout", "version": 1,
//     "page": { "paper": "A4", "width": 297, "height": 210, "landscape": true, "margin": 10 },
//     "operatingFrame": 0,
//     "elements": [ { "type": "dataframe", "bounds": [minx, maxx, miny, maxy], "map": {...} },
//                   { "type": "scalebar", "bounds": [...], "frame": 0, "properties": {...} }, ... ] }
//
// Elements are listed bottom to top; "frame" and "operatingFrame" are indexes into "elements"; the
// map of a data frame is HOMapDocument's, with paths relative to the document. Reading builds the
// whole layout aside and hands it over only when the document is sound.
#include <QDir>
#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <vector>

#include "HOPageLayoutBaseElement.h"
#include "HOPageSetup.h"
#include "HXExport.h"

namespace HXObjects {

class HOFileFunc;
class HOPageLayoutView;

class HX_EXPORT HOLayoutDocument {
public:
    static constexpr int kVersion = 1;

    // What a document holds, ready to be put on a page.
    struct Contents {
        HOPageSetup setup;
        std::vector<HORefPtr<HOPageLayoutBaseElement>> elements;
        HORefPtr<HOPageLayoutBaseElement> operating;
        QStringList missing;  // sources that could not be opened
    };

    static bool Save(HOPageLayoutView& layout, HOFileFunc& file);
    // Elements as the document lists them; a link to a frame outside `elements` is written as -1.
    static QJsonArray ElementsToJson(const std::vector<HORefPtr<HOPageLayoutBaseElement>>& elements,
                                     const QDir& folder);
    // The elements of such a list, linked among themselves; false with the reason in `error`.
    static bool ElementsFromJson(const QJsonArray& list, const QDir& folder, Contents* contents,
                                 QString* error);
    // False with the reason in the file's error for a document that is not a layout, is damaged or
    // is of a newer version.
    static bool Load(HOFileFunc& file, Contents* contents);
};

}  // namespace HXObjects
