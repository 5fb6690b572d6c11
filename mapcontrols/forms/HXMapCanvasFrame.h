#pragma once
// HXMapCanvasFrame: a map canvas for forms built in Qt Designer. A form makes each widget with its
// parent alone and sets properties afterwards, while a canvas's view mode is fixed when the canvas is
// made. The frame therefore holds the mode (and the canvas settings a form author sets) as properties
// and makes its canvas, filling the frame, only when the canvas is first needed: canvas() or the
// frame being shown. The mode a form sets is thus the mode the canvas is made with. Setting another
// mode once the canvas exists replaces it with a new canvas (what Designer does while a form is being
// edited); every canvas keeps its own mode for life. The frame owns its canvas.
#include <QPointer>
#include <QWidget>

#include "HXMapCanvas.h"
#include "HXMapControlsExport.h"

class HXMAPCONTROLS_EXPORT HXMapCanvasFrame : public QWidget {
    Q_OBJECT
    Q_PROPERTY(HXMapCanvas::ViewMode viewMode READ viewMode WRITE setViewMode)
    Q_PROPERTY(bool waterMark READ waterMark WRITE setWaterMark)
    Q_PROPERTY(bool licenceRequired READ licenceRequired WRITE setLicenceRequired)
    Q_PROPERTY(double wheelFactor READ wheelFactor WRITE setWheelFactor)
    Q_PROPERTY(bool scaleLocked READ scaleLocked WRITE setScaleLocked)

public:
    explicit HXMapCanvasFrame(QWidget* parent = nullptr);

    // The canvas, made with the current settings on the first call.
    HXMapCanvas* canvas();

    HXMapCanvas::ViewMode viewMode() const { return mViewMode; }
    void setViewMode(HXMapCanvas::ViewMode mode);
    bool waterMark() const { return mWaterMark; }
    void setWaterMark(bool enabled);
    bool licenceRequired() const { return mLicenceRequired; }
    void setLicenceRequired(bool required);
    double wheelFactor() const { return mWheelFactor; }
    void setWheelFactor(double factor);
    bool scaleLocked() const { return mScaleLocked; }
    void setScaleLocked(bool locked);

signals:
    // A new canvas was made: the first one, or the replacement after a change of view mode.
    void canvasCreated(HXMapCanvas* canvas);

protected:
    void showEvent(QShowEvent* e) override;

private:
    // Hands the settings to the canvas, when there is one.
    void applySettings();

    QPointer<HXMapCanvas> mCanvas;
    HXMapCanvas::ViewMode mViewMode = HXMapCanvas::MapViewMode;
    bool mWaterMark = true;
    bool mLicenceRequired = false;
    double mWheelFactor = 2.0;
    bool mScaleLocked = false;
};
