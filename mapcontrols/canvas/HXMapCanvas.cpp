// HXMapCanvas: construction, destruction, view binding and the small accessors.
#include "HXMapCanvas.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "HOCallbackKey.h"
#include "HODataFrame.h"
#include "HOGraphicsEngineManager.h"
#include "HOMapViewManager.h"
#include "HOTool.h"
#include "HXMapWidget.h"
#include "HXPanState.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarCoordinatesWidget.h"
#include "HXStatusBarInputGuard.h"
#include "HXStatusBarScaleWidget.h"
#include "HXTranslations.h"
#include "private/HXViewBindings.h"

using namespace HXObjects;

namespace {

const char* const kStatusBarStyleSheet = "QStatusBar::item {border: none;};background-color:gray";
const int kStatusBarHeight = 25;

void IgnoreSize(QWidget* widget) {
    widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

}  // namespace

HXMapCanvas::HXMapCanvas(ViewMode mode, QWidget* parent)
    : QWidget(parent),
      HOToolBuddy(),
      mViewMode(mode),
      mPanState(new HXPanState()),
      mBindings(std::make_unique<HXViewBindings>()) {
    // Before the first translated text of the canvas is built.
    HXTranslations::installOnce();
    setFocusPolicy(Qt::WheelFocus);

    mMapWidget = new HXMapWidget(this);
    connect(mMapWidget, SIGNAL(sizeChanged(QResizeEvent*)), this, SLOT(onResize(QResizeEvent*)));
    mMapWidget->setAttribute(Qt::WA_MouseTracking, true);

    HOMapViewManager* manager = HOMapViewManager::GetInstance();
    mMapViewGroupId = manager->addGroup();
    manager->setCurrentGroup(mMapViewGroupId);
    mMapView = manager->addView(HOString(tr("Map")));

    if (mode == PageLayoutMode) {
        mPageLayoutView = new HOPageLayoutView();
        mPageLayoutView->SwitchToLayoutView(mMapView);
    }

    setAcceptDrops(true);
    setWindowState(Qt::WindowMaximized);
    setWindowTitle("Map");
    setAttribute(Qt::WA_MouseTracking, true);

    if (mPageLayoutView)
        mBindings->bind(mPageLayoutView, mPageLayoutView->ActiveElementChangedSignal, this,
                        &HXMapCanvas::pagelyoutViewChangeActiveCallback);
    HOBindMember(Request3DRefreshSignal, this, &HXMapCanvas::onRequest3DRefresh);

    const QString pluginDirectory = QCoreApplication::applicationDirPath() + "/plugins";
    HOGraphicsEngineManager::instance(HOString(pluginDirectory))->SetCurrentEngine("QT");

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    buildStatusBar();

    layout->addWidget(mMapWidget);
    layout->addWidget(mStatusBar);

    SetToolBuddy(this);

    if (mMapView)
        mBindings->bind(mMapView, mMapView->BoundChangedSignal, this, &HXMapCanvas::viewBoundChangedCallback);
    HOView* drawn = nullptr;
    if (mode == MapViewMode) drawn = mMapView;
    if (mode == PageLayoutMode) drawn = mPageLayoutView;
    if (drawn) {
        mBindings->bind(drawn, drawn->RedrawSignal, mMapWidget, &HXMapWidget::onViewRedraw);
        mBindings->bind(drawn, drawn->ScaleChangedSignal, this, &HXMapCanvas::scaleChangedCallback);
    }

    connect(this, SIGNAL(signal_updateScale()), this, SLOT(updateScale()));
}

void HXMapCanvas::buildStatusBar() {
    const QFont font("Arial", 9);
    mStatusBar = new QStatusBar(this);
    mStatusBar->setSizeGripEnabled(false);
    mStatusBar->setFixedHeight(kStatusBarHeight);
    mStatusBar->setCursor(Qt::ArrowCursor);
    mStatusBar->setStyleSheet(kStatusBarStyleSheet);
    mStatusBar->setFont(font);
    mStatusBar->installEventFilter(new HXStatusBarInputGuard(mStatusBar));

    mCoordsWidget = new HXStatusBarCoordinatesWidget(mStatusBar);
    mCoordsWidget->setObjectName("mCoordsEdit");
    mCoordsWidget->setMapCanvas(this);
    mCoordsWidget->setFont(font);

    mScaleWidget = new HXStatusBarScaleWidget(mStatusBar);
    mScaleWidget->setObjectName("mScaleWidget");
    mScaleWidget->setFont(font);
    mScaleWidget->setMapCanvas(this);
    mScaleWidget->mScaleLabel->setMaximumWidth(50);
    mScaleWidget->mScaleLabel->setAlignment(Qt::AlignLeft);

    // The status bar takes the children over, so its items line up in one row.
    IgnoreSize(mScaleWidget->mScaleLabel);
    mStatusBar->addPermanentWidget(mScaleWidget->mScaleLabel, 1);
    IgnoreSize(mScaleWidget->mScaleEdit);
    mStatusBar->addPermanentWidget(mScaleWidget->mScaleEdit, 1);
    mCoordsWidget->mLineEdit->setMinimumWidth(0);
    IgnoreSize(mCoordsWidget->mLineEdit);
    mStatusBar->addPermanentWidget(mCoordsWidget->mLineEdit, 1);
    mCoordsWidget->mLabelUnit->setAlignment(Qt::AlignLeft);
    mStatusBar->addPermanentWidget(mCoordsWidget->mLabelUnit, 0);
    mStatusBar->addPermanentWidget(mCoordsWidget->mToggleExtentsViewButton, 1);

    auto* renderToggle = new QToolButton(mStatusBar);
    renderToggle->setCursor(Qt::PointingHandCursor);
    renderToggle->setIcon(QIcon(":/icon/res/main/refresh.png"));
    renderToggle->setCheckable(true);
    renderToggle->setAutoRaise(true);
    renderToggle->setToolTip(tr("Toggles pause refresh and continue"));
    connect(renderToggle, SIGNAL(toggled(bool)), this, SLOT(onRender(bool)));
    mStatusBar->addPermanentWidget(renderToggle, 1);

    mStatusBar->setMaximumHeight(mStatusBar->height());
}

HXMapCanvas::~HXMapCanvas() {
    emit beforeDestroyed();
    if (mMapTool) mMapTool->Deactivate();

    if (mMapView) {
        HOUnbindMember(mMapView->BoundChangedSignal, this, &HXMapCanvas::viewBoundChangedCallback);
        mMapView->StopRender(true);
        unbindAll(mMapView);
        mMapView.reset();
    }
    if (mPageLayoutView) unbindAll(mPageLayoutView);
    HOUnbindMember(Request3DRefreshSignal, this, &HXMapCanvas::onRequest3DRefresh);
    // Views replaced on the way keep some callbacks (the first map view its scale and bound ones).
    for (HOView* view : mBindings->boundViews()) unbindAll(view);
    HOMapViewManager::GetInstance()->removeGroup(mMapViewGroupId);
    delete mPanState;
}

void HXMapCanvas::unbindAll(HOView* view) {
    HOUnbindMember(view->RedrawSignal, mMapWidget, &HXMapWidget::onViewRedraw);
    HOUnbindMember(view->ScaleChangedSignal, this, &HXMapCanvas::scaleChangedCallback);
    if (auto* map = dynamic_cast<HOMapView*>(view))
        HOUnbindMember(map->BoundChangedSignal, this, &HXMapCanvas::viewBoundChangedCallback);
    if (auto* layout = dynamic_cast<HOPageLayoutView*>(view))
        HOUnbindMember(layout->ActiveElementChangedSignal, this,
                       &HXMapCanvas::pagelyoutViewChangeActiveCallback);
    // A view that outlives the canvas must not tell it of its scale.
    if (view->GetToolBuddy() == this) view->SetToolBuddy(nullptr);
}

HOMapView* HXMapCanvas::GetMapView() const {
    if (mViewMode == MapViewMode) return mMapView;
    if (mViewMode != PageLayoutMode || !mPageLayoutView) return nullptr;
    const HORefPtr<HOPageLayoutBaseElement> frame = mPageLayoutView->get_operating_data_frame();
    const auto* dataFrame = dynamic_cast<const HODataFrame*>(frame.get());
    return dataFrame ? dataFrame->get_map_view() : nullptr;
}

void HXMapCanvas::SetMapView(HOMapView* view) {
    if (mMapView) HOUnbindMember(mMapView->RedrawSignal, mMapWidget, &HXMapWidget::onViewRedraw);
    // A null view only cuts the drawing; the old view and its other bindings stay.
    if (!view) return;
    if (GetMapView()) view->SetSize(HOSize(width(), height()));
    // The replaced view's scale changes no longer concern this canvas (nor, should the view outlive
    // it, a dead one).
    if (mViewMode == MapViewMode && mMapView && mMapView != view && mMapView->GetToolBuddy() == this)
        mMapView->SetToolBuddy(nullptr);
    mMapView = view;
    if (mToolBuddy) view->SetToolBuddy(mToolBuddy);
    HOMapViewManager::GetInstance()->activate(view);
    if (mViewMode == MapViewMode) {
        mBindings->bind(view, view->RedrawSignal, mMapWidget, &HXMapWidget::onViewRedraw);
        // The new view draws at the canvas's magnification too.
        view->SetMagnification(magnificationFactor());
    }
}

HOPageLayoutView* HXMapCanvas::GetPageLayoutView() {
    return mPageLayoutView;
}

void HXMapCanvas::SetPageLayoutView(HOPageLayoutView* view) {
    mPageLayoutView = view;
    // Outside the contract; without a layout there is nothing to bind.
    if (!mPageLayoutView) return;
    mBindings->bind(view, view->RedrawSignal, mMapWidget, &HXMapWidget::onViewRedraw);
    mBindings->bind(view, view->ActiveElementChangedSignal, this,
                    &HXMapCanvas::pagelyoutViewChangeActiveCallback);
}

void HXMapCanvas::SetToolBuddy(HOToolBuddy* buddy) {
    mToolBuddy = buddy;
    if (!buddy) return;
    if (mViewMode == PageLayoutMode) {
        if (mMapView) mMapView->SetToolBuddy(buddy);
        if (mPageLayoutView) mPageLayoutView->SetToolBuddy(buddy);
    } else if (mViewMode == MapViewMode && mMapView) {
        mMapView->SetToolBuddy(buddy);
    }
    buddy->SetMapView(GetMapView());
    if (mViewMode == PageLayoutMode) buddy->SetPageLayoutView(mPageLayoutView);
}

bool HXMapCanvas::IsMapView() {
    return mViewMode == MapViewMode;
}

HXMapCanvas::ViewMode HXMapCanvas::getViewMode() {
    return mViewMode;
}

int HXMapCanvas::getMapViewGroupID() {
    return mMapViewGroupId;
}

const HXMapSettings& HXMapCanvas::mapSettings() const {
    return mMapSettings;
}

bool HXMapCanvas::antiAliasingEnabled() const {
    return mMapSettings.testFlag(HXMapSettings::Antialiasing);
}

QStatusBar* HXMapCanvas::StatusBar() {
    return mStatusBar;
}

void HXMapCanvas::SetScaleEnable(bool enabled) {
    mScaleWidget->mScaleEdit->setEnabled(enabled);
}

void HXMapCanvas::SetCommandControl(HOCommandControl* control) {
    mCommandControl = control;
}

void HXMapCanvas::setStatusBarStyle(QStyle* style) {
    if (mStatusBar) mStatusBar->setStyle(style);
}

// The page flag and the document flag both record the change: hosts read either.
void HXMapCanvas::SetPageModified() {
    mPageModified = true;
    mDocStateChanged = true;
}

void HXMapCanvas::ReloadLayerTree() {
    emit layerTreeReload();
}

void HXMapCanvas::enableWaterMask(bool enabled) {
    if (mMapWidget) mMapWidget->mWaterMask = enabled;
}

void HXMapCanvas::enableMapViewLic(bool enabled) {
    if (mMapWidget) mMapWidget->mLicenseFlag = enabled;
}

// The canvas has no 3-D view: the request is acknowledged by doing nothing.
void HXMapCanvas::onRequest3DRefresh(void*, HOEvent*) {}

void HXMapCanvas::pagelyoutViewChangeActiveCallback(void* sender, HOEvent* event) {
    emit activeElementChanged(sender, event);
}
