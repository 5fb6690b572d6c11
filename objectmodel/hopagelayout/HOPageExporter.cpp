#include "HOPageExporter.h"

#include <QCoreApplication>
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

QString tr(const char* text) {
    return QCoreApplication::translate("HOPageExporter", text);
}

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
        if (error) *error = tr("cannot write '%1'").arg(path);
        return false;
    }
    layout.Print(painter, dpi);
    return painter.end();
}

}  // namespace

bool HOPageExporter::CheckDpi(int dpi, QString* error) {
    if (dpi >= 1 && dpi <= kMaxDpi) return true;
    if (error) *error = tr("a resolution of %1 dpi is outside 1 to %2 dpi").arg(dpi).arg(kMaxDpi);
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
            *error =
                tr("a %1 x %2 pixel image is too large; choose a lower resolution").arg(width).arg(height);
        return false;
    }
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        if (error) *error = tr("not enough memory for a %1 x %2 pixel image").arg(width).arg(height);
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
    QImageWriter writer(path);
    if (writer.write(image)) return true;
    if (error) *error = tr("cannot write '%1': %2").arg(path, writer.errorString());
    return false;
}

}  // namespace HXObjects
