// A randomized input soak: a shown canvas over the sample region's land, roads and towns receives
// thousands of random mouse, wheel and key events (over the map and the status bar), texts typed
// into the coordinates and scale boxes, tool changes and scale locks, from a seeded generator. The
// canvas must not crash, hang or trip the sanitizers, and its extent and scale must stay finite.
//
// HX_SOAK_SEED picks another seed and HX_SOAK_EVENTS another number of events; a failure names the
// seed and the event, so that it can be played again.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QtTest>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <random>
#include <thread>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarCoordinatesWidget.h"

using namespace HXObjects;

namespace {

// The soak stops early (and passes) once its time is up, so that a loaded machine does not fail it;
// an event that has not returned after kHangMs is a hang, reported from a watchdog thread.
const int kTimeBudgetMs = 30000;
const int kHangMs = 20000;

QString SamplePath() {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/region.gpkg";
}

quint32 EnvNumber(const char* name, quint32 fallback) {
    bool ok = false;
    const quint32 value = qEnvironmentVariable(name).toUInt(&ok);
    return ok ? value : fallback;
}

// Closes every menu and dialog that a tool or a click opens, so that none waits for a person.
class PopupCloser : public QObject {
public:
    PopupCloser() {
        connect(&mTimer, &QTimer::timeout, this, [] {
            if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
        });
        mTimer.start(5);
    }

private:
    QTimer mTimer;
};

// Aborts the test with the seed and the event number when an event does not return in time.
class HangWatchdog {
public:
    explicit HangWatchdog(quint32 seed) : mSeed(seed), mThread([this] { watch(); }) {}
    ~HangWatchdog() {
        {
            std::lock_guard<std::mutex> lock(mMutex);
            mDone = true;
        }
        mWake.notify_all();
        mThread.join();
    }
    void starting(int event) {
        std::lock_guard<std::mutex> lock(mMutex);
        mEvent = event;
        mSince = std::chrono::steady_clock::now();
    }

private:
    void watch() {
        std::unique_lock<std::mutex> lock(mMutex);
        while (!mWake.wait_for(lock, std::chrono::milliseconds(100), [this] { return mDone; })) {
            if (std::chrono::steady_clock::now() - mSince < std::chrono::milliseconds(kHangMs)) continue;
            std::fprintf(stderr, "FAIL: seed %u, event %d has not returned in %d ms: a hang\n", mSeed, mEvent,
                         kHangMs);
            std::abort();
        }
    }
    const quint32 mSeed;
    std::mutex mMutex;
    std::condition_variable mWake;
    bool mDone = false;
    int mEvent = -1;
    std::chrono::steady_clock::time_point mSince = std::chrono::steady_clock::now();
    std::thread mThread;
};

class Soak {
public:
    Soak(HXMapCanvas& canvas, quint32 seed) : mCanvas(canvas), mRandom(seed) {
        QStatusBar* bar = canvas.StatusBar();
        mCoordinates = bar->findChild<HXStatusBarCoordinatesWidget*>()->mLineEdit;
        mScale = bar->findChild<HXScaleComboBox*>()->lineEdit();
    }

    // One random event; its description, for a failure message.
    QString step() {
        const int kind = pick(100);
        if (kind < 40) return mouse();
        if (kind < 55) return wheel();
        if (kind < 75) return key();
        if (kind < 85) return type(mCoordinates, coordinateText());
        if (kind < 93) return type(mScale, scaleText());
        return setting();
    }

private:
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(mRandom); }
    double number() {
        static const double special[] = {0.0, -0.0, 1e-300, 1e308, -1e308, 1e15, 123456.789, 116.4, 39.9};
        if (pick(3) == 0) return special[pick(int(std::size(special)))];
        return std::uniform_real_distribution<double>(-1e7, 1e7)(mRandom);
    }
    // A point anywhere on the canvas (status bar included) or a little outside it.
    QPoint anywhere() { return QPoint(pick(mCanvas.width() + 40) - 20, pick(mCanvas.height() + 40) - 20); }
    // The widget under a canvas point (the canvas itself outside its children) and the point in it.
    QWidget* under(QPoint& p) {
        QWidget* child = mCanvas.childAt(p);
        if (!child) return &mCanvas;
        p = child->mapFrom(&mCanvas, p);
        return child;
    }

