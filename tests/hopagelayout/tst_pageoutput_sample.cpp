// Page output of the sample region, checked with a PDF reader: the default A4 layout written as a PDF
// (and through a PDF printer) has the paper's size, its title as text and the map where the frame
// is, its labels wholly inside the grid's rulers; an image export has the pixels the resolution asks
// for; impossible resolutions are refused.
#include <gdal.h>

#include <QPrinter>
#include <QtTest>
#include <optional>

#include "HOCoordinateSystem.h"
#include "HODataFrame.h"
#include "HOFeatureLayer.h"
#include "HOLayoutComposer.h"
#include "HOMap.h"
#include "HOMapGridOverlay.h"
#include "HOMapPainter.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOPageExporter.h"
#include "HOPageLayoutView.h"
#include "HOTestColumns.h"

using namespace HXObjects;

namespace {

const QString kTitle = "Sample region";
const QString kTownLabel = "Town of";

// Runs a Poppler tool; its standard output, or nothing when it failed or took longer than a minute.
std::optional<QByteArray> poppler(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        qWarning("%s did not finish: %s", qPrintable(tool), process.readAllStandardError().constData());
        return std::nullopt;
    }
    return process.readAllStandardOutput();
}

QString pageSize(const QString& pdf) {
    const QString info = QString::fromUtf8(poppler("pdfinfo", {pdf}).value_or(QByteArray()));
    const QRegularExpressionMatch m = QRegularExpression("Page size:\\s+([\\d.]+ x [\\d.]+) pts").match(info);
    return m.captured(1);
}

// The page rendered by Poppler at `dpi`.
QImage rendered(const QString& pdf, int dpi) {
    const QString prefix = pdf + "-page";
    if (!poppler("pdftoppm", {"-r", QString::number(dpi), "-png", "-singlefile", pdf, prefix})) return {};
    return QImage(prefix + ".png");
}

// PNG through Qt; TIFF (whose Qt plug-in is optional) through GDAL.
QImage loadImage(const QString& path, double* dpi) {
    if (!path.endsWith(".tif")) {
        QImage image(path);
        *dpi = image.dotsPerMeterX() * 0.0254;
        return image;
    }
    GDALDatasetH dataset = GDALOpen(path.toUtf8().constData(), GA_ReadOnly);
    if (!dataset) return {};
    QImage image(GDALGetRasterXSize(dataset), GDALGetRasterYSize(dataset), QImage::Format_RGBA8888);
    int bands[] = {1, 2, 3, 4};
    const bool read = GDALDatasetRasterIO(dataset, GF_Read, 0, 0, image.width(), image.height(), image.bits(),
                                          image.width(), image.height(), GDT_Byte, 4, bands, 4,
                                          image.bytesPerLine(), 1) == CE_None;
    *dpi = QByteArray(GDALGetMetadataItem(dataset, "TIFFTAG_XRESOLUTION", nullptr)).toDouble();
    GDALClose(dataset);
    return read ? image : QImage();
}

bool isPaper(QRgb pixel) {
    return qRed(pixel) > 245 && qGreen(pixel) > 245 && qBlue(pixel) > 245;
}

}  // namespace

