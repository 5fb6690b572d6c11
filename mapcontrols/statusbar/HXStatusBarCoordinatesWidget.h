#pragma once
// HXStatusBarCoordinatesWidget: the status-bar element showing the map position under the mouse (or
// the view extent) in the map's display unit, and taking a typed position to recentre the canvas.
// The canvas moves the three children into its status bar, so they are public.
#include <QPointF>
#include <QString>
#include <QWidget>

#include "HXMapControlsExport.h"

class QLabel;
class QLineEdit;
class QRegExpValidator;
class QTimer;
class QToolButton;
class HXMapCanvas;

namespace HXObjects {
class HOMap;
}

class HXMAPCONTROLS_EXPORT HXStatusBarCoordinatesWidget : public QWidget {
    Q_OBJECT

public:
    explicit HXStatusBarCoordinatesWidget(QWidget* parent);
    ~HXStatusBarCoordinatesWidget() override;

    // Disconnects the previous canvas, connects this one (null: the widget stays inert).
    void setMapCanvas(HXMapCanvas* canvas);
    // On the line edit and the unit label (not on the button).
    void setFont(const QFont& font);
    // In mouse mode, labels the canvas's current map with its display unit, as the next mouse move
    // over it will; called whenever the canvas's extent or scale changes, so that the unit shows
    // before the mouse first moves. Without a map the label stays.
    void showMapUnit();

    QLabel* mLabelUnit = nullptr;
    QLineEdit* mLineEdit = nullptr;
    QToolButton* mToggleExtentsViewButton = nullptr;

signals:
    void coordinatesChanged();

public slots:
    void showMouseCoordinates(const QPointF& p, HXObjects::HOMap* curMap);
    void extentsViewToggled(bool theFlag);
    void validateCoordinates();
    void dizzy();
    void showExtent();

private:
    QString mLastMouseText;
    QRegExpValidator* mCoordsValidator = nullptr;
    QTimer* mDizzyTimer = nullptr;
    HXMapCanvas* mMapCanvas = nullptr;
};
