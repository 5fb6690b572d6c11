#pragma once
// HOInputRecordingView<View>: a map or page-layout view that records the input the canvas hands it
// ("MouseDown 1 10 20", "KeyDown 1000012", "SetCurrentTool HXObjects::HOToolPan"), answers KeyDown
// as told, and keeps the extent a test sets. Everything else is the real view's.
#include <QStringList>

#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOTool.h"

template <class View>
class HOInputRecordingView : public View {
public:
    QStringList calls;
    bool keyAnswer = true;
    HXObjects::HORect extent{0.0, 400.0, 0.0, 200.0};
    HXObjects::HODisplayTransform transform;

    bool KeyDown(int key) override {
        calls << QString("KeyDown %1").arg(key, 0, 16);
        return keyAnswer;
    }
    void MouseDown(int b, int x, int y) override { record("MouseDown", b, x, y); }
    void MouseUp(int b, int x, int y) override { record("MouseUp", b, x, y); }
    void MouseMove(int b, int x, int y) override { record("MouseMove", b, x, y); }
    void DoubleClick(int b, int x, int y) override { record("DoubleClick", b, x, y); }
    void SetCurrentTool(HXObjects::HOTool* tool) override {
        View::SetCurrentTool(tool);
        calls << "SetCurrentTool " + (tool ? tool->GetClassName().toQString() : QString("null"));
    }
    HXObjects::HORect GetExtent() override { return extent; }
    void SetExtent(const HXObjects::HORect& r) override { extent = r; }
    HXObjects::HOPoint GetCenter() override { return extent.Center(); }
    HXObjects::HODisplayTransform GetDisplayTransform() override { return transform; }
    void ZoomIn() override { calls << "ZoomIn"; }
    void ZoomOut() override { calls << "ZoomOut"; }

    // The calls of one kind, in order.
    QStringList callsStartingWith(const QString& prefix) const { return calls.filter(QRegExp("^" + prefix)); }

protected:
    ~HOInputRecordingView() override = default;

private:
    void record(const char* what, int b, int x, int y) {
        calls << QString("%1 %2 %3 %4").arg(what).arg(b).arg(x).arg(y);
    }
};

using HOInputRecordingMapView = HOInputRecordingView<HXObjects::HOMapView>;
using HOInputRecordingLayoutView = HOInputRecordingView<HXObjects::HOPageLayoutView>;