    QString mouse() {
        static const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        const Qt::MouseButton button = buttons[pick(3)];
        const Qt::KeyboardModifiers modifiers = pick(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier;
        const QPoint at = anywhere();
        QPoint p = at;
        QWidget* target = under(p);
        switch (pick(5)) {
            case 0:
                QTest::mousePress(target, button, modifiers, p);
                return QString("press %1 at %2,%3").arg(button).arg(at.x()).arg(at.y());
            case 1:
                QTest::mouseRelease(target, button, modifiers, p);
                return QString("release %1 at %2,%3").arg(button).arg(at.x()).arg(at.y());
            case 2:
                QTest::mouseDClick(target, button, modifiers, p);
                return QString("double click %1 at %2,%3").arg(button).arg(at.x()).arg(at.y());
            default: {
                QMouseEvent move(QEvent::MouseMove, p, target->mapToGlobal(p), Qt::NoButton,
                                 pick(2) ? Qt::MouseButtons(button) : Qt::NoButton, modifiers);
                QApplication::sendEvent(target, &move);
                return QString("move to %1,%2").arg(at.x()).arg(at.y());
            }
        }
    }

    QString wheel() {
        static const int deltas[] = {120, -120, 15, -15, 960, -960, 1200000, -1200000};
        const int delta = deltas[pick(int(std::size(deltas)))];
        const QPoint at = anywhere();
        QPoint p = at;
        QWidget* target = under(p);
        QWheelEvent event(p, target->mapToGlobal(p), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &event);
        return QString("wheel %1 at %2,%3").arg(delta).arg(at.x()).arg(at.y());
    }

    QString key() {
        static const int keys[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,    Qt::Key_Down,
                                   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Escape,
                                   Qt::Key_A,      Qt::Key_C,        Qt::Key_V,     Qt::Key_X,
                                   Qt::Key_Z,      Qt::Key_Return};
        const auto key = Qt::Key(keys[pick(int(std::size(keys)))]);
        const Qt::KeyboardModifiers modifiers = pick(3) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        QWidget* targets[] = {&mCanvas, mCoordinates, mScale};
        QWidget* target = targets[pick(3)];
        const bool press = pick(2), release = pick(2);
        if (press) QTest::keyPress(target, key, modifiers);
        if (release) QTest::keyRelease(target, key, modifiers);
        return QString("key %1 (modifiers %2, press %3, release %4) on %5")
            .arg(key, 0, 16)
            .arg(modifiers)
            .arg(press)
            .arg(release)
            .arg(target->metaObject()->className());
    }

    QString coordinateText() {
        static const char* const fixed[] = {"1000, 1000", "1e308, 1e308", "inf, 0",  "nan, nan", "-inf -inf",
                                            "1e300 5",    "0,0",          "1,2,3",   "",         ",",
                                            "abc, def",   "116.4 39.9",   "  7 ,  8"};
        if (pick(2)) return fixed[pick(int(std::size(fixed)))];
        return QString("%1, %2").arg(number(), 0, 'g', 17).arg(number(), 0, 'g', 17);
    }

    QString scaleText() {
        static const char* const fixed[] = {
            "0",   "1:0", "-5", "1e300", "1:1000000000000", "1e-300",  "0.5", "2:1",
            "abc", "1:",  ":",  "1:1",   "50000",           "1:25,000"};
        if (pick(2)) return fixed[pick(int(std::size(fixed)))];
        return QString::number(number(), 'g', 17);
    }

    QString type(QLineEdit* box, const QString& text) {
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
        return QString("typed '%1' into %2").arg(text, box == mCoordinates ? "the coordinates" : "the scale");
    }

    QString setting() {
        static const char* const tools[] = {"HXObjects::HOToolPan", "HXObjects::HOToolZoomIn",
                                            "HXObjects::HOToolZoomOut", "HXObjects::HOToolSingleSelect",
                                            "HXObjects::HOToolIdentify"};
        switch (pick(5)) {
            case 0: {
                const char* name = tools[pick(int(std::size(tools)))];
                mCanvas.setMapTool(HOCMDPool::GetInstance()->GetTool(name));
                return QString("tool %1").arg(name);
            }
            case 1:
                mCanvas.setMapTool(static_cast<HOTool*>(nullptr));
                return "no tool";
            case 2: {
                const bool locked = pick(2);
                mCanvas.setScaleLocked(locked);
                return QString("scale locked %1").arg(locked);
            }
            case 3: {
                const double factor = number();
                mCanvas.zoomByFactor(factor);
                return QString("zoom by %1").arg(factor, 0, 'g', 17);
            }
            default:
                mCanvas.setWheelFactor(1.0 + pick(5));
                return "wheel factor";
        }
    }

    HXMapCanvas& mCanvas;
    std::mt19937 mRandom;
    QLineEdit* mCoordinates = nullptr;
    QLineEdit* mScale = nullptr;
};

// Empty, or finite; the scale finite and not negative.
QString BrokenState(HXMapCanvas& canvas) {
    const HORect extent = canvas.extent();
    if (!extent.IsEmpty() && !extent.IsFinite()) return "the extent is not finite";
    const double scale = canvas.scale();
    if (!std::isfinite(scale) || scale < 0) return QString("the scale is %1").arg(scale);
    const HODisplayTransform shown = canvas.GetMapView()->GetDisplayTransform();
    if (!std::isfinite(shown.unitsPerPixel + shown.extentLeft + shown.extentTop))
        return "the transform is not finite";
    return QString();
}

}  // namespace

