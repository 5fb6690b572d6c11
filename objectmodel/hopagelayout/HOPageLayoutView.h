#pragma once
// HOPageLayoutView: a print page holding elements, among them data frames that each show a map view.
// The operating data frame is the one being worked on; its map view is the layout's focus map.
// Page coordinates are millimetres from the page's bottom-left corner, y upwards. RedrawSignal fires
// on the thread that created the layout (a data frame's map redraws arrive through its event loop).
#include <memory>

#include "HOGraphicsContainer.h"
#include "HOLayoutDocument.h"
#include "HOPageSetup.h"
#include "HORefPtr.h"
#include "HOViewportView.h"
#include "HXExport.h"

class QPainter;

namespace HXObjects {

class HOMapView;
class HOFileFunc;
class HODataFrame;

class HX_EXPORT HOPageLayoutView : public HOViewportView {
public:
    HOPageLayoutView();

    // HOView, in table order, where a page differs from HOViewportView. Input: with a data frame
    // activated, input inside it goes to the frame's map view (and its current tool, which is the
    // page's); otherwise the pan tool and the middle button move the page, the zoom tools and the
    // wheel zoom it (the zoom-in tool by a click or to a dragged box), and with any other tool (or none) the
    // left button selects, moves and resizes elements. A double click on a data frame activates it; one
    // elsewhere deactivates it.
    void MouseDown(int button, int x, int y) override;
    void MouseUp(int button, int x, int y) override;
    void MouseMove(int button, int x, int y) override;
    void DoubleClick(int button, int x, int y) override;
    void Wheel(int reserved, int delta, int x, int y) override;
    void DrawTo(HOGraphics* surface, int reserved) override;
    void RefreshView(bool all) override;
    void PauseRender() override;
    void ResumeRender() override;
    void SetCurrentTool(HOTool* tool) override;
    void ResizeRefresh(int delayMs) override;

    // Draws the sheet for paper or a file: page (0, 0) at the device's top-left corner, `dpi` device
    // pixels per inch, maps drawn now at that resolution, no desk and no selection marks.
    void Print(QPainter& painter, double dpi);
    HOPageSetup GetPageSetup() const;
    // Shows the whole new sheet; the elements stay where they are.
    void SetPageSetup(const HOPageSetup& setup);

    // Puts the map view into the operating data frame (creating the frame when there is none).
    void SwitchToLayoutView(HOMapView* view);
    HORefPtr<HOPageLayoutBaseElement> get_operating_data_frame() const;
    void set_operating_data_frame(HOPageLayoutBaseElement* element);
    HOGraphicsContainer* get_graphicscontainer() const;
    // The data frame whose map takes the input (it is also the operating frame); null: the page does.
    // Activating fires ActiveElementChangedSignal once.
    HORefPtr<HODataFrame> get_active_data_frame() const;
    void ActivateDataFrame(HODataFrame* frame);
    // Replaces the page and its elements with a layout document's; on failure nothing changes and the
    // file holds the reason. Sources that could not be opened are the file's warnings.
    bool open(HOFileFunc* file, double version);
    // Replaces the page and its elements with a document's contents read beforehand (the reading
    // opens the sources, so it may run on a worker; this part runs on the page's thread).
    void Install(HOLayoutDocument::Contents contents);
    // Writes the layout document in format `version` (0: the current one).
    bool save(HOFileFunc* file, double version);

    // Fired when the element being edited changed.
    HOEventSignal ActiveElementChangedSignal;

protected:
    ~HOPageLayoutView() override;

private:
    void OnNavigated(int settleDelayMs) override;
    double MetresPerUnit() const override;
    void OnPanStarted() override;
    void OnPanDragged(int dx, int dy, bool released) override;

    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace HXObjects
