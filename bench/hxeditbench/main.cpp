// hxeditbench [FEATURES]: the time to add a feature, delete one and undo each in a GeoPackage of
// FEATURES points (1,000,000 by default), through a feature layer as the editing tools do: each
// edit is one transaction on disk plus the new in-memory geometry.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QUndoStack>
#include <cstdio>

#include "HODataSource.h"
#include "HOFeatureEditCommand.h"
#include "HOFeatureEditQueue.h"
#include "HOFeatureLayer.h"

using namespace HXObjects;

namespace {

bool Write(const QString& path, int count) {
    GDALDatasetUniquePtr dataset(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
        path.toUtf8(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* layer = dataset ? dataset->CreateLayer("points", nullptr, wkbPoint) : nullptr;
    OGRFieldDefn name("name", OFTString);
    if (!layer || layer->CreateField(&name) != OGRERR_NONE) return false;
    dataset->StartTransaction();
    for (int i = 0; i < count; ++i) {
        OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
        feature->SetField(0, "p");
        feature->SetGeometryDirectly(new OGRPoint(i % 1000, i / 1000));
        if (layer->CreateFeature(feature.get()) != OGRERR_NONE) return false;
    }
    return dataset->CommitTransaction() == OGRERR_NONE;
}

// Runs the event loop until every queued write has reported back.
void Settle() {
    while (HOFeatureEditQueue::Pending() > 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

double Ms(QElapsedTimer& timer) {
    return double(timer.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int count = argc > 1 ? std::atoi(argv[1]) : 1000000;
    GDALAllRegister();
    QTemporaryDir dir;
    const QString path = dir.filePath("bench.gpkg");
    if (!Write(path, count)) return 1;
    QElapsedTimer timer;
    timer.start();
    HORefPtr<HODataSource> source = HODataSource::Open(path.toUtf8().constData());
    HORefPtr<HOFeatureLayer> layer = dynamic_cast<HOFeatureLayer*>(source->OpenLayer("points").get());
    if (!layer || !layer->IsEditable()) return 1;
    std::printf("open %d points: %.0f ms\n", layer->GetFeatureCount(), Ms(timer));
    QUndoStack stack;
    HORefPtr<HOGeometry> point = new HOGeometry(HOGeometry::GeoPoint);
    point->AddPart({HOPoint(-5, -5)});
    HOString error;
    // Each figure: from the push (or undo) on the GUI thread until the outcome is back on it; the
    // GUI thread's own share is the time the push or undo call itself took.
    const auto edit = [&](const char* what, std::vector<HOFeatureChange> changes) {
        bool written = false;
        auto* command =
            new HOFeatureEditCommand(layer.get(), changes, what, [&](const HOString& why) { error = why; });
        command->SetSettled([&](bool ok, const std::vector<HOFeatureChange>&) { written = ok; });
        timer.restart();
        stack.push(command);
        const double submitted = Ms(timer);
        Settle();
        const double done = Ms(timer);
        if (!written) return false;
        timer.restart();
        stack.undo();
        const double undoSubmitted = Ms(timer);
        Settle();
        std::printf("%s: %.1f ms (GUI thread %.2f ms), its undo: %.1f ms (GUI thread %.2f ms)\n", what, done,
                    submitted, Ms(timer), undoSubmitted);
        return stack.count() == 1;
    };
    // The first edit opens the file for writing too.
    if (!edit("first edit (add a feature)", {{nullptr, new HOFeature(-1, point, {{"name", "new"}})}}) ||
        !edit("add a feature", {{nullptr, new HOFeature(-1, point, {{"name", "new"}})}}) ||
        !edit("delete a feature", {{layer->GetFeature(count / 2), nullptr}})) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    return 0;
}
