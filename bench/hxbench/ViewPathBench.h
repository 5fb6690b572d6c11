#pragma once
// ViewPathBench: a layer drawn as a host sees it — a map view of that layer alone, at 1920x1080: the
// time from SetExtent to the finished render (RenderFinishedSignal) and the Draw of that picture into
// a host surface, warm (the layer opened and drawn once). Measured at the layer's full extent, the
// figure put beside the peers', and zoomed in to 1% of the area; and with the layer hidden, which is
// what the view itself costs per render (publishing the frame, signalling, the host's Draw).
#include <QSize>
#include <QString>

struct ViewPathFigures {
    double full = 0;   // seconds, best of several
    double zoom = 0;   // seconds, best of several
    double fixed = 0;  // seconds, best of several, the layer hidden
};

class ViewPathBench {
public:
    // Best of `runs` each, after one round to warm up.
    ViewPathBench(const QString& gpkg, const QString& layer, const QSize& size, int runs);
    ViewPathFigures Run() const;

private:
    QString m_gpkg;
    QString m_layer;
    QSize m_size;
    int m_runs;
};
