#pragma once
// HXPopupAnswer: answers the next context menu the canvas runs. It records the menu's entries
// ("-" for a separator), triggers the entry with the given text (none when empty) and closes it.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStringList>
#include <QTimer>

class HXPopupAnswer : public QObject {
public:
    explicit HXPopupAnswer(const QString& choice = QString()) : mChoice(choice) {
        connect(&mTimer, &QTimer::timeout, this, &HXPopupAnswer::answer);
        mTimer.start(10);
    }

    bool shown = false;
    QStringList entries;

private:
    void answer() {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) return;
        mTimer.stop();
        shown = true;
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            entries << (action->isSeparator() ? QString("-") : action->text());
            if (!mChoice.isEmpty() && action->text() == mChoice) chosen = action;
        }
        menu->close();
        if (chosen) chosen->trigger();
    }

    QString mChoice;
    QTimer mTimer;
};
