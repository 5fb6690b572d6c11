#include "HOPageExporter.h"

#include <cpl_error.h>
#include <gdal.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <cmath>

#include "HOPageLayoutView.h"

namespace HXObjects {

namespace {

constexpr double kMmPerInch = 25.4;

// The texts of this file, translated in the context HXObjects::HOPageExporter.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(HXObjects::HOPageExporter)
};

QPageLayout pageLayoutOf(const HOPageSetup& setup) {
    const QSizeF portrait(std::min(setup.Width(), setup.Height()), std::max(setup.Width(), setup.Height()));
    return QPageLayout(QPageSize(portrait, QPageSize::Millimeter, QString(), QPageSize::ExactMatch),
                       setup.IsLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
}

// Draws the layout on a paged device whose resolution is already set.
bool paintOn(HOPageLayoutView& layout, QPagedPaintDevice& device, double dpi, const QString& path,
             QString* error) {
    device.setPageLayout(pageLayoutOf(layout.GetPageSetup()));
    QPainter painter;
    if (!painter.begin(&device)) {
        if (error) *error = Text::tr("cannot write '%1'").arg(path);
        return false;
    }
    layout.Print(painter, dpi);
    return painter.end();
}

bool isTiff(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "tif" || suffix == "tiff";
}

// TIFF through GDAL's writer (Qt's TIFF plug-in is optional), with the resolution in its tags.
bool writeTiff(const QImage& page, const QString& path, int dpi, QString* error) {
    const QImage image = page.convertToFormat(QImage::Format_RGBA8888);
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    GDALDriverH driver = GDALGetDriverByName("GTiff");
    const char* options[] = {"COMPRESS=DEFLATE", "PHOTOMETRIC=RGB", "ALPHA=UNASSOCIATED", nullptr};
    GDALDatasetH dataset = driver ? GDALCreate(driver, path.toUtf8().constData(), image.width(),
                                               image.height(), 4, GDT_Byte, const_cast<char**>(options))
                                  : nullptr;
    bool ok = dataset != nullptr;
    if (ok) {
        const QByteArray resolution = QByteArray::number(dpi);
        GDALSetMetadataItem(dataset, "TIFFTAG_XRESOLUTION", resolution.constData(), nullptr);
        GDALSetMetadataItem(dataset, "TIFFTAG_YRESOLUTION", resolution.constData(), nullptr);
        GDALSetMetadataItem(dataset, "TIFFTAG_RESOLUTIONUNIT", "2", nullptr);  // inches
        // The image's bytes are R, G, B, A per pixel: four interleaved bands.
        int bands[] = {1, 2, 3, 4};
        ok = GDALDatasetRasterIO(dataset, GF_Write, 0, 0, image.width(), image.height(),
                                 const_cast<uchar*>(image.constBits()), image.width(), image.height(),
                                 GDT_Byte, 4, bands, 4, image.bytesPerLine(), 1) == CE_None;
        GDALClose(dataset);
        ok = ok && CPLGetLastErrorType() < CE_Failure;
    }
    if (!ok && error)
        *error = Text::tr("cannot write '%1': %2").arg(path, QString::fromUtf8(CPLGetLastErrorMsg()));
    return ok;
}

bool writeImage(const QImage& image, const QString& path, int dpi, QString* error) {
    if (isTiff(path)) return writeTiff(image, path, dpi, error);
    QImageWriter writer(path);
    if (writer.write(image)) return true;
    if (error) *error = Text::tr("cannot write '%1': %2").arg(path, writer.errorString());
    return false;
}

}  // namespace

bool HOPageExporter::CheckDpi(int dpi, QString* error) {
    if (dpi >= 1 && dpi <= kMaxDpi) return true;
    if (error) *error = Text::tr("a resolution of %1 dpi is outside 1 to %2 dpi").arg(dpi).arg(kMaxDpi);
    return false;
}

bool HOPageExporter::ExportPdf(HOPageLayoutView& layout, const QString& path, int dpi, const QString& title,
                               QString* error) {
    if (!CheckDpi(dpi, error)) return false;
    QPdfWriter writer(path);
    writer.setResolution(dpi);
    writer.setTitle(title);
    writer.setCreator(QCoreApplication::applicationName());
    return paintOn(layout, writer, dpi, path, error);
}

bool HOPageExporter::Print(HOPageLayoutView& layout, QPrinter& printer, QString* error) {
    printer.setFullPage(true);
    return paintOn(layout, printer, printer.resolution(), printer.outputFileName(), error);
}

bool HOPageExporter::ExportImage(HOPageLayoutView& layout, const QString& path, int dpi, QString* error) {
    if (!CheckDpi(dpi, error)) return false;
    const HOPageSetup setup = layout.GetPageSetup();
    const int width = qRound(setup.Width() / kMmPerInch * dpi),
              height = qRound(setup.Height() / kMmPerInch * dpi);
    if (double(width) * height > kMaxImagePixels) {
        if (error)
            *error = Text::tr("a %1 x %2 pixel image is too large; choose a lower resolution")
                         .arg(width)
                         .arg(height);
        return false;
    }
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        if (error) *error = Text::tr("not enough memory for a %1 x %2 pixel image").arg(width).arg(height);
        return false;
    }
    image.fill(Qt::white);
    const int dotsPerMetre = qRound(dpi / 0.0254);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    {
        QPainter painter(&image);
        layout.Print(painter, dpi);
    }
    return writeImage(image, path, dpi, error);
}

}  // namespace HXObjects
