#pragma once
// HXModalAnswer<D>: answers the next modal dialog of class D while the code under test runs it. It
// polls the application's active modal widget every 10 ms; the first visible D is handed to
// `answer` once and rejected afterwards if `answer` left it open. Past the time limit it stops
// waiting and closes whatever modal widget is up, so a test never hangs on a dialog; `answered`
// tells whether a D came. Header-only; needs a QApplication.
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QTimer>
#include <functional>

// The window flags that decide a window's buttons: its type and button hints, without the title and
// system-menu hints that Qt adds itself to every titled window.
inline Qt::WindowFlags HXWindowButtonFlags(const QWidget* window) {
    return window->windowFlags() & ~(Qt::WindowTitleHint | Qt::WindowSystemMenuHint);
}

template <class D>
class HXModalAnswer {
public:
    explicit HXModalAnswer(std::function<void(D*)> answer, int timeoutMs = 10000)
        : mAnswer(std::move(answer)), mDeadline(timeoutMs) {
        QObject::connect(&mTimer, &QTimer::timeout, [this] { poll(); });
        mTimer.start(10);
    }
    bool answered = false;

private:
    void poll() {
        QWidget* modal = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<D*>(modal);
        if (dialog && dialog->isVisible()) {
            mTimer.stop();
            answered = true;
            mAnswer(dialog);
            if (dialog->isVisible()) dialog->reject();
        } else if (mDeadline.hasExpired()) {
            mTimer.stop();
            if (modal) modal->close();
        }
    }
    std::function<void(D*)> mAnswer;
    QDeadlineTimer mDeadline;
    QTimer mTimer;
};
