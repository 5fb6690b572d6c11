#pragma once
// HXFeatureEditing: the viewer's answers to the feature-editing tools — the attribute form for the
// features the attribute tool selected (the canvas's EditFeature), and for each feature the
// add-feature tool has just written. Lives as long as the window that makes it.
#include <QObject>

#include "HOEvent.h"

class HXMapCanvas;

namespace HXObjects {
class HOFeatureLayer;
class HOTool;
class HOToolAddFeature;
}  // namespace HXObjects

class HXFeatureEditing : public QObject {
    Q_OBJECT
public:
    explicit HXFeatureEditing(HXMapCanvas* canvas);
    ~HXFeatureEditing() override;

private:
    void onEditFeature(HXObjects::HOTool* tool, bool active, int count);
    void onFeatureAdded(void* sender, HXObjects::HOEvent* event);
    // The current layer if it has a selection, else the first feature layer that has one.
    HXObjects::HOFeatureLayer* selectedLayer() const;

    HXMapCanvas* mCanvas;
    HXObjects::HOToolAddFeature* mAddTool;
};