class TestCanvasSoak : public QObject {
    Q_OBJECT

private slots:
    void randomInput() {
        const quint32 seed = EnvNumber("HX_SOAK_SEED", 20261123);
        const int events = int(EnvNumber("HX_SOAK_EVENTS", 3000));
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        // Random keys may delete or merge features: the soak edits a copy, never the shared fixture.
        QTemporaryDir dir;
        const QString copy = dir.filePath("region.gpkg");
        QVERIFY(QFile::copy(SamplePath(), copy));
        HORefPtr<HOMap> map = new HOMap();
        for (const char* name : {"land", "roads", "towns"}) {
            HOString error;
            HORefPtr<HOLayer> layer = OpenLayer(HOString(copy + "|layername=" + name), &error);
            QVERIFY2(layer, error.c_str());
            map->AddLayer(layer);
        }
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(640, 505);
        canvas.show();
        QVERIFY(QTest::qWaitForWindowExposed(&canvas));
        canvas.GetMapView()->SetMap(map);

        PopupCloser closer;
        HangWatchdog watchdog(seed);
        Soak soak(canvas, seed);
        QElapsedTimer clock;
        clock.start();
        int done = 0;
        for (; done < events && clock.elapsed() < kTimeBudgetMs; ++done) {
            watchdog.starting(done);
            const QString event = soak.step();
            // Now and then the worker's redraws and the widgets' own events get their turn.
            if (done % 16 == 0) QCoreApplication::processEvents();
            const QString broken = BrokenState(canvas);
            if (!broken.isEmpty())
                QFAIL(
                    qPrintable(QString("seed %1, event %2 (%3): %4").arg(seed).arg(done).arg(event, broken)));
        }
        watchdog.starting(done);
        qInfo("seed %u: %d events in %lld ms", seed, done, clock.elapsed());
        canvas.setMapTool(static_cast<HOTool*>(nullptr));
        canvas.resumeRender();  // the render toggle may have been clicked
        QVERIFY2(QTest::qWaitFor([&] { return !canvas.GetMapView()->IsRendering(); }, 15000),
                 qPrintable(QString("seed %1: the last render did not finish within 15 s").arg(seed)));
        while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
    }
};

QTEST_MAIN(TestCanvasSoak)
#include "tst_canvas_soak_sample.moc"
