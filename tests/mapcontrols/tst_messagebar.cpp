// The message bar: which message is shown, which wait and in what order, the countdown, the item
// layout and the colours a person sees.
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

#include "HXMessageBar.h"
#include "HXMessageBarItem.h"

class TestMessageBar : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<HXMessageBarItem*>(); }
    void emptyBar();
    void displacedMessagesReturnLastFirst();
    void countdownExpires_data();
    void countdownExpires();
    void expiryBringsBackTheDisplacedCountdown();
    void untimedMessageStays();
    void titleAndText_data();
    void titleAndText();
    void levelLook_data();
    void levelLook();
    void barFollowsTheShownItemsStyle();
    void pushingAWaitingItemBringsItBack();
    void popWaitingItem();
    void clearWidgets();
    void closeButtonOffersCloseAllWhileMessagesWait();

private:
    static void tick(HXMessageBar& bar, int times);
    static QProgressBar* countdown(HXMessageBar& bar) { return bar.findChild<QProgressBar*>(); }
    static QString itemCountText(HXMessageBar& bar) {
        return bar.findChild<QLabel*>(QStringLiteral("mItemCount"))->text();
    }
    static QString shownText(HXMessageBarItem* item) {
        auto* edit = item->findChild<QTextEdit*>(QStringLiteral("textEdit"));
        return edit ? edit->toPlainText().simplified() : QString();
    }
};

// One timer tick, as the countdown timer delivers it.
void TestMessageBar::tick(HXMessageBar& bar, int times) {
    for (int i = 0; i < times; ++i) QVERIFY(QMetaObject::invokeMethod(&bar, "updateCountdown"));
}

void TestMessageBar::emptyBar() {
    HXMessageBar bar;
    QSignalSpy removed(&bar, &HXMessageBar::widgetRemoved);
    QVERIFY(!bar.popWidget());
    QVERIFY(!bar.popWidget(nullptr));
    QVERIFY(bar.clearWidgets());
    QVERIFY(bar.isHidden());
    QCOMPARE(removed.count(), 0);
}

void TestMessageBar::displacedMessagesReturnLastFirst() {
    HXMessageBar bar;
    QSignalSpy added(&bar, &HXMessageBar::widgetAdded);
    // Receivers may still read a removed item while the signal is delivered.
    QStringList removedTitles;
    connect(&bar, &HXMessageBar::widgetRemoved, this,
            [&removedTitles](HXMessageBarItem* item) { removedTitles << item->title(); });
    bar.pushInfo(QStringLiteral("first"), QString());
    HXMessageBarItem* first = bar.currentItem();
    bar.pushWarning(QStringLiteral("second"), QString());
    HXMessageBarItem* second = bar.currentItem();
    bar.pushCritical(QStringLiteral("third"), QString());

    QVERIFY(!bar.isHidden());
    QCOMPARE(bar.waitingItems(), (QList<HXMessageBarItem*>{second, first}));
    QVERIFY(first->isHidden());
    QVERIFY(second->isHidden());
    QCOMPARE(itemCountText(bar), QStringLiteral("2 more"));
    QCOMPARE(added.count(), 3);

    QVERIFY(bar.popWidget());
    QCOMPARE(bar.currentItem(), second);
    QVERIFY(!second->isHidden());
    QCOMPARE(itemCountText(bar), QStringLiteral("1 more"));
    QVERIFY(bar.popWidget());
    QCOMPARE(bar.currentItem(), first);
    QCOMPARE(itemCountText(bar), QString());
    QVERIFY(bar.popWidget());
    QCOMPARE(bar.currentItem(), nullptr);
    QVERIFY(bar.isHidden());

    QCOMPARE(removedTitles, (QStringList{"third", "second", "first"}));
    // Each item shown again is announced again.
    QCOMPARE(added.count(), 5);
}

void TestMessageBar::countdownExpires_data() {
    QTest::addColumn<int>("duration");
    QTest::newRow("one tick") << 1;
    QTest::newRow("three ticks") << 3;
    QTest::newRow("push slots' five ticks") << 5;
}

