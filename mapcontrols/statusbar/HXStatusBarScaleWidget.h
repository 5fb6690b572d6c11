#pragma once
// HXStatusBarScaleWidget: the status-bar scale caption and box. Scales are ratios (1:50 000 is
// 0.00002); a scale typed by the user zooms the canvas, a scale set by the canvas does not.
// The canvas moves the label and the box into its status bar, so they are public.
#include <QStringList>
#include <QWidget>

#include "HXMapControlsExport.h"

class QHBoxLayout;
class QLabel;
class HXMapCanvas;
class HXScaleComboBox;

class HXMAPCONTROLS_EXPORT HXStatusBarScaleWidget : public QWidget {
    Q_OBJECT

public:
    explicit HXStatusBarScaleWidget(QWidget* parent);
    ~HXStatusBarScaleWidget() override;

    // Stores the canvas (no connections).
    void setMapCanvas(HXMapCanvas* canvas);
    // On the label and the box's line edit.
    void setFont(const QFont& font);
    // Shows the ratio with the box's signals blocked, so it never reaches userScale().
    void setScale(double scale);

    QHBoxLayout* mLayout = nullptr;
    QLabel* mScaleLabel = nullptr;
    HXScaleComboBox* mScaleEdit = nullptr;

signals:
    void scaleLockChanged(bool locked);

public slots:
    void updateScales(const QStringList& scales);
    void updateScales();
    void userScale();

private:
    HXMapCanvas* mMapCanvas = nullptr;
};
