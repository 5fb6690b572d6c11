// The scale box: scales as text in several locales, typed scales, the minimum scale, the presets of
// the settings file and the preset the popup opens on.
#include <QAbstractItemView>
#include <QFile>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "HXScaleComboBox.h"

namespace {

const QChar kNarrowNoBreakSpace(0x202F);
const QChar kRightSingleQuote(0x2019);

QStringList itemTexts(const QComboBox& box) {
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) texts << box.itemText(i);
    return texts;
}

void type(HXScaleComboBox& box, const QString& text) {
    box.lineEdit()->setText(text);
    QTest::keyClick(box.lineEdit(), Qt::Key_Return);
}

}  // namespace

class TestScaleComboBox : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void toString_data();
    void toString();
    void roundTrip_data();
    void roundTrip();
    void typedScale_data();
    void typedScale();
    void minimumScale();
    void presetsFromSettings_data();
    void presetsFromSettings();
    void explicitPresets();
    void updatingPresetsEmitsNothing();
    void popupOpensOnNearestPreset_data();
    void popupOpensOnNearestPreset();

private:
    void writeSettings(const QByteArray& contents);
    QTemporaryDir mSettingsDir;
};

void TestScaleComboBox::initTestCase() {
    QVERIFY(mSettingsDir.isValid());
    qputenv("HXGIS_SETTINGS_FILE", mSettingsDir.filePath(QStringLiteral("hxgis.ini")).toLocal8Bit());
}

void TestScaleComboBox::init() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    writeSettings(QByteArray());
}

void TestScaleComboBox::writeSettings(const QByteArray& contents) {
    QFile file(qEnvironmentVariable("HXGIS_SETTINGS_FILE"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

void TestScaleComboBox::toString_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QString>("text");
    QTest::newRow("no scale") << "en_US" << 0.0 << "0";
    QTest::newRow("1:50,000") << "en_US" << 0.00002 << "1:50,000";
    QTest::newRow("one to one") << "en_US" << 1.0 << "1:1";
    QTest::newRow("enlargement") << "en_US" << 2.0 << "2:1";
    QTest::newRow("half rounds up, enlargement") << "en_US" << 2.5 << "3:1";
    QTest::newRow("half rounds up, reduction") << "en_US" << 0.4 << "1:3";
    QTest::newRow("denominator beyond 32 bits") << "en_US" << 1e-10 << "1:10,000,000,000";
    QTest::newRow("negative ratio") << "en_US" << -0.5 << "";
    QTest::newRow("too small to show") << "en_US" << 1e-30 << "";
    QTest::newRow("infinite") << "en_US" << qInf() << "";
    QTest::newRow("German dots") << "de_DE" << 0.00002 << "1:50.000";
    QTest::newRow("French spaces") << "fr_FR" << 0.00002
                                   << QStringLiteral("1:50") + kNarrowNoBreakSpace + "000";
    QTest::newRow("Swiss quotes") << "de_CH" << 0.00002 << QStringLiteral("1:50") + kRightSingleQuote + "000";
}

void TestScaleComboBox::toString() {
    QFETCH(QString, locale);
    QFETCH(double, scale);
    QFETCH(QString, text);
    QLocale::setDefault(QLocale(locale));
    QCOMPARE(HXScaleComboBox::toString(scale), text);
}

void TestScaleComboBox::roundTrip_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("scale");
    for (const char* locale : {"en_US", "de_DE", "fr_FR", "de_CH"}) {
        QTest::addRow("%s, 1:50 000", locale) << locale << 1.0 / 50000;
        QTest::addRow("%s, 1:1 234 567", locale) << locale << 1.0 / 1234567;
        QTest::addRow("%s, 2500:1", locale) << locale << 2500.0;
    }
}

void TestScaleComboBox::roundTrip() {
    QFETCH(QString, locale);
    QFETCH(double, scale);
    QLocale::setDefault(QLocale(locale));
    bool ok = false;
    const double back = HXScaleComboBox::toDouble(HXScaleComboBox::toString(scale), &ok);
    QVERIFY2(ok, qPrintable(HXScaleComboBox::toString(scale)));
    QCOMPARE(back, scale);
}

void TestScaleComboBox::typedScale_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("scale");
    // The box starts at 1:10,000.
    QTest::newRow("denominator") << "25000"
                                 << "1:25,000" << 1.0 / 25000;
    QTest::newRow("grouped denominator") << "25,000"
                                         << "1:25,000" << 1.0 / 25000;
    QTest::newRow("reduction") << "1:25000"
                               << "1:25,000" << 1.0 / 25000;
    QTest::newRow("ratio below one") << "0.25"
                                     << "1:4" << 0.25;
    QTest::newRow("one") << "1"
                         << "1:1" << 1.0;
    QTest::newRow("enlargement") << "4:1"
                                 << "4:1" << 4.0;
    QTest::newRow("letters") << "abc"
                             << "1:10,000" << 1.0 / 10000;
    QTest::newRow("semicolon") << "1;25000"
                               << "1:10,000" << 1.0 / 10000;
    QTest::newRow("zero denominator") << "1:0"
                                      << "1:10,000" << 1.0 / 10000;
    QTest::newRow("negative") << "-5"
                              << "1:10,000" << 1.0 / 10000;
    QTest::newRow("too small to show") << "1e-30"
                                       << "1:10,000" << 1.0 / 10000;
    QTest::newRow("empty") << ""
                           << "1:10,000" << 1.0 / 10000;
}