class tst_PageOutputSample : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    HORefPtr<HOPageLayoutView> m_layout;
    HORefPtr<HOMapView> m_view;

    QString out(const QString& name) const { return m_dir.filePath(name); }
    HODataFrame* frame() const {
        return static_cast<HODataFrame*>(m_layout->get_operating_data_frame().get());
    }

    // The frame's centre and a point of the bottom margin, in pixels of a page rendered at `dpi`.
    QPoint framePixel(int dpi) const {
        const HOPoint c = frame()->get_bounds().Center();
        return QPoint(qRound(c.x / 25.4 * dpi),
                      qRound((m_layout->GetPageSetup().Height() - c.y) / 25.4 * dpi));
    }
    QPoint marginPixel(int dpi) const {
        return QPoint(qRound(105 / 25.4 * dpi), qRound((297 - 3) / 25.4 * dpi));
    }

    // The frame's map inside the grid's rulers, in points from the page's top left.
    QRectF insideRulersInPoints() const {
        const HORect b = frame()->get_bounds();
        const double pixelsPerMm = HOMapPainter::kScreenDpi / 25.4;
        const HOSize size(qRound(b.Width() * pixelsPerMm), qRound(b.Height() * pixelsPerMm));
        const HORect extent = frame()->get_map_extent();
        HODisplayTransform transform;
        transform.unitsPerPixel = std::max(extent.Width() / size.width, extent.Height() / size.height);
        transform.extentLeft = extent.Center().x - size.width / 2.0 * transform.unitsPerPixel;
        transform.extentTop = extent.Center().y + size.height / 2.0 * transform.unitsPerPixel;
        HOMapGridOverlay overlay;
        const QRectF inner = overlay.MapFrame(
            *m_view->GetRulerAndGridSetting(),
            {transform, size, m_view->GetMap()->GetSpatialReference(), HOMapPainter::kScreenDpi});
        const double pointsPerMm = 72.0 / 25.4, pointsPerPixel = pointsPerMm / pixelsPerMm;
        const QPointF topLeft(b.minx * pointsPerMm,
                              (m_layout->GetPageSetup().Height() - b.maxy) * pointsPerMm);
        return QRectF(topLeft + inner.topLeft() * pointsPerPixel, inner.size() * pointsPerPixel);
    }

    void checkPdf(const QString& pdf) {
        QCOMPARE(pageSize(pdf), QString("595 x 842"));  // A4 portrait in points
        const QString text = QString::fromUtf8(poppler("pdftotext", {pdf, "-"}).value_or(QByteArray()));
        QVERIFY2(text.contains(kTitle) && text.contains("1:"), qPrintable(text));
        QVERIFY2(text.contains(kTownLabel), qPrintable(text));  // labels are text, above the layers
        const QImage page = rendered(pdf, 50);
        QCOMPARE(page.size(), QSize(414, 585));  // Poppler rounds a part pixel up
        QVERIFY(!isPaper(page.pixel(framePixel(50))));
        QVERIFY(isPaper(page.pixel(marginPixel(50))));
    }

