// The library's translations: the first canvas installs the one for the application's locale, and
// install() switches it; a translated status-bar label and context-menu entry show the result.
#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QMenu>
#include <QTimer>
#include <QtTest>

#include "HXMapCanvas.h"
#include "HXTranslations.h"

namespace {

// Opens the canvas's context menu over its centre and returns the entries it shows, closing it as soon
// as it is up (or after ten seconds without a menu).
QStringList ContextMenuEntries(HXMapCanvas& canvas) {
    QStringList entries;
    QDeadlineTimer deadline(10000);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu)
            for (QAction* action : menu->actions()) entries << action->text();
        if (menu || deadline.hasExpired()) {
            poll.stop();
            if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        }
    });
    poll.start(10);
    canvas.OnContextMenu(canvas.width() / 2, canvas.height() / 2);
    return entries;
}

QString ScaleLabel(HXMapCanvas& canvas) {
    auto* label = canvas.findChild<QLabel*>("mScaleLabel");
    return label ? label->text() : QString();
}

}  // namespace

class tst_Translations : public QObject {
    Q_OBJECT

private slots:
    void firstCanvasFollowsLocale() {
        QLocale::setDefault(QLocale("zh_CN"));
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        QCOMPARE(ScaleLabel(canvas), QString("比例尺"));
        QVERIFY2(ContextMenuEntries(canvas).contains("设置地图标尺与格网"), "translated menu entry");
    }

    void install_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<bool>("installed");
        QTest::addColumn<QString>("scale");
        QTest::addColumn<QString>("menuEntry");
        QTest::newRow("Simplified Chinese") << "zh_CN" << true << "比例尺"
                                            << "设置地图标尺与格网";
        QTest::newRow("English base") << "en_GB" << true << "Scale"
                                      << "Set map ruler and grid";
        QTest::newRow("no translation: English") << "de_DE" << false << "Scale"
                                                 << "Set map ruler and grid";
    }
    void install() {
        QFETCH(QString, locale);
        QFETCH(bool, installed);
        QCOMPARE(HXTranslations::install(QLocale(locale)), installed);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        QFETCH(QString, scale);
        QCOMPARE(ScaleLabel(canvas), scale);
        QFETCH(QString, menuEntry);
        QVERIFY2(ContextMenuEntries(canvas).contains(menuEntry), qPrintable(menuEntry));
    }

    void cleanup() { HXTranslations::remove(); }
};

QTEST_MAIN(tst_Translations)
#include "tst_translations.moc"