void TestMessageBar::countdownExpires() {
    QFETCH(int, duration);
    HXMessageBar bar;
    bar.pushMessage(QStringLiteral("Saved"), QStringLiteral("all layers"), 0, duration);
    QPointer<HXMessageBarItem> item = bar.currentItem();
    QVERIFY(!countdown(bar)->isHidden());
    QCOMPARE(countdown(bar)->maximum(), duration);

    tick(bar, duration - 1);
    QCOMPARE(bar.currentItem(), item.data());
    QCOMPARE(countdown(bar)->value(), 1);

    tick(bar, 1);
    QVERIFY(item.isNull());
    QCOMPARE(bar.currentItem(), nullptr);
    QVERIFY(bar.isHidden());
    QVERIFY(countdown(bar)->isHidden());
}

void TestMessageBar::expiryBringsBackTheDisplacedCountdown() {
    HXMessageBar bar;
    bar.pushMessage(QStringLiteral("older"), QString(), 0, 3);
    HXMessageBarItem* older = bar.currentItem();
    tick(bar, 2);
    QCOMPARE(countdown(bar)->value(), 1);

    bar.pushInfo(QStringLiteral("newer"), QString());
    QCOMPARE(countdown(bar)->maximum(), 5);
    QCOMPARE(countdown(bar)->value(), 5);
    tick(bar, 5);

    QCOMPARE(bar.currentItem(), older);
    QCOMPARE(countdown(bar)->maximum(), 3);
    QCOMPARE(countdown(bar)->value(), 3);
    QVERIFY(!countdown(bar)->isHidden());
    tick(bar, 3);
    QCOMPARE(bar.currentItem(), nullptr);
}

void TestMessageBar::untimedMessageStays() {
    HXMessageBar bar;
    bar.pushMessage(QStringLiteral("Editing"), QStringLiteral("layer is locked"), 1, 0);
    QVERIFY(countdown(bar)->isHidden());
    tick(bar, 10);
    QVERIFY(bar.currentItem());
}

void TestMessageBar::titleAndText_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("boldTitle");
    QTest::newRow("title with a colon") << "Done:"
                                        << "3 features"
                                        << "Done: 3 features" << true;
    QTest::newRow("title without a colon") << "Done"
                                           << "3 features"
                                           << "Done: 3 features" << true;
    QTest::newRow("title with colon and space") << "  Done: "
                                                << "3 features"
                                                << "Done: 3 features" << true;
    QTest::newRow("title alone") << "Done"
                                 << ""
                                 << "Done" << true;
    QTest::newRow("text alone") << ""
                                << "3 features"
                                << "3 features" << false;
    QTest::newRow("nothing") << ""
                             << ""
                             << "" << false;
}

void TestMessageBar::titleAndText() {
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QFETCH(bool, boldTitle);
    HXMessageBarItem item(title, text, 0, 0);
    QCOMPARE(shownText(&item), shown);
    auto* edit = item.findChild<QTextEdit*>(QStringLiteral("textEdit"));
    QCOMPARE(edit != nullptr, !shown.isEmpty());
    if (edit) QCOMPARE(edit->toHtml().contains(QLatin1String("font-weight:600")), boldTitle);
}

void TestMessageBar::levelLook_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QColor>("background");
    QTest::newRow("info") << 0 << QColor(0xe7, 0xf5, 0xfe);
    QTest::newRow("warning") << 1 << QColor(0xff, 0xc8, 0x00);
    QTest::newRow("critical") << 2 << QColor(0xd6, 0x52, 0x53);
    QTest::newRow("success") << 3 << QColor(0xdf, 0xf0, 0xd8);
}

void TestMessageBar::levelLook() {
    QFETCH(int, level);
    QFETCH(QColor, background);
    HXMessageBar bar;
    bar.resize(400, 40);
    bar.pushMessage(QStringLiteral("Title"), QStringLiteral("text"), level, 0);
    const QPixmap icon = bar.currentItem()->findChild<QLabel*>()->pixmap(Qt::ReturnByValue);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.size(), QSize(24, 24));
    // Inside the border, left of the message: the level's background.
    const QImage image = bar.grab().toImage();
    QCOMPARE(QColor(image.pixel(4, image.height() / 2)), background);
}

