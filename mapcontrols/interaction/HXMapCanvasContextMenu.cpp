// HXMapCanvas context menu: the menu a map tool asks for with a right click. Its entries depend on
// the current tool and on what lies under the mouse.
#include <QContextMenuEvent>
#include <QCursor>
#include <QInputDialog>
#include <QMenu>
#include <QPointer>
#include <memory>

#include "HOCMDPool.h"
#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HXMapCanvas.h"
#include "HxInputDMSDialog.h"
#include "HxInputDataDialog.h"

using namespace HXObjects;

namespace {

// Search radius around a right click, in pixels.
const double kPickTolerancePixels = 4.0;

bool IsSelectedElementAt(HOMapView* view, HOMap* map, const HOPoint& point, double tolerance) {
    HORefPtr<HOGraphicsLayer> graphics = map->GetGraphicsLayer();
    if (!graphics) return false;
    for (const auto& element : graphics->LocateElements(point, tolerance, view->GetScreenDisplay())) {
        if (graphics->IsElementSelected(element->GetID())) return true;
    }
    return false;
}

bool HasSelectedFeatures(HOMap* map) {
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->HasSelectedFeatures()) return true;
    }
    return false;
}

// The double-line tool's width, kept as text in its "LineWidth" parameter.
void AskLineWidth(QWidget* parent, HOTool* tool) {
    if (!tool) return;
    double width = tool->GetParameters()["LineWidth"].ToDouble();
    if (!(width > 0)) width = 0;
    bool ok = false;
    const double chosen = QInputDialog::getDouble(parent, HXMapCanvas::tr("Line width"),
                                                  HXMapCanvas::tr("Please input line width(m):"), width, 0.1,
                                                  2147483647, 1, &ok, Qt::Dialog | Qt::WindowCloseButtonHint);
    if (ok) tool->SetParameter("LineWidth", HOString(QString::number(chosen, 'g', 6)));
}

// Asks for a point with the dialog D and hands it as typed to the canvas's current tool. The tool is
// read after the dialog closes: it may have changed, or the canvas gone, while the dialog was up.
template <class D>
void AddTypedPoint(HXMapCanvas* canvas, HOTool::PointInput input) {
    QPointer<HXMapCanvas> alive(canvas);
    D dialog(nullptr);
    if (dialog.exec() != QDialog::Accepted || !alive || !canvas->getMapTool()) return;
    HOPoint point;
    dialog.getValue(point.x, point.y);
    canvas->getMapTool()->AddPoint(point, input);
}

}  // namespace

void HXMapCanvas::contextMenuEvent(QContextMenuEvent* e) {
    emit contextMenuTrigger(this, e);
}

void HXMapCanvas::OnContextMenu(int x, int y) {
    if (mViewMode == MapViewMode) MapViewContextMenu(x, y);
}

void HXMapCanvas::MapViewContextMenu(int x, int y) {
    HOMapView* view = GetMapView();
    if (!view) return;
    std::unique_ptr<QMenu> menu(new QMenu);
    if (mIsDigitizePolygon || mIsDigitizeLine || mIsAddFeature) {
        menu->addAction(tr("New path"))->setData(0);
        connect(menu.get(), &QMenu::triggered, this, &HXMapCanvas::StartNewPath);
    } else if (mIsAddControlPoint) {
        if (mMapTool && mMapTool->AcceptsPointInput()) {
            menu->addAction(tr("Input X and Y"))->setData(0);
            menu->addAction(tr("Input DMS data"))->setData(1);
            menu->addAction(tr("Cancel point"))->setData(2);
            connect(menu.get(), &QMenu::triggered, this, &HXMapCanvas::AddPointWithInput);
        }
    } else if (mMapTool && mMapTool->GetClassName().CompareNoCase("HXObjects::HOToolDoubleLine") == 0) {
        connect(menu->addAction(tr("Please input line width")), &QAction::triggered, this,
                [this] { AskLineWidth(this, mMapTool); });
    } else {
        const HODisplayTransform transform = view->GetScreenDisplay()->GetDisplayTransform();
        const HOPoint point = transform.ToMap(x, y);
        const double tolerance = kPickTolerancePixels * transform.unitsPerPixel;
        HOMap* map = view->GetMap();
        if (map && IsSelectedElementAt(view, map, point, tolerance)) {
            // Over a selected graphic element deletion is all that is offered.
            connect(menu->addAction(tr("Delete Element")), &QAction::triggered, this,
                    &HXMapCanvas::DeleteElement);
        } else {
            if (map && HasSelectedFeatures(map)) {
                connect(menu->addAction(tr("Custom symbol")), &QAction::triggered, this,
                        &HXMapCanvas::CustomStyle);
                menu->addSeparator();
            }
            connect(menu->addAction(tr("Set map ruler and grid")), &QAction::triggered, this,
                    &HXMapCanvas::SetMapGridAndRuler);
        }
    }
    // An empty menu would show as a bare frame; it is simply not shown.
    if (menu->actions().isEmpty()) return;
    mContextMenu = menu.get();
    menu->exec(QCursor::pos());
    mContextMenu = nullptr;
}

void HXMapCanvas::StartNewPath(QAction* action) {
    const int option = action ? action->data().toInt() : -1;
    if (option != -1) {
        if (mIsDigitizePolygon) {
            setNewPathOption_Polygon(option);
        } else if (mIsDigitizeLine) {
            setNewPathOption_Line(option);
        } else if (mIsAddFeature) {
            setNewPathOption_AddFeature(option);
        }
    }
    if (mMapTool && mMapTool->GetClassName() == "HXObjects::HOToolAddFeature")
        mMapTool->OnCommand("new path");
}

void HXMapCanvas::AddPointWithInput(QAction* action) {
    if (!action || !mMapTool) return;
    switch (action->data().toInt()) {
        case 0:
            AddTypedPoint<HxInputDataDialog>(this, HOTool::MapUnits);
            break;
        case 1:
            // Longitude and latitude go to the tool as typed, in degrees, marked as such: a tool
            // working in a projected map converts them itself.
            AddTypedPoint<HxInputDMSDialog>(this, HOTool::LonLatDegrees);
            break;
        case 2:
            mMapTool->CancelPoint();
            break;
    }
}

void HXMapCanvas::DeleteElement() {
    setMapTool(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolDeleteElement"));
}
