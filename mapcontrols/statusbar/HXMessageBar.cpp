#include "HXMessageBar.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

#include "HXApplication.h"
#include "HXMessageBarItem.h"

namespace {

const int kTickMs = 1000;
const int kDefaultDuration = 5;

enum Level { Info = 0, Warning = 1, Critical = 2, Success = 3 };

// The countdown indicator: a small square whose chunk shrinks, with a timer image over it.
const char* const kCountStyleSheet =
    "QProgressBar { border: 1px solid rgba(0, 0, 0, 75); border-radius: 2px; background: rgba(0, 0, 0, 0); "
    "image: url(%1); } QProgressBar::chunk { background-color: rgba(0, 0, 0, 30); width: 5px; }";

}  // namespace

HXMessageBar::HXMessageBar(QWidget* parent) : QFrame(parent) {
    mCountStyleSheet = QString::fromLatin1(kCountStyleSheet);

    mLayout = new QGridLayout(this);
    mLayout->setContentsMargins(9, 1, 9, 1);

    mCountProgress = new QProgressBar(this);
    mCountProgress->setTextVisible(false);
    mCountProgress->setFixedSize(20, 20);
    mLayout->addWidget(mCountProgress, 0, 0, 1, 1);

    mItemCount = new QLabel(this);
    mItemCount->setObjectName(QStringLiteral("mItemCount"));
    mItemCount->setToolTip(tr("Remaining messages"));
    mItemCount->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    mLayout->addWidget(mItemCount, 0, 2, 1, 1);

    mCloseMenu = new QMenu(this);
    mCloseMenu->setObjectName(QStringLiteral("mCloseMenu"));
    QAction* closeAll = mCloseMenu->addAction(tr("Close all"));
    connect(closeAll, &QAction::triggered, this, &HXMessageBar::clearWidgets);

    mCloseBtn = new QToolButton(this);
    mCloseBtn->setObjectName(QStringLiteral("mCloseBtn"));
    mCloseBtn->setToolTip(tr("Close"));
    mCloseBtn->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    mCloseBtn->setAutoRaise(true);
    mCloseBtn->setCursor(Qt::PointingHandCursor);
    connect(mCloseBtn, &QToolButton::clicked, this, qOverload<>(&HXMessageBar::popWidget));
    mLayout->addWidget(mCloseBtn, 0, 3, 1, 1);
    mLayout->setColumnStretch(1, 1);

    mCountdownTimer = new QTimer(this);
    mCountdownTimer->setInterval(kTickMs);
    connect(mCountdownTimer, &QTimer::timeout, this, &HXMessageBar::updateCountdown);
    connect(this, &HXMessageBar::widgetAdded, this, &HXMessageBar::updateItemCount);
    connect(this, &HXMessageBar::widgetRemoved, this, &HXMessageBar::updateItemCount);

    resetCountdown();
    updateItemCount();
    hide();
}

void HXMessageBar::pushMessage(const QString& title, const QString& text, int level, int duration) {
    pushItem(new HXMessageBarItem(title, text, level, duration));
}

void HXMessageBar::pushItem(HXMessageBarItem* item) {
    if (!item) return;
    resetCountdown();
    // An item the bar already holds is shown again rather than removed first (removing deletes it):
    // showItem takes it off the waiting list, and leaves the shown one where it is.
    showItem(item);
}

bool HXMessageBar::popWidget(HXMessageBarItem* item) {
    if (!item || !mCurrentItem) return false;
    if (item == mCurrentItem) {
        popItem(item);
        return true;
    }
    if (!mItems.removeOne(item)) return false;
    delete item;
    updateItemCount();
    return true;
}

HXMessageBarItem* HXMessageBar::currentItem() const {
    return mCurrentItem;
}

QList<HXMessageBarItem*> HXMessageBar::waitingItems() const {
    return mItems;
}

bool HXMessageBar::popWidget() {
    if (!mCurrentItem) return false;
    resetCountdown();
    popItem(mCurrentItem);
    return true;
}

