// HOString: encodings, formatting, comparison and number reading.
#include <QtTest>
#include <clocale>

#include "HOString.h"

using HXObjects::HOString;

class TestHOString : public QObject {
    Q_OBJECT
private slots:
    void encodings_data();
    void encodings();
    void formatLongOutput();
    void compareNoCase_data();
    void compareNoCase();
    void toDouble_data();
    void toDouble();
};

void TestHOString::encodings_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("ascii") << QStringLiteral("HXObjects::HOToolPan");
    QTest::newRow("empty") << QString();
    QTest::newRow("umlauts") << QStringLiteral("Größe der Fläche");
    QTest::newRow("chinese") << QStringLiteral("经纬度网格");
    QTest::newRow("outside the BMP") << QStringLiteral("map \U0001F5FA end");
}

// Narrow (UTF-8), wide and Qt texts must be the same text whichever way they come in.
void TestHOString::encodings() {
    QFETCH(QString, text);
    const std::string utf8 = text.toStdString();
    const std::wstring wide = text.toStdWString();
    const HOString fromNarrow(utf8.c_str());
    const HOString fromWide(wide);
    const HOString fromWideChars(wide.c_str());
    const HOString fromQt(text);
    for (const HOString& s : {fromNarrow, fromWide, fromWideChars, fromQt}) {
        QCOMPARE(s.toQString(), text);
        QCOMPARE(s.toStdString(), utf8);
        QVERIFY(s.toStdWString() == wide);
        QVERIFY(std::wstring(s) == wide);
        QVERIFY(s == utf8.c_str());
        QVERIFY(s == wide.c_str());
        QVERIFY(s == fromNarrow);
        QCOMPARE(s.isEmpty(), text.isEmpty());
    }
    QVERIFY(fromQt != "something else");
}

void TestHOString::formatLongOutput() {
    const std::string block(5000, 'x');
    HOString s("old contents");
    const HOString& returned = s.Format("%s|%d|%.2f", block.c_str(), 42, 2.5);
    QCOMPARE(&returned, &s);
    QCOMPARE(s.size(), std::size_t(5000 + 8));
    QCOMPARE(s.toStdString().substr(5000), std::string("|42|2.50"));
    QCOMPARE(s.toStdString().find("old"), std::string::npos);
}

void TestHOString::compareNoCase_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("other");
    QTest::addColumn<int>("sign");
    QTest::newRow("ascii case") << "HXObjects::HOToolPan"
                                << "hxobjects::hotoolpan" << 0;
    QTest::newRow("non-ascii case") << "Ärger"
                                    << "äRGER" << 0;
    QTest::newRow("less") << "abc"
                          << "ABD" << -1;
    QTest::newRow("greater") << "abd"
                             << "ABC" << 1;
    QTest::newRow("prefix is less") << "ab"
                                    << "ABC" << -1;
    QTest::newRow("both empty") << ""
                                << "" << 0;
}

void TestHOString::compareNoCase() {
    QFETCH(QString, text);
    QFETCH(QString, other);
    QFETCH(int, sign);
    const int result = HOString(text).CompareNoCase(other.toUtf8().constData());
    QCOMPARE((result > 0) - (result < 0), sign);
}

void TestHOString::toDouble_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("number") << "1.5" << 1.5;
    QTest::newRow("blanks around") << "  -2.25 " << -2.25;
    QTest::newRow("exponent") << "2.5e3" << 2500.0;
    QTest::newRow("trailing garbage") << "12.5abc" << 12.5;
    QTest::newRow("decimal comma stops") << "1,5" << 1.0;
    QTest::newRow("garbage") << "abc" << 0.0;
    QTest::newRow("empty") << "" << 0.0;
}

// C locale whatever the process locale says: "1.5" is one and a half everywhere.
void TestHOString::toDouble() {
    QFETCH(QString, text);
    QFETCH(double, value);
    QCOMPARE(HOString(text).ToDouble(), value);
}

QTEST_APPLESS_MAIN(TestHOString)
#include "tst_hostring.moc"
