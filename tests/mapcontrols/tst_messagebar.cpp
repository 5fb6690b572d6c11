// The message bar: which message is shown, which wait and in what order, the countdown, the item
// layout and the colours a person sees.
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

#include "HOTestColumns.h"
#include "HXMessageBar.h"
#include "HXMessageBarItem.h"

namespace {

// Timer ticks, as the countdown timer delivers them.
void Tick(HXMessageBar& bar, int times) {
    for (int i = 0; i < times; ++i) QVERIFY(QMetaObject::invokeMethod(&bar, "updateCountdown"));
}

QProgressBar* Countdown(HXMessageBar& bar) {
    return bar.findChild<QProgressBar*>();
}

QString ItemCountText(HXMessageBar& bar) {
    return bar.findChild<QLabel*>(QStringLiteral("mItemCount"))->text();
}

}  // namespace

class TestMessageBar : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<HXMessageBarItem*>(); }

    void displacedMessagesReturnLastFirst() {
        HXMessageBar bar;
        QSignalSpy added(&bar, &HXMessageBar::widgetAdded);
        // Receivers may still read a removed item while the signal is delivered.
        QStringList removed;
        connect(&bar, &HXMessageBar::widgetRemoved, this,
                [&](HXMessageBarItem* item) { removed << item->title(); });
        bar.pushInfo("first", "");
        HXMessageBarItem* first = bar.currentItem();
        bar.pushWarning("second", "");
        HXMessageBarItem* second = bar.currentItem();
        bar.pushCritical("third", "");
        QVERIFY(!bar.isHidden());
        QCOMPARE(bar.waitingItems(), (QList<HXMessageBarItem*>{second, first}));
        QVERIFY(first->isHidden() && second->isHidden());
        QCOMPARE(ItemCountText(bar), QStringLiteral("2 more"));
        QCOMPARE(added.count(), 3);

        QVERIFY(bar.popWidget());
        QCOMPARE(bar.currentItem(), second);
        QVERIFY(!second->isHidden());
        QCOMPARE(ItemCountText(bar), QStringLiteral("1 more"));
        QVERIFY(bar.popWidget());
        QCOMPARE(bar.currentItem(), first);
        QCOMPARE(ItemCountText(bar), QString());
        QVERIFY(bar.popWidget());
        QCOMPARE(bar.currentItem(), nullptr);
        QVERIFY(bar.isHidden());
        QCOMPARE(removed, (QStringList{"third", "second", "first"}));
        // Each item shown again is announced again.
        QCOMPARE(added.count(), 5);
    }

    void countdownExpires_data() {
        QTest::addColumn<int>("duration");
        QTest::newRow("one tick") << 1;
        QTest::newRow("five ticks") << 5;
    }

    void countdownExpires() {
        QFETCH(int, duration);
        HXMessageBar bar;
        bar.pushMessage("Saved", "all layers", 0, duration);
        QPointer<HXMessageBarItem> item = bar.currentItem();
        QVERIFY(!Countdown(bar)->isHidden());
        QCOMPARE(Countdown(bar)->maximum(), duration);
        Tick(bar, duration - 1);
        QCOMPARE(bar.currentItem(), item.data());
        QCOMPARE(Countdown(bar)->value(), 1);
        Tick(bar, 1);
        QVERIFY(item.isNull());
        QCOMPARE(bar.currentItem(), nullptr);
        QVERIFY(bar.isHidden());
        QVERIFY(Countdown(bar)->isHidden());
    }

    // An expiry brings the displaced message back with its countdown restarted; untimed ones stay.
    void countdownAfterDisplacement() {
        HXMessageBar bar;
        bar.pushMessage("Editing", "layer is locked", 1, 0);
        HXMessageBarItem* untimed = bar.currentItem();
        QVERIFY(Countdown(bar)->isHidden());
        bar.pushMessage("older", "", 0, 3);
        HXMessageBarItem* older = bar.currentItem();
        Tick(bar, 2);
        QCOMPARE(Countdown(bar)->value(), 1);
        bar.pushInfo("newer", "");
        QCOMPARE(Countdown(bar)->maximum(), 5);
        QCOMPARE(Countdown(bar)->value(), 5);
        Tick(bar, 5);
        QCOMPARE(bar.currentItem(), older);
        QCOMPARE(Countdown(bar)->maximum(), 3);
        QCOMPARE(Countdown(bar)->value(), 3);
        QVERIFY(!Countdown(bar)->isHidden());
        Tick(bar, 3);
        QCOMPARE(bar.currentItem(), untimed);
        QVERIFY(Countdown(bar)->isHidden());
        Tick(bar, 10);
        QCOMPARE(bar.currentItem(), untimed);
    }

    void titleAndText_data() {
        HOAddColumns<QString, QString, QString, bool>({"title", "text", "shown", "boldTitle"});
        const QString features("3 features"), done("Done: 3 features");
        QTest::newRow("title with a colon") << "Done:" << features << done << true;
        QTest::newRow("title without a colon") << "Done" << features << done << true;
        QTest::newRow("title with colon and space") << "  Done: " << features << done << true;
        QTest::newRow("title alone") << "Done" << QString() << "Done" << true;
        QTest::newRow("text alone") << QString() << features << features << false;
        QTest::newRow("nothing") << QString() << QString() << QString() << false;
    }

    void titleAndText() {
        QFETCH(QString, title);
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QFETCH(bool, boldTitle);
        HXMessageBarItem item(title, text, 0, 0);
        auto* edit = item.findChild<QTextEdit*>(QStringLiteral("textEdit"));
        QCOMPARE(edit ? edit->toPlainText().simplified() : QString(), shown);
        QCOMPARE(edit != nullptr, !shown.isEmpty());
        if (edit) QCOMPARE(edit->toHtml().contains(QLatin1String("font-weight:600")), boldTitle);
    }

    void levelLook_data() {
        HOAddColumns<int, QColor>({"level", "background"});
        QTest::newRow("info") << 0 << QColor(0xe7, 0xf5, 0xfe);
        QTest::newRow("warning") << 1 << QColor(0xff, 0xc8, 0x00);
        QTest::newRow("critical") << 2 << QColor(0xd6, 0x52, 0x53);
        QTest::newRow("success") << 3 << QColor(0xdf, 0xf0, 0xd8);
    }

    void levelLook() {
        QFETCH(int, level);
        QFETCH(QColor, background);
        HXMessageBar bar;
        bar.resize(400, 40);
        bar.pushMessage("Title", "text", level, 0);
        QCOMPARE(bar.currentItem()->findChild<QLabel*>()->pixmap(Qt::ReturnByValue).size(), QSize(24, 24));
        // Inside the border, left of the message: the level's background.
        const QImage image = bar.grab().toImage();
        QCOMPARE(QColor(image.pixel(4, image.height() / 2)), background);
    }

    void barFollowsTheShownItemsStyle() {
        HXMessageBar bar;
        auto* first = new HXMessageBarItem("first", "", 0, 0);
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

        bar.pushInfo("second", "");
        HXMessageBarItem* second = bar.currentItem();
        second->setLevel(3);
        QCOMPARE(bar.styleSheet(), second->getStyleSheet());
        // A displaced item no longer restyles the bar.
        first->setLevel(2);
        QCOMPARE(bar.styleSheet(), second->getStyleSheet());
    }

    // A waiting item pushed again comes back to the front; popped, it is deleted.
    void waitingItems() {
        HXMessageBar bar;
        auto* waiting = new HXMessageBarItem("waiting", "", 0, 0);
        bar.pushItem(waiting);
        bar.pushInfo("shown", "");
        HXMessageBarItem* shown = bar.currentItem();
        bar.pushItem(waiting);
        QCOMPARE(bar.currentItem(), waiting);
        QCOMPARE(bar.waitingItems(), QList<HXMessageBarItem*>{shown});
        QVERIFY(!waiting->isHidden());
        bar.pushItem(nullptr);
        QCOMPARE(bar.currentItem(), waiting);

        QPointer<HXMessageBarItem> popped = shown;
        QVERIFY(bar.popWidget(shown));
        QVERIFY(popped.isNull());
        QCOMPARE(bar.currentItem(), waiting);
        QCOMPARE(ItemCountText(bar), QString());
        HXMessageBarItem stranger("not pushed", "");
        QVERIFY(!bar.popWidget(&stranger));
    }

    // The close button pops the shown message; while others wait its menu closes them all.
    void closeAll() {
        HXMessageBar bar;
        QSignalSpy removed(&bar, &HXMessageBar::widgetRemoved);
        QVERIFY(!bar.popWidget());
        QVERIFY(!bar.popWidget(nullptr));
        QVERIFY(bar.clearWidgets());
        auto* close = bar.findChild<QToolButton*>(QStringLiteral("mCloseBtn"));
        bar.pushInfo("a", "");
        QCOMPARE(close->menu(), nullptr);
        bar.pushSuccess("b", "");
        bar.pushCritical("c", "");
        QVERIFY(close->menu());
        QCOMPARE(close->popupMode(), QToolButton::MenuButtonPopup);
        close->menu()->actions().first()->trigger();
        QCOMPARE(bar.currentItem(), nullptr);
        QVERIFY(bar.waitingItems().isEmpty());
        QVERIFY(bar.isHidden() && Countdown(bar)->isHidden());
        QCOMPARE(removed.count(), 3);
        QCOMPARE(close->menu(), nullptr);
        QCOMPARE(close->popupMode(), QToolButton::DelayedPopup);
        bar.pushInfo("d", "");
        close->click();
        QCOMPARE(bar.currentItem(), nullptr);
    }
};

QTEST_MAIN(TestMessageBar)
#include "tst_messagebar.moc"
