// Typed numbers in the user's locale, and the default scale list.
#include <QtTest>

#include "HXGis.h"

class TestHXGis : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void toDouble_data();
    void toDouble();
    void toInt_data();
    void toInt();
    void projectScalesAreDescending();
};

void TestHXGis::toDouble_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("value");
    const QString en = QStringLiteral("en_US"), de = QStringLiteral("de_DE"), fr = QStringLiteral("fr_FR");
    QTest::newRow("en plain") << en << "1234.5" << true << 1234.5;
    QTest::newRow("en grouped") << en << "1,234.5" << true << 1234.5;
    QTest::newRow("en grouped millions") << en << "-12,345,678" << true << -12345678.0;
    QTest::newRow("en surrounding blanks") << en << "  50,000 " << true << 50000.0;
    QTest::newRow("en exponent") << en << "1e3" << true << 1000.0;
    QTest::newRow("en misplaced groups") << en << "1,2,3" << false << 0.0;
    QTest::newRow("en group in fraction") << en << "1.234,5" << false << 0.0;
    QTest::newRow("en trailing letters") << en << "12abc" << false << 0.0;
    QTest::newRow("en empty") << en << "" << false << 0.0;
    QTest::newRow("en blank") << en << "   " << false << 0.0;
    QTest::newRow("de decimal comma") << de << "1,5" << true << 1.5;
    QTest::newRow("de grouped") << de << "1.234,5" << true << 1234.5;
    QTest::newRow("de dot is a group") << de << "1.234" << true << 1234.0;
    QTest::newRow("de plain number") << de << "1.5" << true << 1.5;
    QTest::newRow("de misplaced groups") << de << "1.2.3" << false << 0.0;
    QTest::newRow("de two commas") << de << "1,2,3" << false << 0.0;
    QTest::newRow("de trailing letters") << de << "12abc" << false << 0.0;
    QTest::newRow("fr typed space as group") << fr << "1 234,5" << true << 1234.5;
}

void TestHXGis::toDouble() {
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(double, value);
    QLocale::setDefault(QLocale(locale));
    bool parsed = !ok;
    QCOMPARE(HXGis::permissiveToDouble(text, parsed), value);
    QCOMPARE(parsed, ok);
}

void TestHXGis::toInt_data() {
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("value");
    const QString en = QStringLiteral("en_US"), de = QStringLiteral("de_DE");
    QTest::newRow("en plain") << en << "50000" << true << 50000;
    QTest::newRow("en grouped") << en << "50,000" << true << 50000;
    QTest::newRow("en negative grouped") << en << "-1,000,000" << true << -1000000;
    QTest::newRow("en fraction") << en << "12.5" << false << 0;
    QTest::newRow("en misplaced groups") << en << "1,2,3" << false << 0;
    QTest::newRow("en overflow") << en << "99,999,999,999" << false << 0;
    QTest::newRow("en trailing letters") << en << "12abc" << false << 0;
    QTest::newRow("en empty") << en << "" << false << 0;
    QTest::newRow("de grouped") << de << "50.000" << true << 50000;
    QTest::newRow("de english grouping") << de << "50,000" << false << 0;
}

void TestHXGis::toInt() {
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(int, value);
    QLocale::setDefault(QLocale(locale));
    bool parsed = !ok;
    QCOMPARE(HXGis::permissiveToInt(text, parsed), value);
    QCOMPARE(parsed, ok);
}

// Scale boxes list the entries in this order and parse each as 1:n.
void TestHXGis::projectScalesAreDescending() {
    const QStringList entries = QString::fromLatin1(PROJECT_SCALES).split(QLatin1Char(','));
    QVERIFY(entries.size() >= 5);
    QCOMPARE(entries.first(), QStringLiteral("1:1000000"));
    QCOMPARE(entries.last(), QStringLiteral("1:500"));
    qlonglong previous = std::numeric_limits<qlonglong>::max();
    for (const QString& entry : entries) {
        const QStringList parts = entry.split(QLatin1Char(':'));
        QCOMPARE(parts.size(), 2);
        QCOMPARE(parts[0], QStringLiteral("1"));
        bool ok = false;
        const qlonglong denominator = parts[1].toLongLong(&ok);
        QVERIFY2(ok && denominator < previous, qPrintable(entry));
        previous = denominator;
    }
}

QTEST_APPLESS_MAIN(TestHXGis)
#include "tst_hxgis.moc"
