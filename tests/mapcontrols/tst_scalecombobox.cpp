// The scale box and the status-bar scale widget around it: scales as text in several locales, typed
// scales, the minimum scale, the presets of the settings file, the preset the popup opens on, and
// which scales zoom the canvas (typed ones) and which do not (those the canvas shows).
#include <QAbstractItemView>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTestColumns.h"
#include "HXMapCanvas.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;

namespace {

QStringList ItemTexts(const QComboBox& box) {
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) texts << box.itemText(i);
    return texts;
}

void Type(QComboBox& box, const QString& text) {
    box.lineEdit()->setText(text);
    QTest::keyClick(box.lineEdit(), Qt::Key_Return);
}

void WriteSettings(const QByteArray& contents) {
    QFile file(qEnvironmentVariable("HXGIS_SETTINGS_FILE"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

}  // namespace

class TestScaleComboBox : public QObject {
    Q_OBJECT

    QTemporaryDir mSettingsDir;

private slots:
    void initTestCase() {
        QVERIFY(mSettingsDir.isValid());
        qputenv("HXGIS_SETTINGS_FILE", mSettingsDir.filePath(QStringLiteral("hxgis.ini")).toLocal8Bit());
    }

    void init() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        WriteSettings(QByteArray());
    }

    void toString_data() {
        HOAddColumns<QString, double, QString>({"locale", "scale", "text"});
        QTest::newRow("no scale") << "en_US" << 0.0 << QString("0");
        QTest::newRow("1:50,000") << "en_US" << 0.00002 << QString("1:50,000");
        QTest::newRow("one to one") << "en_US" << 1.0 << QString("1:1");
        QTest::newRow("enlargement") << "en_US" << 2.0 << QString("2:1");
        QTest::newRow("half rounds up, enlargement") << "en_US" << 2.5 << QString("3:1");
        QTest::newRow("half rounds up, reduction") << "en_US" << 0.4 << QString("1:3");
        QTest::newRow("denominator beyond 32 bits") << "en_US" << 1e-10 << QString("1:10,000,000,000");
        QTest::newRow("negative ratio") << "en_US" << -0.5 << QString();
        QTest::newRow("too small to show") << "en_US" << 1e-30 << QString();
        QTest::newRow("infinite") << "en_US" << qInf() << QString();
        QTest::newRow("1:1,234,567") << "en_US" << 1.0 / 1234567 << QString("1:1,234,567");
        QTest::newRow("German dots") << "de_DE" << 0.00002 << QString("1:50.000");
        QTest::newRow("French spaces") << "fr_FR" << 0.00002 << QString("1:50") + QChar(0x202F) + "000";
        QTest::newRow("Swiss quotes") << "de_CH" << 0.00002 << QString("1:50") + QChar(0x2019) + "000";
        QTest::newRow("German, 2500:1") << "de_DE" << 2500.0 << QString("2.500:1");
        QTest::newRow("French, 2500:1") << "fr_FR" << 2500.0 << QString("2") + QChar(0x202F) + "500:1";
    }

    void toString() {
        QFETCH(QString, locale);
        QFETCH(double, scale);
        QFETCH(QString, text);
        QLocale::setDefault(QLocale(locale));
        QCOMPARE(HXScaleComboBox::toString(scale), text);
        // What is shown reads back as the same scale.
        bool ok = false;
        const double back = HXScaleComboBox::toDouble(text, &ok);
        if (ok && back > 0) QCOMPARE(HXScaleComboBox::toString(back), text);
        QEXPECT_FAIL("denominator beyond 32 bits", "toDouble() reads the denominator as a 32-bit int",
                     Continue);
        QCOMPARE(ok, !text.isEmpty());
    }

    void typedScale_data() {
        HOAddColumns<QString, QString, double>({"typed", "shown", "scale"});
        // The box starts at 1:10,000.
        const QString start("1:10,000");
        QTest::newRow("denominator") << "25000" << QString("1:25,000") << 1.0 / 25000;
        QTest::newRow("grouped denominator") << "25,000" << QString("1:25,000") << 1.0 / 25000;
        QTest::newRow("reduction") << "1:25000" << QString("1:25,000") << 1.0 / 25000;
        QTest::newRow("ratio below one") << "0.25" << QString("1:4") << 0.25;
        QTest::newRow("one") << "1" << QString("1:1") << 1.0;
        QTest::newRow("enlargement") << "4:1" << QString("4:1") << 4.0;
        for (const char* bad : {"abc", "1;25000", "1:0", "-5", "1e-30", ""})
            QTest::addRow("rejected: '%s'", bad) << bad << start << 1.0 / 10000;
    }

    void typedScale() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(double, scale);
        HXScaleComboBox box;
        box.setScale(1.0 / 10000);
        QSignalSpy changed(&box, &HXScaleComboBox::scaleChanged);
        Type(box, typed);
        QCOMPARE(box.currentText(), shown);
        QCOMPARE(box.scale(), scale);
        QCOMPARE(box.toolTip(), shown);
        QCOMPARE(changed.count(), scale == 1.0 / 10000 ? 0 : 1);
        if (!changed.isEmpty()) QCOMPARE(changed.first().first().toDouble(), scale);
    }

    void minimumScale() {
        HXScaleComboBox box;
        box.setScale(1.0 / 50000);
        QSignalSpy changed(&box, &HXScaleComboBox::scaleChanged);
        box.setMinScale(0.0001);
        QCOMPARE(box.currentText(), QStringLiteral("1:10,000"));
        QCOMPARE(changed.count(), 1);
        Type(box, QStringLiteral("1:50000"));
        QCOMPARE(box.currentText(), QStringLiteral("1:10,000"));
        QCOMPARE(box.scale(), 0.0001);
        Type(box, QStringLiteral("1:5000"));
        QCOMPARE(box.scale(), 0.0002);
        // "No scale" is never clamped.
        QVERIFY(box.setScaleString(QStringLiteral("0")));
        QCOMPARE(box.scale(), 0.0);
    }

    void presets_data() {
        // given: to updateScales(); empty: the settings' list
        HOAddColumns<QByteArray, QStringList, QStringList>({"settings", "given", "presets"});
        const QStringList defaults{"1:1,000,000", "1:500,000", "1:250,000", "1:100,000",
                                   "1:50,000",    "1:25,000",  "1:10,000",  "1:5,000",
                                   "1:2,500",     "1:1,000",   "1:500"};
        const QStringList none, twoThousandAndFiveHundred{"1:2,000", "1:500"};
        QTest::newRow("no file contents") << QByteArray() << none << defaults;
        QTest::newRow("other keys only") << QByteArray("[Map]\nunits=0\n") << none << defaults;
        QTest::newRow("quoted list") << QByteArray("[Map]\nscales=\"1:2000,1:500\"\n") << none
                                     << twoThousandAndFiveHundred;
        QTest::newRow("unquoted list")
            << QByteArray("[Map]\nscales=1:2000,1:500\n") << none << twoThousandAndFiveHundred;
        QTest::newRow("unreadable entries kept")
            << QByteArray("[Map]\nscales=\"1:2000,1:abc,5000,,1:1000000\"\n") << none
            << QStringList{"1:2,000", "1:abc", "5000", "", "1:1,000,000"};
        QTest::newRow("empty value") << QByteArray("[Map]\nscales=\n") << none << none;
        static const char junk[] = "\x00\xff[[[=\n\x01garbage\n=\n\xfe";
        QTest::newRow("binary junk") << QByteArray(junk, sizeof(junk) - 1) << none << defaults;
        QTest::newRow("given list over the settings")
            << QByteArray("[Map]\nscales=\"1:2000\"\n") << QStringList{"1:1234567", "1:x"}
            << QStringList{"1:1,234,567", "1:x"};
    }

    void presets() {
        QFETCH(QByteArray, settings);
        QFETCH(QStringList, given);
        WriteSettings(settings);
        HXScaleComboBox box;
        if (!given.isEmpty()) box.updateScales(given);
        QTEST(ItemTexts(box), "presets");
    }

    void updatingPresetsEmitsNothing() {
        HXScaleComboBox box;
        box.setScale(1.0 / 5000);
        QSignalSpy changed(&box, &HXScaleComboBox::scaleChanged);
        box.lineEdit()->setText(QStringLiteral("1:2000"));
        box.updateScales();
        // The typed text is taken over, but the change is not announced.
        QCOMPARE(box.scale(), 1.0 / 2000);
        QCOMPARE(box.currentText(), QStringLiteral("1:2,000"));
        QCOMPARE(changed.count(), 0);
    }

    void popupOpensOnNearestPreset_data() {
        HOAddColumns<QString, double, int>({"locale", "scale", "row"});
        // Presets 1:1000, 1:5000, 1:10000.
        QTest::newRow("nearer the smaller") << "C" << 1.0 / 6000 << 1;
        QTest::newRow("nearer the larger") << "C" << 1.0 / 9000 << 2;
        QTest::newRow("tie keeps the earlier") << "C" << 1.0 / 3000 << 0;
        QTest::newRow("exact") << "C" << 1.0 / 10000 << 2;
        // Grouped denominators read as 0, so every preset is as near as the first.
        QTest::newRow("grouping locale") << "en_US" << 1.0 / 9000 << 0;
    }

    void popupOpensOnNearestPreset() {
        QFETCH(QString, locale);
        QFETCH(double, scale);
        QLocale::setDefault(QLocale(locale));
        HXScaleComboBox box;
        box.updateScales({QStringLiteral("1:1000"), QStringLiteral("1:5000"), QStringLiteral("1:10000")});
        box.setScale(scale);
        box.show();
        box.showPopup();
        QTEST(box.view()->currentIndex().row(), "row");
        box.hidePopup();
    }

    // Scales the canvas shows never zoom it again; scales the user types do.
    void widgetBetweenCanvasAndUser() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        canvas.resize(600, 400);
        HORefPtr<HOMap> map(new HOMap);
        map->SetSpatialReference(HOCoordinateSystem::FromUserInput("EPSG:4509"));
        canvas.GetMapView()->SetMap(map);
        canvas.setExtent(HORect(450000.0, 470000.0, 4410000.0, 4425000.0));
        auto* widget = canvas.findChild<HXStatusBarScaleWidget*>(QStringLiteral("mScaleWidget"));
        QVERIFY(widget);
        const double before = canvas.scale();
        QSignalSpy changed(widget->mScaleEdit, &HXScaleComboBox::scaleChanged);
        widget->setScale(1.0 / 12345);
        QCOMPARE(widget->mScaleEdit->currentText(), QStringLiteral("1:12,345"));
        QCOMPARE(canvas.scale(), before);
        QCOMPARE(changed.count(), 0);

        Type(*widget->mScaleEdit, QStringLiteral("1:25000"));
        QVERIFY2(qAbs(canvas.scale() - 25000.0) < 0.025, QByteArray::number(canvas.scale()));
        canvas.zoomScale(50000.0);
        QTRY_COMPARE(widget->mScaleEdit->currentText(), QStringLiteral("1:50,000"));
        QVERIFY(qAbs(canvas.scale() - 50000.0) < 0.05);
    }

    void widgetWithoutCanvas() {
        HXStatusBarScaleWidget widget(nullptr);
        Type(*widget.mScaleEdit, QStringLiteral("1:500"));
        QCOMPARE(widget.mScaleEdit->scale(), 1.0 / 500);
    }
};

QTEST_MAIN(TestScaleComboBox)
#include "tst_scalecombobox.moc"