bool HXMessageBar::clearWidgets() {
    if (!mCurrentItem && mItems.isEmpty()) return true;
    // A waiting item is always behind a shown one, so each pop brings the next one forward.
    while (!mItems.isEmpty() && mCurrentItem) {
        resetCountdown();
        popItem(mCurrentItem);
    }
    if (mCurrentItem) {
        resetCountdown();
        popItem(mCurrentItem);
        if (mCurrentItem) return false;
    }
    return mItems.isEmpty();
}

void HXMessageBar::pushSuccess(const QString& title, const QString& message) {
    pushMessage(title, message, Success, kDefaultDuration);
}

void HXMessageBar::pushInfo(const QString& title, const QString& message) {
    pushMessage(title, message, Info, kDefaultDuration);
}

void HXMessageBar::pushWarning(const QString& title, const QString& message) {
    pushMessage(title, message, Warning, kDefaultDuration);
}

void HXMessageBar::pushCritical(const QString& title, const QString& message) {
    pushMessage(title, message, Critical, kDefaultDuration);
}

void HXMessageBar::updateItemCount() {
    const bool waiting = !mItems.isEmpty();
    mItemCount->setText(waiting ? tr("%n more", "unread messages", mItems.count()) : QString());
    mCloseBtn->setMenu(waiting ? mCloseMenu : nullptr);
    mCloseBtn->setPopupMode(waiting ? QToolButton::MenuButtonPopup : QToolButton::DelayedPopup);
}

void HXMessageBar::updateCountdown() {
    if (!mCountdownTimer->isActive()) {
        resetCountdown();
        return;
    }
    if (mCountProgress->value() > 1) {
        mCountProgress->setValue(mCountProgress->value() - 1);
    } else if (mCurrentItem) {
        resetCountdown();
        popItem(mCurrentItem);
    }
}

void HXMessageBar::resetCountdown() {
    if (mCountdownTimer->isActive()) mCountdownTimer->stop();
    mCountProgress->setStyleSheet(
        mCountStyleSheet.arg(HXApplication::getThemeFilePath(QStringLiteral("mIconTimerPause.png"))));
    mCountProgress->hide();
}

void HXMessageBar::showItem(HXMessageBarItem* item) {
    if (mCurrentItem)
        disconnect(mCurrentItem, SIGNAL(styleChanged(QString)), this, SLOT(setStyleSheet(QString)));
    // Showing the shown item again leaves it without its style connection.
    if (item == mCurrentItem) return;

    mItems.removeOne(item);
    if (mCurrentItem) {
        mItems.prepend(mCurrentItem);
        mLayout->removeWidget(mCurrentItem);
        mCurrentItem->hide();
    }

    mCurrentItem = item;
    mLayout->addWidget(item, 0, 1, 1, 1);
    item->show();

    if (item->duration() > 0) {
        mCountProgress->setRange(0, item->duration());
        mCountProgress->setValue(item->duration());
        mCountProgress->show();
        mCountdownTimer->start();
    }

    connect(item, SIGNAL(styleChanged(QString)), this, SLOT(setStyleSheet(QString)));
    setStyleSheet(item->getStyleSheet());
    show();
    emit widgetAdded(item);
}

void HXMessageBar::popItem(HXMessageBarItem* item) {
    if (item != mCurrentItem) {
        // A waiting item goes back to the caller, undeleted.
        if (mItems.removeOne(item)) emit widgetRemoved(item);
        return;
    }
    mLayout->removeWidget(item);
    item->hide();
    disconnect(item, SIGNAL(styleChanged(QString)), this, SLOT(setStyleSheet(QString)));
    mCurrentItem = nullptr;
    if (!mItems.isEmpty())
        showItem(mItems.first());
    else
        hide();
    emit widgetRemoved(item);
    // Deleted after the signal, so receivers get a live item.
    delete item;
}
