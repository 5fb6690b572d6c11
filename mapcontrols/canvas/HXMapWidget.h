#pragma once
// HXMapWidget: the canvas's drawing widget. A bound view's RedrawSignal (possibly on a render thread)
// makes it render the view into a fresh surface that becomes its image under the image lock (the
// pixels are not copied again: the surface is not reused); paintEvent only blits that image, the
// watermark and the scrolling-notice overlay. The image lock is a std::mutex, which thread checkers
// see, since the render thread and the GUI thread both take it.
#include <QImage>
#include <QList>
#include <QSize>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <mutex>

#include "HXNoticeItem.h"

class HXMapCanvas;

namespace HXObjects {
class HOEvent;
class HOGraphics;
class HOView;
}  // namespace HXObjects

class HXMapWidget : public QWidget {
    Q_OBJECT

public:
    explicit HXMapWidget(HXMapCanvas* canvas);
    ~HXMapWidget() override;

    void onViewRedraw(void* sender, HXObjects::HOEvent* event);

    bool mWaterMask = true;
    bool mLicenseFlag = false;
    std::mutex mImageMutex;
    QImage mImage;
    QImage mOverlayImage;
    QTimer mUpdateTimer;
    QTimer mLicTimer;
    bool mLicensed = true;
    bool mLicensedKept = true;
    // ShowMessage appends under mNoticeMutex; the list owns its items.
    std::mutex mNoticeMutex;
    QList<HXNoticeItem*> mNotices;

signals:
    void sizeChanged(QResizeEvent* e);

public slots:
    void slotUpdate();
    void slotCheckLic();

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    // Fills the surface with the view's background and draws the view into it.
    static void drawView(HXObjects::HOView* view, HXObjects::HOGraphics* surface);
    void scheduleRepaint();
    QSize redrawSize();
    int noticeCount();
    HXNoticeItem* noticeAt(int index);
    void removeNotice(HXNoticeItem* item);

    // The widget's size as the GUI thread last saw it, for redraws on a render thread.
    std::atomic<int> mRedrawWidth{0};
    std::atomic<int> mRedrawHeight{0};
    std::atomic<double> mRedrawRatio{1.0};
};
