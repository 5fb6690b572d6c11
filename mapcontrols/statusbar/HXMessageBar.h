#pragma once
// HXMessageBar: a bar for levelled messages that a host places above its map. One message is shown
// at a time; a message pushed while another is shown displaces it onto a stack, and it returns when
// the newer one goes (last displaced, first shown again). Timed messages count down one tick per
// second, shown by a small progress bar, and disappear at the end. The close button removes the shown
// message and, while others wait, offers to close them all. The bar owns every item pushed onto it
// until the item is removed; it hides itself when no message is shown.
#include <QFrame>
#include <QList>
#include <QString>

#include "HXMapControlsExport.h"

class QGridLayout;
class QLabel;
class QMenu;
class QProgressBar;
class QTimer;
class QToolButton;
class HXMessageBarItem;

class HXMAPCONTROLS_EXPORT HXMessageBar : public QFrame {
    Q_OBJECT

public:
    explicit HXMessageBar(QWidget* parent = nullptr);

    // Shows a new message; the bar owns it.
    void pushMessage(const QString& title, const QString& text, int level, int duration);
    // Shows the item; the bar takes ownership.
    void pushItem(HXMessageBarItem* item);
    // Removes and deletes the item, shown or waiting; false when the bar does not hold it.
    bool popWidget(HXMessageBarItem* item);

    HXMessageBarItem* currentItem() const;
    // The waiting items, most recently displaced first.
    QList<HXMessageBarItem*> waitingItems() const;

signals:
    void widgetAdded(HXMessageBarItem* item);
    void widgetRemoved(HXMessageBarItem* item);

public slots:
    // Removes the shown message; false when there is none.
    bool popWidget();
    // Removes every message; true when none is left.
    bool clearWidgets();
    void pushSuccess(const QString& title, const QString& message);
    void pushInfo(const QString& title, const QString& message);
    void pushWarning(const QString& title, const QString& message);
    void pushCritical(const QString& title, const QString& message);

private slots:
    void updateItemCount();
    void updateCountdown();
    void resetCountdown();

private:
    void showItem(HXMessageBarItem* item);
    void popItem(HXMessageBarItem* item);

    HXMessageBarItem* mCurrentItem = nullptr;
    QList<HXMessageBarItem*> mItems;
    QMenu* mCloseMenu = nullptr;
    QToolButton* mCloseBtn = nullptr;
    QGridLayout* mLayout = nullptr;
    QLabel* mItemCount = nullptr;
    QTimer* mCountdownTimer = nullptr;
    QProgressBar* mCountProgress = nullptr;
    QString mCountStyleSheet;
};
