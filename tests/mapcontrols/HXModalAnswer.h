#pragma once
// Answers the next modal dialog of type D while the code under test runs it: polls for it, hands it
// to `answer` once, and closes it (reject) if `answer` left it open, so a test never hangs on a
// dialog. A modal widget of another type is closed after five seconds; `answered` tells whether a
// D came.
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
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
    explicit HXModalAnswer(std::function<void(D*)> answer) : mAnswer(std::move(answer)) {
        QObject::connect(&mTimer, &QTimer::timeout, [this] { poll(); });
        mTimer.start(10);
        mWaiting.start();
    }
    bool answered = false;

private:
    void poll() {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal) return;
        auto* dialog = qobject_cast<D*>(modal);
        if (!dialog) {
            if (mWaiting.elapsed() > 5000) modal->close();
            return;
        }
        mTimer.stop();
        answered = true;
        mAnswer(dialog);
        if (dialog->isVisible()) dialog->reject();
    }
    std::function<void(D*)> mAnswer;
    QTimer mTimer;
    QElapsedTimer mWaiting;
};
