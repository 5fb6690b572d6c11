#include "HXElementAutosave.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

#include "HOCoordinateSystem.h"
#include "HOElementFile.h"
#include "HOGraphicsLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXApplication.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

HXElementAutosave::HXElementAutosave(HXMapCanvas* canvas, const QString& path, QObject* parent)
    : QObject(parent),
      mCanvas(canvas),
      mMap(canvas->GetMapView() ? canvas->GetMapView()->GetMap() : nullptr),
      mPath(path) {
    if (!mMap) return;
    connect(mMap->GetUndoStack(), &QUndoStack::indexChanged, this, &HXElementAutosave::save);
    load();
}

HXElementAutosave::~HXElementAutosave() {
    // The stack tells of its clearing when the map goes, which may be while this object is released.
    if (mMap) disconnect(mMap->GetUndoStack(), nullptr, this, nullptr);
    if (mWork.valid()) mWork.wait();
}

QString HXElementAutosave::defaultPath() {
    return QFileInfo(HXApplication::hxgisSettingsFilePath()).dir().filePath("hxmapviewer-elements.gpkg");
}

void HXElementAutosave::finish() {
    if (mWork.valid()) mWork.wait();
    mBusy = false;
    if (!mDirty) return;
    mDirty = false;
    save();
    if (mWork.valid()) mWork.wait();
    mBusy = false;
}

void HXElementAutosave::load() {
    if (!QFileInfo::exists(mPath)) return;
    mBusy = true;
    mWork = std::async(std::launch::async, [this, path = mPath] {
        HOString error;
        auto elements = HOElementFile::Load(HOString(path), &error);
        QMetaObject::invokeMethod(
            this,
            [this, elements, error] {
                if (!error.isEmpty()) emit failed(error.toQString());
                insert(elements);
                saveFinished(QString());
            },
            Qt::QueuedConnection);
    });
}

// Straight into the layer: restoring what was there is not an edit to undo.
void HXElementAutosave::insert(const std::vector<HORefPtr<HOElement>>& elements) {
    if (!mMap || elements.empty()) return;
    const HORefPtr<HOGraphicsLayer> layer = mMap->GetGraphicsLayer();
    for (const auto& e : elements)
        layer->InsertElement(layer->NewElement(e->GetGeometry(), e->GetStyle(), e->GetLabel()));
    layer->NotifyElementsChanged();
    mCanvas->refresh();
    emit loaded(int(elements.size()));
}

void HXElementAutosave::save() {
    HOMap* map = mMap.get();
    if (!map) return;
    if (mBusy) {
        mDirty = true;  // written once the running read or write is done
        return;
    }
    if (mWork.valid()) mWork.wait();  // already finished: only collects it
    mBusy = true;
    mDirty = false;
    mWork =
        std::async(std::launch::async, [this, path = mPath, elements = map->GetGraphicsLayer()->GetElements(),
                                        system = map->GetSpatialReference()] {
            HOString error;
            HOElementFile::Save(HOString(path), elements, system.get(), &error);
            QMetaObject::invokeMethod(
                this, [this, error] { saveFinished(error.toQString()); }, Qt::QueuedConnection);
        });
}

void HXElementAutosave::saveFinished(const QString& error) {
    mBusy = false;
    if (!error.isEmpty()) emit failed(error);
    if (mDirty) save();
}
