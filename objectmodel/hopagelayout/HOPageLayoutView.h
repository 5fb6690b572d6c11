#pragma once
// HOPageLayoutView: a print page holding elements, among them data frames that each show a map view.
// The operating data frame is the one being worked on; its map view is the layout's focus map.
// Page coordinates are millimetres from the page's bottom-left corner, y upwards. RedrawSignal fires
// on the thread that created the layout (a data frame's map redraws arrive through its event loop).
#include "HOGraphicsContainer.h"
#include "HORefPtr.h"
#include "HOView.h"

#include <memory>

namespace HXObjects {

class HOMapView;
class HOFileFunc;

class HOPageLayoutView : public HOView {
public:
    HOPageLayoutView();

    bool KeyDown(int key) override;
    void MouseDown(int button, int x, int y) override;
    void MouseUp(int button, int x, int y) override;
    void MouseMove(int button, int x, int y) override;
    void DoubleClick(int button, int x, int y) override;
    void Wheel(int reserved, int delta, int x, int y) override;
    void SetSize(int width, int height) override;
    void DrawTo(HOGraphics* surface, int reserved) override;
    void SetSize(const HOSize& size) override;
    HORect GetExtent() override;
    void SetExtent(const HORect& extent) override;
    void RefreshView(bool all) override;
    void PauseRender() override;
    void ResumeRender() override;
    HOPoint GetCenter() override;
    double GetScale() override;
    void SetScale(double denominator) override;
    void SetCurrentTool(HOTool* tool) override;
    void ZoomIn() override;
    void ZoomOut() override;
    void ZoomByFactor(double factor, const HOPoint* centre) override;
    HODisplay* GetScreenDisplay() override;
    HODisplayTransform GetDisplayTransform() override;
    void SetToolBuddy(HOToolBuddy* buddy) override;
    void ResizeRefresh(int delayMs) override;
    HOTool* GetCurrentTool() const override;
    HOToolBuddy* GetToolBuddy() const override;

    // Puts the map view into the operating data frame (creating the frame when there is none).
    void SwitchToLayoutView(HOMapView* view);
    HORefPtr<HOPageLayoutBaseElement> get_operating_data_frame() const;
    void set_operating_data_frame(HOPageLayoutBaseElement* element);
    HOGraphicsContainer* get_graphicscontainer() const;
    bool open(HOFileFunc* file, double version);
    bool save(HOFileFunc* file, double version);

    // Fired when the element being edited changed.
    HOEventSignal ActiveElementChangedSignal;

protected:
    ~HOPageLayoutView() override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
