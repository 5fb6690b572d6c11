#pragma once
// HOPageExporter: puts a page layout on paper or into a file — a PDF (maps as vectors, text as text,
// rasters at the chosen resolution), a PNG or TIFF image at a chosen resolution, or a printer. All go
// through HOPageLayoutView::Print, the drawing the screen uses. Runs on the calling thread and draws
// every map in full, so hosts call it off the GUI thread or headless.
#include <QString>

#include "HXExport.h"

class QPrinter;

namespace HXObjects {

class HOPageLayoutView;

class HX_EXPORT HOPageExporter {
public:
    static constexpr int kMaxDpi = 1200;
    // An image bigger than this many pixels is refused (an A0 sheet at 300 dpi is 140 million).
    static constexpr double kMaxImagePixels = 400e6;

    // False with a reason for a resolution that is not in 1..kMaxDpi.
    static bool CheckDpi(int dpi, QString* error);
    static bool ExportPdf(HOPageLayoutView& layout, const QString& path, int dpi, const QString& title,
                          QString* error);
    // The format follows the file's suffix (png, tif, tiff, jpg).
    static bool ExportImage(HOPageLayoutView& layout, const QString& path, int dpi, QString* error);
    // Prints on the printer's paper size set to the layout's sheet, at the printer's resolution.
    static bool Print(HOPageLayoutView& layout, QPrinter& printer, QString* error);
};

}  // namespace HXObjects