void TestScaleComboBox::typedScale() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(double, scale);
    HXScaleComboBox box;
    box.setScale(1.0 / 10000);
    QSignalSpy changed(&box, &HXScaleComboBox::scaleChanged);

    type(box, typed);

    QCOMPARE(box.currentText(), shown);
    QCOMPARE(box.scale(), scale);
    QCOMPARE(box.toolTip(), shown);
    QCOMPARE(changed.count(), scale == 1.0 / 10000 ? 0 : 1);
    if (!changed.isEmpty()) QCOMPARE(changed.first().first().toDouble(), scale);
}

void TestScaleComboBox::minimumScale() {
    HXScaleComboBox box;
    box.setScale(1.0 / 50000);
    QSignalSpy changed(&box, &HXScaleComboBox::scaleChanged);

    box.setMinScale(0.0001);
    QCOMPARE(box.currentText(), QStringLiteral("1:10,000"));
    QCOMPARE(changed.count(), 1);

    type(box, QStringLiteral("1:50000"));
    QCOMPARE(box.currentText(), QStringLiteral("1:10,000"));
    QCOMPARE(box.scale(), 0.0001);

    type(box, QStringLiteral("1:5000"));
    QCOMPARE(box.scale(), 0.0002);

    // "No scale" is never clamped.
    QVERIFY(box.setScaleString(QStringLiteral("0")));
    QCOMPARE(box.scale(), 0.0);
}

void TestScaleComboBox::presetsFromSettings_data() {
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("presets");
    const QStringList defaults{"1:1,000,000", "1:500,000", "1:250,000", "1:100,000", "1:50,000", "1:25,000",
                               "1:10,000",    "1:5,000",   "1:2,500",   "1:1,000",   "1:500"};
    QTest::newRow("no file contents") << QByteArray() << defaults;
    QTest::newRow("other keys only") << QByteArray("[Map]\nunits=0\n") << defaults;
    QTest::newRow("quoted list") << QByteArray("[Map]\nscales=\"1:2000,1:500\"\n")
                                 << QStringList{"1:2,000", "1:500"};
    QTest::newRow("unquoted list") << QByteArray("[Map]\nscales=1:2000,1:500\n")
                                   << QStringList{"1:2,000", "1:500"};
    QTest::newRow("unreadable entries kept") << QByteArray("[Map]\nscales=\"1:2000,1:abc,5000,,1:1000000\"\n")
                                             << QStringList{"1:2,000", "1:abc", "5000", "", "1:1,000,000"};
    QTest::newRow("empty value") << QByteArray("[Map]\nscales=\n") << QStringList();
    static const char junk[] = "\x00\xff[[[=\n\x01garbage\n=\n\xfe";
    QTest::newRow("binary junk") << QByteArray(junk, sizeof(junk) - 1) << defaults;
}

void TestScaleComboBox::presetsFromSettings() {
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, presets);
    writeSettings(settings);
    HXScaleComboBox box;
    QCOMPARE(itemTexts(box), presets);
}

void TestScaleComboBox::explicitPresets() {
    writeSettings("[Map]\nscales=\"1:2000\"\n");
    HXScaleComboBox box;
    box.updateScales({QStringLiteral("1:1234567"), QStringLiteral("1:x")});
    QCOMPARE(itemTexts(box), (QStringList{"1:1,234,567", "1:x"}));
}

void TestScaleComboBox::updatingPresetsEmitsNothing() {
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

void TestScaleComboBox::popupOpensOnNearestPreset_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("row");
    // Presets 1:1000, 1:5000, 1:10000.
    QTest::newRow("nearer the smaller") << "C" << 1.0 / 6000 << 1;
    QTest::newRow("nearer the larger") << "C" << 1.0 / 9000 << 2;
    QTest::newRow("tie keeps the earlier") << "C" << 1.0 / 3000 << 0;
    QTest::newRow("exact") << "C" << 1.0 / 10000 << 2;
    // Grouped denominators read as 0, so every preset is as near as the first.
    QTest::newRow("grouping locale") << "en_US" << 1.0 / 9000 << 0;
}

void TestScaleComboBox::popupOpensOnNearestPreset() {
    QFETCH(QString, locale);
    QFETCH(double, scale);
    QFETCH(int, row);
    QLocale::setDefault(QLocale(locale));
    HXScaleComboBox box;
    box.updateScales({QStringLiteral("1:1000"), QStringLiteral("1:5000"), QStringLiteral("1:10000")});
    box.setScale(scale);
    box.show();

    box.showPopup();
    QCOMPARE(box.view()->currentIndex().row(), row);
    box.hidePopup();
}

QTEST_MAIN(TestScaleComboBox)
#include "tst_scalecombobox.moc"
