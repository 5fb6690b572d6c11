#pragma once
// Doubles for the canvas's input and tool tests: a tool and a host command line that record the
// canvas's calls; map and page views that record the input handed to them ("MouseDown 1 3 4",
// "KeyDown 1000012", "SetCurrentTool A") and keep the extent a test sets; a canvas of a mode with
// those views; and an answer to the next context menu, recording its entries ("-": separator).
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QStringList>
#include <QTimer>

#include "HOCommandControl.h"
#include "HODataFrame.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOTool.h"
#include "HXMapCanvas.h"

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

class HORecordingTool : public HXObjects::HOTool {
public:
    explicit HORecordingTool(const char* name, bool oneShot = false) : m_name(name), m_oneShot(oneShot) {}
    QStringList calls;
    bool acceptsPoints = true;

    HXObjects::HOString GetClassName() override { return m_name; }
    bool IsOneShot() override { return m_oneShot; }
    void Activate() override {
        HOTool::Activate();
        calls << "Activate";
    }
    void Deactivate() override {
        HOTool::Deactivate();
        calls << "Deactivate";
    }
    void SetToolBuddy(HXObjects::HOToolBuddy* buddy) override {
        HOTool::SetToolBuddy(buddy);
        calls << "SetToolBuddy";
    }
    void ClearToolPaint() override { calls << "ClearToolPaint"; }
    void CancelPoint() override { calls << "CancelPoint"; }
    void OnCommand(const HXObjects::HOString& command) override {
        calls << "OnCommand " + command.toQString();
    }
    bool AcceptsPointInput() override { return acceptsPoints; }

private:
    HXObjects::HOString m_name;
    bool m_oneShot;
};

class HORecordingCommandControl : public HXObjects::HOCommandControl {
public:
    QStringList calls;
    void SetEditInfo(HXObjects::HOString text) override { calls << "SetEditInfo " + text.toQString(); }
    void AddNotice(HXObjects::HOString text) override { calls << "AddNotice " + text.toQString(); }
    void ShowView(HXObjects::HOString text, HXObjects::HOTool*, bool show) override {
        calls << QString("ShowView %1 %2").arg(text.toQString()).arg(show);
    }
    void SetViewFocus(bool focus) override { calls << QString("SetViewFocus %1").arg(focus); }
    HXObjects::HOTool* GetCurrentTool() override { return nullptr; }
};

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

protected:
    ~HOInputRecordingView() override = default;

private:
    void record(const char* what, int b, int x, int y) {
        calls << QString("%1 %2 %3 %4").arg(what).arg(b).arg(x).arg(y);
    }
};

using HOInputRecordingMapView = HOInputRecordingView<HXObjects::HOMapView>;
using HOInputRecordingLayoutView = HOInputRecordingView<HXObjects::HOPageLayoutView>;

struct HXInputCanvas {
    explicit HXInputCanvas(HXMapCanvas::ViewMode mode) : canvas(mode, nullptr) {
        if (mode == HXMapCanvas::PageLayoutMode) {
            frame->set_map_view(map);
            layout->set_operating_data_frame(frame);
            layout->get_graphicscontainer()->AddElement(frame);
            canvas.SetPageLayoutView(layout);
        } else {
            canvas.SetMapView(map);
        }
        canvas.resize(400, 250);
        map->calls.clear();
    }
    // The calls of the view that receives input in this mode.
    QStringList& viewCalls() { return canvas.IsMapView() ? map->calls : layout->calls; }
    // Sends a mouse event; `buttons` are the buttons held after it.
    void mouse(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons, QPoint pos) {
        QMouseEvent event(type, pos, canvas.mapToGlobal(pos), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &event);
    }

    HXObjects::HORefPtr<HOInputRecordingMapView> map = new HOInputRecordingMapView();
    HXObjects::HORefPtr<HOInputRecordingLayoutView> layout = new HOInputRecordingLayoutView();
    HXObjects::HORefPtr<HXObjects::HODataFrame> frame = new HXObjects::HODataFrame();
    HXMapCanvas canvas;
};

class HXPopupAnswer : public QObject {
public:
    explicit HXPopupAnswer(const QString& choice = QString()) : mChoice(choice) {
        connect(&mTimer, &QTimer::timeout, this, &HXPopupAnswer::answer);
        mTimer.start(10);
    }
    bool shown = false;
    QStringList entries;

private:
    void answer() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) return;
        mTimer.stop();
        shown = true;
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            entries << (action->isSeparator() ? QString("-") : action->text());
            if (!mChoice.isEmpty() && action->text() == mChoice) chosen = action;
        }
        menu->close();
        if (chosen) chosen->trigger();
    }
    QString mChoice;
    QTimer mTimer;
};
