#pragma once
// LayerBench: the figures of one layer of the benchmark GeoPackage — opening it (OGR read into
// memory plus index) against a plain OGR read of every geometry, the memory its geometry takes
// against its raw coordinates, and warm renders at full extent and zoomed in to 1% of the area.
#include <QImage>
#include <QSize>
#include <QString>

#include "HOFeatureLayer.h"

struct LayerFigures {
    double plainRead = 0;   // seconds
    double open = 0;        // seconds
    double indexReady = 0;  // seconds from open until a zoomed render could use the index
    double fullRender = 0;  // seconds, best of several
    double zoomRender = 0;  // seconds, best of several
    double memoryRatio = 0;
    long long features = 0;
    long long vertices = 0;
};

class LayerBench {
public:
    LayerBench(const QString& gpkg, const QString& layer, const QSize& size, const QString& outDir);
    LayerFigures Run();

    // The layer's extent widened to the image's aspect ratio, as the peers draw it.
    static HXObjects::HORect Widened(const HXObjects::HORect& extent, const QSize& size);
    // The symbols bench/run gives the peers.
    static void UseThePeersStyle(HXObjects::HOFeatureLayer* layer);
    // The best of `runs` renders of `extent` into a white image of `size` (the last one's kept), s.
    static double Render(HXObjects::HOFeatureLayer* layer, const HXObjects::HORect& extent, const QSize& size,
                         int runs, QImage* image);

private:
    double plainRead(long long* features, long long* vertices) const;

    QString m_gpkg;
    QString m_layer;
    QSize m_size;
    QString m_outDir;
};
