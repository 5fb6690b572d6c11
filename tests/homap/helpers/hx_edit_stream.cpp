// hx_edit_stream FILE LAYER FIRST: applies the known stream of edits from step FIRST on to the point
// layer LAYER of FILE through a feature layer, as the tools do, and prints "ready" and then, for each
// step, "writing N" before it and its number N once it is written, so that a test killing it knows which
// states the file may be in. The stream repeats four steps per feature b = 1, 5, 9, …: add the point (b, b)
// with step = b; move it to (b + 1, -(b + 1)) with note = "u"; delete it; undo the delete.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QUndoStack>
#include <cstdio>
#include <map>
#include <string>

#include "HODataSource.h"
#include "HOFeatureEditCommand.h"
#include "HOFeatureEditQueue.h"
#include "HOFeatureLayer.h"

using namespace HXObjects;

namespace {

void Say(const std::string& line) {
    const std::string text = line + "\n";
    if (::write(STDOUT_FILENO, text.data(), text.size()) < 0) std::_Exit(3);
}

HORefPtr<HOFeature> Point(int id, double x, double y, int step, const char* note) {
    HORefPtr<HOGeometry> geometry = new HOGeometry(HOGeometry::GeoPoint);
    geometry->AddPart({HOPoint(x, y)});
    return new HOFeature(id, geometry, {{"step", HOString(std::to_string(step).c_str())}, {"note", note}});
}

// Runs the event loop until every queued write has reported back.
void Settle() {
    while (HOFeatureEditQueue::Pending() > 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 4) return 2;
    const std::string path = argv[1];
    int step = std::atoi(argv[3]);
    GDALAllRegister();
    HORefPtr<HODataSource> source = HODataSource::Open(path.c_str());
    HORefPtr<HOFeatureLayer> layer =
        source ? dynamic_cast<HOFeatureLayer*>(source->OpenLayer(argv[2]).get()) : nullptr;
    if (!layer || !layer->IsEditable()) return 2;
    // The ids of the features by their step, as the file holds them now.
    std::map<int, int> ids;
    {
        GDALDatasetUniquePtr read(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        for (auto& feature : *read->GetLayerByName(argv[2]))
            ids[feature->GetFieldAsInteger("step")] = int(feature->GetFID());
    }
    QUndoStack stack;
    Say("ready");
    for (;; ++step) {
        const int b = step - (step - 1) % 4;
        Say("writing " + std::to_string(step));
        HOString error;
        std::vector<HOFeatureChange> changes;
        switch ((step - 1) % 4) {
            case 0:
                changes = {{nullptr, Point(-1, b, b, b, "")}};
                break;
            case 1:
                changes = {{layer->GetFeature(ids[b]), Point(ids[b], b + 1, -(b + 1), b, "u")}};
                break;
            case 2:
                changes = {{layer->GetFeature(ids[b]), nullptr}};
                break;
            case 3:
                if (stack.canUndo()) {
                    stack.undo();
                    Settle();
                    if (stack.count() != 1 || stack.index() != 0) return 4;  // the undo was refused
                    stack.clear();
                    ids.erase(b);  // read back below
                } else {
                    changes = {{nullptr, Point(-1, b + 1, -(b + 1), b, "u")}};
                }
                break;
        }
        if (!changes.empty()) {
            bool written = false;
            auto* command = new HOFeatureEditCommand(layer.get(), changes, "step",
                                                     [&](const HOString& why) { error = why; });
            command->SetSettled([&](bool ok, const std::vector<HOFeatureChange>& done) {
                written = ok;
                for (const HOFeatureChange& change : done)
                    if (change.after) ids[b] = change.after->GetID();
            });
            stack.push(command);
            Settle();
            if (!written) {
                std::fprintf(stderr, "step %d: %s\n", step, error.c_str());
                return 1;
            }
            if ((step - 1) % 4 != 2) stack.clear();
        }
        if (!ids.count(b) && (step - 1) % 4 == 3) {
            // The feature the undo put back, by its step.
            for (int id : layer->IdentifyAt(HOPoint(b + 1, -(b + 1)), 0.01)) ids[b] = id;
        }
        Say(std::to_string(step));
    }
}