void TestMessageBar::barFollowsTheShownItemsStyle() {
    HXMessageBar bar;
    auto* first = new HXMessageBarItem(QStringLiteral("first"), QString(), 0, 0);
    bar.pushItem(first);
    first->setLevel(2);
    QCOMPARE(bar.styleSheet(), first->getStyleSheet());

    // Pushed again, the shown item stays (undeleted) but no longer restyles the bar.
    QPointer<HXMessageBarItem> again = first;
    bar.pushItem(first);
    QVERIFY(!again.isNull());
    QCOMPARE(bar.currentItem(), first);
    first->setLevel(1);
    QVERIFY(bar.styleSheet() != first->getStyleSheet());

    bar.pushInfo(QStringLiteral("second"), QString());
    HXMessageBarItem* second = bar.currentItem();
    second->setLevel(3);
    QCOMPARE(bar.styleSheet(), second->getStyleSheet());
    // A displaced item no longer restyles the bar.
    first->setLevel(2);
    QCOMPARE(bar.styleSheet(), second->getStyleSheet());
}

void TestMessageBar::pushingAWaitingItemBringsItBack() {
    HXMessageBar bar;
    auto* waiting = new HXMessageBarItem(QStringLiteral("waiting"), QString(), 0, 0);
    bar.pushItem(waiting);
    bar.pushInfo(QStringLiteral("shown"), QString());
    HXMessageBarItem* shown = bar.currentItem();

    bar.pushItem(waiting);
    QCOMPARE(bar.currentItem(), waiting);
    QCOMPARE(bar.waitingItems(), QList<HXMessageBarItem*>{shown});
    QVERIFY(!waiting->isHidden());
    bar.pushItem(nullptr);
    QCOMPARE(bar.currentItem(), waiting);
}

void TestMessageBar::popWaitingItem() {
    HXMessageBar bar;
    bar.pushInfo(QStringLiteral("waiting"), QString());
    QPointer<HXMessageBarItem> waiting = bar.currentItem();
    bar.pushInfo(QStringLiteral("shown"), QString());
    HXMessageBarItem* shown = bar.currentItem();

    QVERIFY(bar.popWidget(waiting));
    QVERIFY(waiting.isNull());
    QCOMPARE(bar.currentItem(), shown);
    QCOMPARE(itemCountText(bar), QString());

    HXMessageBarItem stranger(QStringLiteral("not pushed"), QString());
    QVERIFY(!bar.popWidget(&stranger));
}

void TestMessageBar::clearWidgets() {
    HXMessageBar bar;
    QSignalSpy removed(&bar, &HXMessageBar::widgetRemoved);
    bar.pushInfo(QStringLiteral("a"), QString());
    bar.pushSuccess(QStringLiteral("b"), QString());
    bar.pushCritical(QStringLiteral("c"), QString());
    QVERIFY(bar.clearWidgets());
    QCOMPARE(bar.currentItem(), nullptr);
    QVERIFY(bar.waitingItems().isEmpty());
    QVERIFY(bar.isHidden());
    QVERIFY(countdown(bar)->isHidden());
    QCOMPARE(removed.count(), 3);
}

void TestMessageBar::closeButtonOffersCloseAllWhileMessagesWait() {
    HXMessageBar bar;
    auto* close = bar.findChild<QToolButton*>(QStringLiteral("mCloseBtn"));
    bar.pushInfo(QStringLiteral("a"), QString());
    QCOMPARE(close->menu(), nullptr);
    bar.pushInfo(QStringLiteral("b"), QString());
    QVERIFY(close->menu());
    QCOMPARE(close->popupMode(), QToolButton::MenuButtonPopup);

    close->menu()->actions().first()->trigger();
    QCOMPARE(bar.currentItem(), nullptr);
    QCOMPARE(close->menu(), nullptr);
    QCOMPARE(close->popupMode(), QToolButton::DelayedPopup);

    bar.pushInfo(QStringLiteral("c"), QString());
    close->click();
    QCOMPARE(bar.currentItem(), nullptr);
}

QTEST_MAIN(TestMessageBar)
#include "tst_messagebar.moc"
