#pragma once
// HXSymbolUtils: small pictures of styles for lists, buttons and dialogs.
#include <QPixmap>
#include <QSize>

#include "HXExport.h"

namespace HXObjects {
class HOStyle;
}

class HX_EXPORT HXSymbolUtils {
public:
    // The style drawn as a sample (marker, zigzag line or filled square) on a transparent pixmap;
    // a transparent pixmap for a null style.
    static QPixmap symbolPreviewPixmap(HXObjects::HOStyle* style, QSize size);
};
