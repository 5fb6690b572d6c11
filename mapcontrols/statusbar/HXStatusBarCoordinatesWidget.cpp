#include "HXStatusBarCoordinatesWidget.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QRegExp>
#include <QRegExpValidator>
#include <QSpacerItem>
#include <QTimer>
#include <QToolButton>
#include <functional>

#include "CcurrencyFunc.h"
#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOUnitConversion.h"
#include "HXMapCanvas.h"
#include "private/HXCoordinateText.h"

using namespace HXObjects;

namespace {

const char* const kCoordsIcon = ":/icon/res/main/cor.png";
const char* const kExtentsIcon = ":/icon/res/main/extents.png";

// A display unit the widget knows: its label and, for lengths, metres per unit (0 for angles).
struct DisplayUnit {
    int unit;
    const char* label;
    double metresPerUnit;
};

const DisplayUnit kDisplayUnits[] = {
    {HOUnitMeter, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "m"), 1.0},
    {HOUnitFoot, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Feet"), 0.3048},
    {HOUnitDegree, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Degree"), 0.0},
    {HOUnitUnknown, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Unknown unit"), 0.0},
    {HOUnitNauticalMile, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Nautical mile"), 1852.0},
    {HOUnitKilometer, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Kilometer"), 1000.0},
    {HOUnitYard, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Yard"), 0.9144},
    {HOUnitMile, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Mile"), 1609.344},
    {HOUnitDecimalDegree, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Degree"), 0.0},
    {HOUnitDegreeMinuteSecond, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Degree"), 0.0},
    {HOUnitDegreeDecimalMinute, QT_TRANSLATE_NOOP("HXStatusBarCoordinatesWidget", "Degree"), 0.0},
};

const DisplayUnit* findDisplayUnit(int unit) {
    for (const DisplayUnit& known : kDisplayUnits) {
        if (known.unit == unit) return &known;
    }
    return nullptr;
}

QString unitLabel(const DisplayUnit& unit) {
    return QCoreApplication::translate("HXStatusBarCoordinatesWidget", unit.label);
}

// The 6-degree zone of a longitude. The integer conversion truncates toward zero, so longitudes
// between -12 and -6 fall in zone 0 (central meridian -3) too, not in zone -1.
int sixDegreeZone(double lon) {
    return static_cast<int>((lon + 6.0) / 6.0);
}

// Easting and northing of a geographic position in its 6-degree Gauss–Krüger zone (CGCS2000).
QPointF gaussKrugerPosition(double lon, double lat) {
    const int zone = sixDegreeZone(lon);
    const double centralMeridian = zone * 6.0 - 3.0;
    double northing = 0.0;
    double easting = 0.0;
    CcurrencyFunc::bl2XY(CcurrencyFunc::CGCS2000, HOUnitConversion::DegreeToDms(lat),
                         HOUnitConversion::DegreeToDms(lon), centralMeridian, zone, 500000.0, &northing,
                         &easting, CcurrencyFunc::PackedDms);
    return {easting, northing};
}

struct PositionText {
    QString text;
    QString label;
};

// The position in a display unit. `metres` gives the position in metres (asked only for length
// units); `degrees` is the geographic position. Units the widget does not know give empty texts.
PositionText formatInUnit(int unit, const QPointF& raw, const std::function<QPointF()>& metres,
                          const QPointF& degrees) {
    const DisplayUnit* known = findDisplayUnit(unit);
    if (!known) return {};
    switch (unit) {
        case HOUnitUnknown:
            return {HXCoordinateText::pair(raw.x(), raw.y()), unitLabel(*known)};
        case HOUnitDegree:
        case HOUnitDecimalDegree:
            return {HXCoordinateText::pair(degrees.x(), degrees.y()), unitLabel(*known)};
        case HOUnitDegreeMinuteSecond:
            return {HXCoordinateText::pair(HOUnitConversion::DegreeToDms(degrees.x()),
                                           HOUnitConversion::DegreeToDms(degrees.y())),
                    unitLabel(*known)};
        case HOUnitDegreeDecimalMinute:
            return {HXCoordinateText::pair(HOUnitConversion::DegreeToDdm(degrees.x()),
                                           HOUnitConversion::DegreeToDdm(degrees.y())),
                    unitLabel(*known)};
        default: {
            const QPointF m = metres();
            return {HXCoordinateText::pair(m.x() / known->metresPerUnit, m.y() / known->metresPerUnit),
                    unitLabel(*known)};
        }
    }
}

// How a map's positions are shown: converted from projected metres, from geographic degrees, or
// raw (no coordinate system, or one in another unit).
enum class PositionKind { Projected, Geographic, Raw };

PositionKind positionKind(HOCoordinateSystem* cs) {
    if (cs && cs->IsProjected() && cs->GetUnit() == HOUnitMeter) return PositionKind::Projected;
    if (cs && !cs->IsProjected() && cs->IsGeographic() && cs->GetUnit() == HOUnitDegree)
        return PositionKind::Geographic;
    return PositionKind::Raw;
}

PositionText formatPosition(const QPointF& p, HOMap* map) {
    const int unit = map->GetMapDisplayUnit();
    const HORefPtr<HOCoordinateSystem> cs = map->GetSpatialReference();
    const double x = p.x();
    const double y = p.y();
    switch (positionKind(cs.get())) {
        case PositionKind::Projected: {
            double lon = 0.0;
            double lat = 0.0;
            cs->ToGeographic(x, y, &lon, &lat);
            const auto metres = [p] { return p; };
            return formatInUnit(unit, p, metres, QPointF(lon, lat));
        }
        case PositionKind::Geographic: {
            const auto metres = [x, y] { return gaussKrugerPosition(x, y); };
            return formatInUnit(unit, p, metres, p);
        }
        case PositionKind::Raw:
            break;
    }
    return {HXCoordinateText::pair(x, y), unitLabel(*findDisplayUnit(HOUnitUnknown))};
}

// The label formatPosition gives the map's positions.
QString mapUnitLabel(HOMap* map) {
    const HORefPtr<HOCoordinateSystem> cs = map->GetSpatialReference();
    const DisplayUnit* unit = positionKind(cs.get()) == PositionKind::Raw
                                  ? findDisplayUnit(HOUnitUnknown)
                                  : findDisplayUnit(map->GetMapDisplayUnit());
    return unit ? unitLabel(*unit) : QString();
}

}  // namespace

HXStatusBarCoordinatesWidget::HXStatusBarCoordinatesWidget(QWidget* parent) : QWidget(parent) {
    mLabelUnit = new QLabel(this);
    mLabelUnit->setObjectName(QStringLiteral("mLabelUnit"));
    mLabelUnit->setAlignment(Qt::AlignCenter);
    mLabelUnit->setFrameStyle(QFrame::NoFrame);
    mLabelUnit->setText(tr("unknown unit"));
    mLabelUnit->setToolTip(tr("Current map display unit"));

    mLineEdit = new QLineEdit(this);
    mLineEdit->setContentsMargins(0, 0, 0, 0);
    mLineEdit->setAlignment(Qt::AlignCenter);
    mLineEdit->setToolTip(tr("Current map coordinate system (longitude, latitude or east, north)"));
    mLineEdit->setWhatsThis(
        tr("Shows the map coordinates at the current cursor position. The display is continuously updated as "
           "the mouse is moved. It also allows editing to set the canvas center to a given position. The "
           "format is longitude,latitude or east,north"));

    mToggleExtentsViewButton = new QToolButton(this);
    mToggleExtentsViewButton->setCheckable(true);
    mToggleExtentsViewButton->setAutoRaise(true);
    mToggleExtentsViewButton->setIcon(QIcon(kCoordsIcon));
    mToggleExtentsViewButton->setToolTip(tr("Toggle extents and mouse position display"));
    mToggleExtentsViewButton->setCursor(Qt::PointingHandCursor);

    // Kept for hosts that want to restrict typing; the line edit parses on its own.
    mCoordsValidator =
        new QRegExpValidator(QRegExp(QStringLiteral("[+-]?\\d+\\.?\\d*\\s*,\\s*[+-]?\\d+\\.?\\d*")), this);
    mDizzyTimer = new QTimer(this);

    auto* layout = new QHBoxLayout(this);
    layout->addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
    layout->addWidget(mLineEdit);
    layout->addWidget(mLabelUnit);
    layout->addWidget(mToggleExtentsViewButton);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setAlignment(Qt::AlignRight);
    layout->setSpacing(0);

    connect(mLineEdit, SIGNAL(returnPressed()), this, SLOT(validateCoordinates()));
    connect(mToggleExtentsViewButton, SIGNAL(toggled(bool)), this, SLOT(extentsViewToggled(bool)));
    connect(mDizzyTimer, SIGNAL(timeout()), this, SLOT(dizzy()));
}

HXStatusBarCoordinatesWidget::~HXStatusBarCoordinatesWidget() = default;

void HXStatusBarCoordinatesWidget::setMapCanvas(HXMapCanvas* canvas) {
    if (mMapCanvas) {
        disconnect(mMapCanvas, SIGNAL(xyCoordinates(const QPointF&, HXObjects::HOMap*)), this,
                   SLOT(showMouseCoordinates(const QPointF&, HXObjects::HOMap*)));
        disconnect(mMapCanvas, SIGNAL(extentsChanged()), this, SLOT(showExtent()));
        disconnect(mMapCanvas, &HXMapCanvas::extentsChanged, this,
                   &HXStatusBarCoordinatesWidget::showMapUnit);
    }
    mMapCanvas = canvas;
    if (!mMapCanvas) return;
    connect(mMapCanvas, SIGNAL(xyCoordinates(const QPointF&, HXObjects::HOMap*)), this,
            SLOT(showMouseCoordinates(const QPointF&, HXObjects::HOMap*)));
    connect(mMapCanvas, SIGNAL(extentsChanged()), this, SLOT(showExtent()));
    connect(mMapCanvas, &HXMapCanvas::extentsChanged, this, &HXStatusBarCoordinatesWidget::showMapUnit);
}

void HXStatusBarCoordinatesWidget::setFont(const QFont& font) {
    mLineEdit->setFont(font);
    mLabelUnit->setFont(font);
}

void HXStatusBarCoordinatesWidget::showMapUnit() {
    if (!mMapCanvas || mToggleExtentsViewButton->isChecked()) return;
    HOMapView* view = mMapCanvas->GetMapView();
    if (HOMap* map = view ? view->GetMap() : nullptr) mLabelUnit->setText(mapUnitLabel(map));
}

void HXStatusBarCoordinatesWidget::showMouseCoordinates(const QPointF& p, HOMap* curMap) {
    if (!mMapCanvas || mToggleExtentsViewButton->isChecked()) return;
    if (!curMap) {
        mLineEdit->setText(QString());
        mLineEdit->setToolTip(QString());
        mLabelUnit->setText(unitLabel(*findDisplayUnit(HOUnitUnknown)));
        return;
    }
    const PositionText shown = formatPosition(p, curMap);
    mLineEdit->setText(shown.text);
    mLineEdit->setToolTip(shown.text);
    mLabelUnit->setText(shown.label);
}

void HXStatusBarCoordinatesWidget::extentsViewToggled(bool theFlag) {
    if (theFlag) {
        mToggleExtentsViewButton->setIcon(QIcon(kExtentsIcon));
        mLineEdit->setToolTip(tr("Map coordinates for the current view extents"));
        mLastMouseText = mLineEdit->text();
        mLineEdit->setReadOnly(true);
        showExtent();
    } else {
        mToggleExtentsViewButton->setIcon(QIcon(kCoordsIcon));
        mLineEdit->setToolTip(tr("Map coordinates at mouse cursor position"));
        mLineEdit->setReadOnly(false);
        mLineEdit->setText(mLastMouseText);
        // The restored mouse text is also the tooltip, as while the mouse was moving.
        mLineEdit->setToolTip(mLastMouseText);
    }
}

void HXStatusBarCoordinatesWidget::validateCoordinates() {
    if (!mMapCanvas) return;
    double x = 0.0;
    double y = 0.0;
    if (!HXCoordinateText::parse(mLineEdit->text(), &x, &y)) return;
    mMapCanvas->setCenter(HOPoint(x, y));
    mMapCanvas->refresh();
}

void HXStatusBarCoordinatesWidget::dizzy() {}

void HXStatusBarCoordinatesWidget::showExtent() {
    if (!mMapCanvas || !mToggleExtentsViewButton->isChecked()) return;
    const HORect extent = mMapCanvas->extent();

    QString label = tr("Pixel");
    if (HOMapView* view = mMapCanvas->GetMapView()) {
        HOMap* map = view->GetMap();
        const HORefPtr<HOCoordinateSystem> cs =
            map ? map->GetSpatialReference() : HORefPtr<HOCoordinateSystem>();
        // The system's own unit, not the display unit: the extent is shown in raw map coordinates.
        const DisplayUnit* unit = cs ? findDisplayUnit(cs->GetUnit()) : nullptr;
        if (unit) label = unitLabel(*unit);
    }
    mLabelUnit->setText(label);

    const QString text = HXCoordinateText::number(extent.minx) + QLatin1Char(',') +
                         HXCoordinateText::number(extent.miny) + QStringLiteral(" ; ") +
                         HXCoordinateText::number(extent.maxx) + QLatin1Char(',') +
                         HXCoordinateText::number(extent.maxy);
    mLineEdit->setText(text);
    mLineEdit->setToolTip(text);
}
