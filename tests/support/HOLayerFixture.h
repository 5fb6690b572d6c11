#pragma once
// Small data files written by the layer tests themselves (OGR and GDAL into a temporary folder), and
// the render context that draws an extent into an image. Header-only: only the tests that include
// it link GDAL and the map library.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QtTest>
#include <string>
#include <vector>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HORasterLayer.h"
#include "HORenderContext.h"

class HOLayerFixture {
public:
    struct Feature {
        Feature(std::string geometry, GIntBig id = OGRNullFID, std::string label = {})
            : wkt(std::move(geometry)), fid(id), name(std::move(label)) {}
        std::string wkt;
        GIntBig fid;
        std::string name;
    };

    // One layer named "data" in a new file; epsg 0 writes no coordinate system. False on failure.
    static bool WriteVector(const QString& path, const char* driver, int epsg, OGRwkbGeometryType type,
                            const std::vector<Feature>& features) {
        GDALAllRegister();
        GDALDriver* d = GetGDALDriverManager()->GetDriverByName(driver);
        if (!d) return false;
        GDALDatasetUniquePtr ds(d->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!ds) return false;
        OGRSpatialReference srs;
        srs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        if (epsg) srs.importFromEPSG(epsg);
        OGRLayer* layer = ds->CreateLayer("data", epsg ? &srs : nullptr, type, nullptr);
        if (!layer) return false;
        OGRFieldDefn name("name", OFTString);
        layer->CreateField(&name);
        for (const Feature& f : features) {
            OGRFeature feature(layer->GetLayerDefn());
            OGRGeometry* geometry = nullptr;
            if (OGRGeometryFactory::createFromWkt(f.wkt.c_str(), nullptr, &geometry) != OGRERR_NONE)
                return false;
            feature.SetGeometryDirectly(geometry);
            feature.SetFID(f.fid);
            feature.SetField("name", f.name.c_str());
            if (layer->CreateFeature(&feature) != OGRERR_NONE) return false;
        }
        return true;
    }

    // The bytes written to `path`, which is returned; a failure ends the test run.
    static QString WriteFile(const QString& path, const QByteArray& bytes) {
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    static QByteArray ReadFile(const QString& path) {
        QFile in(path);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    // WriteVector into `path` (the driver chosen by its suffix: .gpkg, .shp, else GeoJSON), then the
    // feature layer opened from it; null on failure.
    static HXObjects::HORefPtr<HXObjects::HOFeatureLayer> OpenVector(const QString& path, int epsg,
                                                                     OGRwkbGeometryType type,
                                                                     const std::vector<Feature>& features) {
        const char* driver = path.endsWith(".gpkg")  ? "GPKG"
                             : path.endsWith(".shp") ? "ESRI Shapefile"
                                                     : "GeoJSON";
        if (!WriteVector(path, driver, epsg, type, features)) return nullptr;
        return HXObjects::HODynamicCast<HXObjects::HOFeatureLayer>(
            HXObjects::OpenLayer(HXObjects::HOString(path)));
    }

    // A GeoTIFF of `bands` Byte or Float32 bands, each pixel from value(band, x, y); a null
    // geotransform writes no georeferencing.
    template <class Value>
    static bool WriteRaster(const QString& path, int width, int height, int bands, GDALDataType type,
                            int epsg, const double geoTransform[6], Value value, double noData = NAN) {
        GDALAllRegister();
        GDALDriver* d = GetGDALDriverManager()->GetDriverByName("GTiff");
        GDALDatasetUniquePtr ds(d->Create(path.toUtf8().constData(), width, height, bands, type, nullptr));
        if (!ds) return false;
        if (geoTransform) ds->SetGeoTransform(const_cast<double*>(geoTransform));
        OGRSpatialReference srs;
        if (epsg && srs.importFromEPSG(epsg) == OGRERR_NONE) ds->SetSpatialRef(&srs);
        std::vector<double> row(std::size_t(width), 0.0);
        for (int b = 1; b <= bands; ++b) {
            GDALRasterBand* band = ds->GetRasterBand(b);
            if (!std::isnan(noData)) band->SetNoDataValue(noData);
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) row[std::size_t(x)] = value(b, x, y);
                if (band->RasterIO(GF_Write, 0, y, width, 1, row.data(), width, 1, GDT_Float64, 0, 0) !=
                    CE_None)
                    return false;
            }
        }
        return true;
    }

    // WriteRaster into `path`, then the raster layer opened from it; null on failure.
    template <class Value>
    static HXObjects::HORefPtr<HXObjects::HORasterLayer> OpenRaster(const QString& path, int width,
                                                                    int height, int bands, GDALDataType type,
                                                                    int epsg, const double geoTransform[6],
                                                                    Value value, double noData = NAN) {
        if (!WriteRaster(path, width, height, bands, type, epsg, geoTransform, value, noData)) return nullptr;
        return HXObjects::HODynamicCast<HXObjects::HORasterLayer>(
            HXObjects::OpenLayer(HXObjects::HOString(path)));
    }

    // Draws `extent` (map units, square pixels, top-left anchored) into an image of `size`.
    static HXObjects::HORenderContext Context(QPainter* painter, const QSize& size,
                                              const HXObjects::HORect& extent,
                                              const HXObjects::HOCoordinateSystem* system = nullptr) {
        HXObjects::HORenderContext context;
        context.painter = painter;
        context.size = {size.width(), size.height()};
        context.extent = extent;
        context.mapSystem = system;
        context.transform.extentLeft = extent.minx;
        context.transform.extentTop = extent.maxy;
        context.transform.unitsPerPixel =
            std::max(extent.Width() / size.width(), extent.Height() / size.height());
        return context;
    }

    static QImage WhiteImage(const QSize& size) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        return image;
    }

    // The layers drawn in order over `extent` into a white image of `size`.
    static QImage Render(const std::vector<HXObjects::HOLayer*>& layers, const HXObjects::HORect& extent,
                         const QSize& size = QSize(100, 100),
                         const HXObjects::HOCoordinateSystem* system = nullptr,
                         const HXObjects::HOTrackCancel* cancel = nullptr) {
        QImage image = WhiteImage(size);
        QPainter painter(&image);
        HXObjects::HORenderContext context = Context(&painter, size, extent, system);
        context.cancel = cancel;
        for (HXObjects::HOLayer* layer : layers) layer->Render(context);
        return image;
    }
};
