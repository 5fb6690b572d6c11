#pragma once
// ViewBench: the map view's side of the figures, with all benchmark layers in one map: the full
// render through the view's render thread, composing a finished picture (Draw) at 1920x1080, and the
// time from a pan step or a wheel step to the next Draw (the preview shown before the re-render), the
// same Draw and pan step with both coordinate grids and their rulers on, and the cost of labels: the
// points layer alone rendered in full with and without labels.
#include <QSize>
#include <QStringList>

#include "BenchReport.h"

class ViewBench {
public:
    ViewBench(const QString& gpkg, const QStringList& layers, const QSize& size);
    void Run(BenchReport& report) const;

private:
    void runLabels(BenchReport& report) const;

    QString m_gpkg;
    QStringList m_layers;
    QSize m_size;
};
