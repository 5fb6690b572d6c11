#pragma once
// HXModalDriver<Dialog>: acts on the next modal dialog of a class from inside its exec(). It polls
// the application's active modal widget every 10 ms until the time limit; the first visible one of
// the class gets `action` (which should end it with accept(), reject() or a button click). done()
// tells whether that happened, so a test can fail with a message instead of waiting for nothing.
// Header-only; needs a QApplication.
#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <functional>

template <class Dialog>
class HXModalDriver {
public:
    explicit HXModalDriver(std::function<void(Dialog*)> action, int timeoutMs = 10000)
        : mAction(std::move(action)), mDeadline(timeoutMs) {
        QObject::connect(&mTimer, &QTimer::timeout, [this]() { poll(); });
        mTimer.start(10);
    }

    bool done() const { return mDone; }

private:
    void poll() {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible()) {
            mTimer.stop();
            mDone = true;
            mAction(dialog);
        } else if (mDeadline.hasExpired()) {
            mTimer.stop();
        }
    }

    std::function<void(Dialog*)> mAction;
    QDeadlineTimer mDeadline;
    QTimer mTimer;
    bool mDone = false;
};