private slots:
    void initTestCase() {
        GDALAllRegister();
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("Poppler's tools (Debian poppler-utils) are not installed");
        const QString data = qEnvironmentVariable("HX_TEST_DATA") + "/sample/";
        HORefPtr<HOMap> map(new HOMap);
        for (const QString& source :
             {data + "elevation.tif", data + "region.gpkg|layername=land",
              data + "region.gpkg|layername=rivers", data + "region.gpkg|layername=towns"}) {
            HOString error;
            const HORefPtr<HOLayer> layer = OpenLayer(source, &error);
            QVERIFY2(layer, qPrintable(error.toQString()));
            map->AddLayer(layer);
        }
        HOLabelSettings towns;
        towns.expression = kTownLabel + " {name}";
        static_cast<HOFeatureLayer*>(map->GetLayers(true).back().get())->SetLabelSettings(towns);
        m_view = new HOMapView("Map");
        m_view->SetMap(map);
        m_layout = new HOPageLayoutView;
        m_layout->SetSize(800, 800);
        HOPageSetup setup;
        setup.SetLandscape(false);
        m_layout->SetPageSetup(setup);
        HOLayoutComposer::ComposeDefault(*m_layout, m_view, kTitle);
    }

    void cleanupTestCase() {
        if (m_view) m_view->StopRender(true);
    }

    void pdfHasTheTitleAsTextAndTheMapInItsFrame() {
        // Kept beside the test data: the PDF shown in the README is this one.
        const QString pdf = qEnvironmentVariable("HX_TEST_DATA") + "/layout_sample.pdf";
        QString error;
        QVERIFY2(HOPageExporter::ExportPdf(*m_layout, pdf, 150, kTitle, &error), qPrintable(error));
        checkPdf(pdf);
    }

    void labelsLieInsideTheGridRulers() {
        HOMapRulerAndGrid& grid = *m_view->GetRulerAndGridSetting();
        grid.set_draw_km_grid_ruler(true);
        const QString pdf = out("ruled.pdf");
        QString error;
        const bool written = HOPageExporter::ExportPdf(*m_layout, pdf, 150, kTitle, &error);
        const QRectF inside = insideRulersInPoints().adjusted(-0.5, -0.5, 0.5, 0.5);
        grid.set_draw_km_grid_ruler(false);
        QVERIFY2(written, qPrintable(error));
        const QString words =
            QString::fromUtf8(poppler("pdftotext", {"-bbox", pdf, "-"}).value_or(QByteArray()));
        const QRegularExpression town(
            "<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">Town</word>");
        int labels = 0;
        for (auto it = town.globalMatch(words); it.hasNext(); ++labels) {
            const QRegularExpressionMatch m = it.next();
            const QRectF box(QPointF(m.captured(1).toDouble(), m.captured(2).toDouble()),
                             QPointF(m.captured(3).toDouble(), m.captured(4).toDouble()));
            QVERIFY2(inside.contains(box), qPrintable(m.captured(0)));
        }
        QVERIFY2(labels > 10, qPrintable(words.left(2000)));
    }

    void rastersAtTheOutputResolutionVectorsAsVectors_data() {
        HOAddColumns<int, bool>({"dpi", "rasterShown"});
        QTest::newRow("raster at 100 dpi") << 100 << true;
        QTest::newRow("raster at 300 dpi") << 300 << true;
        QTest::newRow("vector layers only") << 300 << false;
    }

    void rastersAtTheOutputResolutionVectorsAsVectors() {
        QFETCH(int, dpi);
        QFETCH(bool, rasterShown);
        HOLayer* elevation = m_view->GetMap()->GetLayers(true).front().get();
        elevation->SetVisible(rasterShown);
        const QString pdf = out(QString("images-%1-%2.pdf").arg(dpi).arg(rasterShown));
        QString error;
        const bool written = HOPageExporter::ExportPdf(*m_layout, pdf, dpi, kTitle, &error);
        elevation->SetVisible(true);
        QVERIFY2(written, qPrintable(error));
        // pdfimages lists one row per image (and its mask) after two header lines; column 12 is x-ppi.
        QStringList rows = QString::fromUtf8(poppler("pdfimages", {"-list", pdf}).value_or(QByteArray()))
                               .split('\n', Qt::SkipEmptyParts)
                               .mid(2);
        QCOMPARE(rows.isEmpty(), !rasterShown);
        for (const QString& row : rows) {
            const QStringList columns = row.simplified().split(' ');
            QVERIFY2(columns.size() > 12 && qAbs(columns[12].toInt() - dpi) <= 1, qPrintable(row));
        }
    }

    void printsToAPdfPrinter() {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(out("printed.pdf"));
        printer.setResolution(150);
        QString error;
        QVERIFY2(HOPageExporter::Print(*m_layout, printer, &error), qPrintable(error));
        checkPdf(out("printed.pdf"));
    }

    void imageHasThePixelsOfItsResolution_data() {
        // size: empty: refused
        HOAddColumns<QString, int, QSize>({"name", "dpi", "size"});
        QTest::newRow("png at 50 dpi") << "page.png" << 50 << QSize(413, 585);
        QTest::newRow("tiff at 72 dpi") << "page.tif" << 72 << QSize(595, 842);
        QTest::newRow("above 1200 dpi") << "huge.png" << 1201 << QSize();
        QTest::newRow("zero dpi") << "none.png" << 0 << QSize();
    }

    void imageHasThePixelsOfItsResolution() {
        QFETCH(QString, name);
        QFETCH(int, dpi);
        QFETCH(QSize, size);
        QString error;
        const bool written = HOPageExporter::ExportImage(*m_layout, out(name), dpi, &error);
        QCOMPARE(written, size.isValid());
        if (!written) {
            QVERIFY2(error.contains("dpi") && !QFile::exists(out(name)), qPrintable(error));
            return;
        }
        double resolution = 0;
        const QImage image = loadImage(out(name), &resolution);
        QCOMPARE(image.size(), size);
        QVERIFY(qAbs(resolution - dpi) < 1);
        QVERIFY(!isPaper(image.pixel(framePixel(dpi))));
        QVERIFY(isPaper(image.pixel(marginPixel(dpi))));
    }
};

QTEST_MAIN(tst_PageOutputSample)
#include "tst_pageoutput_sample.moc"
