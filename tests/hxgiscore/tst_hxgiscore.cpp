// The settings location, the compiled-in image theme, numbers typed in the user's locale, map
// settings (magnification against extent, validity) and symbol previews.
#include <QApplication>
#include <QtTest>
#include <cmath>

#include "HOStyle.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HXApplication.h"
#include "HXGis.h"
#include "HXMapSettings.h"
#include "HXSymbolUtils.h"

using namespace HXObjects;

class TestHXGisCore : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void settingsFilePath() {
        const QByteArray saved = qgetenv("HXGIS_SETTINGS_FILE");
        qputenv("HXGIS_SETTINGS_FILE", "/tmp/elsewhere/test.ini");
        const QString fromEnvironment = HXApplication::hxgisSettingsFilePath();
        qunsetenv("HXGIS_SETTINGS_FILE");
        const QString fallback = HXApplication::hxgisSettingsFilePath();
        qputenv("HXGIS_SETTINGS_FILE", saved);
        QCOMPARE(fromEnvironment, QStringLiteral("/tmp/elsewhere/test.ini"));
        QVERIFY2(fallback.endsWith("/hxgis/hxgis.ini") && QDir::isAbsolutePath(fallback),
                 qPrintable(fallback));
    }

    void themeImages_data() {
        // minimumSide: 0: no such image
        HOAddColumns<QString, int>({"name", "minimumSide"});
        for (const char* cursor :
             {"zoom-in.png", "zoom-out.png", "mActionRotatePointSymbols.png", "Identify.png"})
            QTest::newRow(cursor) << cursor << 32;
        for (const char* message : {"/mIconInfo.png", "/mIconWarning.svg", "/mIconCritical.png",
                                    "/mIconSuccess.png", "mIconTimerPause.png", "mIconInfo.png"})
            QTest::newRow(message) << message << 24;
        for (const char* unknown : {"no-such-icon.png", "", "/"}) QTest::newRow(unknown) << unknown << 0;
    }
    // Every name the canvas and the message bar ask for must give a visible image.
    void themeImages() {
        QFETCH(QString, name);
        QFETCH(int, minimumSide);
        const QImage image = HXApplication::getThemePixmap(name).toImage();
        const QIcon icon = HXApplication::getThemeIcon(name);
        if (minimumSide == 0) {
            QVERIFY(image.isNull() && icon.isNull() && HXApplication::getThemeFilePath(name).isEmpty());
            return;
        }
        QVERIFY(image.width() >= minimumSide && image.height() >= minimumSide);
        int covered = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) covered += qAlpha(image.pixel(x, y)) > 0;
        QVERIFY2(covered > image.width() * image.height() / 10, "image is (nearly) blank");
        QCOMPARE(icon.pixmap(16).size(), QSize(16, 16));
        QVERIFY(HXApplication::getThemeFilePath(name).startsWith(QLatin1Char(':')));
    }

    void typedNumbers_data() {
        // real: permissiveToDouble; NaN: rejected
        // whole: permissiveToInt; NaN: rejected
        HOAddColumns<QString, QString, double, double>({"locale", "text", "real", "whole"});
        const QString en = "en_US", de = "de_DE";
        const double no = qQNaN();
        QTest::newRow("en plain") << en << "1234.5" << 1234.5 << no;
        QTest::newRow("en grouped") << en << "1,234.5" << 1234.5 << no;
        QTest::newRow("en surrounding blanks") << en << "  50,000 " << 50000.0 << 50000.0;
        QTest::newRow("en negative grouped") << en << "-1,000,000" << -1e6 << -1e6;
        QTest::newRow("en exponent") << en << "1e3" << 1000.0 << no;
        QTest::newRow("en beyond int") << en << "99,999,999,999" << 99999999999.0 << no;
        QTest::newRow("en misplaced groups") << en << "1,2,3" << no << no;
        QTest::newRow("en group in fraction") << en << "1.234,5" << no << no;
        QTest::newRow("en trailing letters") << en << "12abc" << no << no;
        QTest::newRow("en empty") << en << "" << no << no;
        QTest::newRow("de decimal comma") << de << "1,5" << 1.5 << no;
        QTest::newRow("de grouped") << de << "1.234,5" << 1234.5 << no;
        QTest::newRow("de dot is a group") << de << "1.234" << 1234.0 << 1234.0;
        QTest::newRow("de plain number") << de << "1.5" << 1.5 << no;
        QTest::newRow("de english grouping") << de << "50,000" << 50.0 << no;
        QTest::newRow("de misplaced groups") << de << "1.2.3" << no << no;
        QTest::newRow("de two commas") << de << "1,2,3" << no << no;
        QTest::newRow("de trailing letters") << de << "12abc" << no << no;
        QTest::newRow("de blank") << de << "   " << no << no;
        QTest::newRow("fr typed space as group") << QString("fr_FR") << "1 234,5" << 1234.5 << no;
    }
    void typedNumbers() {
        QFETCH(QString, locale);
        QFETCH(QString, text);
        QFETCH(double, real);
        QFETCH(double, whole);
        QLocale::setDefault(QLocale(locale));
        bool ok = std::isnan(real);
        QCOMPARE(HXGis::permissiveToDouble(text, ok), std::isnan(real) ? 0.0 : real);
        QCOMPARE(ok, !std::isnan(real));
        ok = std::isnan(whole);
        QCOMPARE(double(HXGis::permissiveToInt(text, ok)), std::isnan(whole) ? 0.0 : whole);
        QCOMPARE(ok, !std::isnan(whole));
    }

    void mapSettingsValidity_data() {
        HOAddColumns<QSize, HORect, bool>({"size", "extent", "valid"});
        const HORect extent(0, 100, 0, 50);
        QTest::newRow("size and extent") << QSize(800, 600) << extent << true;
        QTest::newRow("no size") << QSize() << extent << false;
        QTest::newRow("zero height") << QSize(800, 0) << extent << false;
        QTest::newRow("empty extent") << QSize(800, 600) << HORect() << false;
        QTest::newRow("flat extent") << QSize(800, 600) << HORect(0, 100, 5, 5) << false;
    }
    void mapSettingsValidity() {
        QFETCH(QSize, size);
        QFETCH(HORect, extent);
        HXMapSettings s;
        s.setOutputSize(size);
        s.setExtent(extent, true);
        QTEST(s.hasValidSettings(), "valid");
    }

    void mapSettingsMagnification_data() {
        HOAddColumns<double, bool, double, HORect>({"factorBefore", "magnified", "factorAfter", "expected"});
        QTest::newRow("magnified extent kept") << 2.0 << true << 2.0 << HORect(0, 100, 0, 40);
        QTest::newRow("unmagnified extent shrinks") << 2.0 << false << 2.0 << HORect(25, 75, 10, 30);
        QTest::newRow("factor 1 changes nothing") << 1.0 << false << 1.0 << HORect(0, 100, 0, 40);
        QTest::newRow("raising the factor shrinks") << 1.0 << true << 4.0 << HORect(37.5, 62.5, 15, 25);
        QTest::newRow("lowering the factor grows") << 2.0 << true << 1.0 << HORect(-50, 150, -20, 60);
        QTest::newRow("zero factor ignored") << 2.0 << true << 0.0 << HORect(0, 100, 0, 40);
        QTest::newRow("negative factor ignored") << 2.0 << true << -1.0 << HORect(0, 100, 0, 40);
        QTest::newRow("NaN factor ignored") << 2.0 << true << qQNaN() << HORect(0, 100, 0, 40);
        QTest::newRow("infinite factor ignored") << 2.0 << true << qInf() << HORect(0, 100, 0, 40);
    }
    // The extent given is always (0, 100, 0, 40) around (50, 20).
    void mapSettingsMagnification() {
        QFETCH(double, factorBefore);
        QFETCH(bool, magnified);
        QFETCH(double, factorAfter);
        HXMapSettings s;
        s.setMagnificationFactor(factorBefore);
        s.setExtent(HORect(0, 100, 0, 40), magnified);
        s.setMagnificationFactor(factorAfter);
        s.setRotation(30.0);
        s.setRotation(qQNaN());
        QCOMPARE(s.magnificationFactor(),
                 std::isfinite(factorAfter) && factorAfter > 0 ? factorAfter : factorBefore);
        QTEST(s.extent(), "expected");
        QCOMPARE(s.rotation(), 30.0);
    }

    // Symbol previews: each kind of style is drawn where a person looks for it on the pixmap.
    void drawsTheStyle_data() {
        // colour: 0: transparent
        HOAddColumns<QString, QPoint, QRgb>({"kind", "pixel", "colour"});
        QTest::newRow("marker centre") << "marker" << QPoint(20, 20) << qRgb(255, 0, 0);
        QTest::newRow("marker leaves the corner") << "marker" << QPoint(2, 2) << QRgb(0);
        QTest::newRow("line on its first stroke") << "line" << QPoint(9, 20) << qRgb(0, 0, 255);
        QTest::newRow("line misses the centre top") << "line" << QPoint(20, 8) << QRgb(0);
        QTest::newRow("fill inside") << "fill" << QPoint(20, 20) << qRgb(0, 160, 0);
        QTest::newRow("fill outline") << "fill" << QPoint(6, 20) << qRgb(0, 0, 0);
        QTest::newRow("fill leaves a margin") << "fill" << QPoint(1, 20) << QRgb(0);
        QTest::newRow("no style: empty") << "none" << QPoint(20, 20) << QRgb(0);
    }

    void drawsTheStyle() {
        QFETCH(QString, kind);
        QFETCH(QPoint, pixel);
        QFETCH(QRgb, colour);
        const HORefPtr<HOStyle> style =
            kind == "marker" ? HOStyle::NewMarker(HOStyle::Square, 12, HOColor(255, 0, 0))
            : kind == "line" ? HOStyle::NewLine(4, HOColor(0, 0, 255))
            : kind == "fill" ? HOStyle::NewFill(HOColor(0, 160, 0), HOColor(0, 0, 0), 2)
                             : nullptr;
        const QImage image = HXSymbolUtils::symbolPreviewPixmap(style.get(), QSize(40, 40)).toImage();
        QCOMPARE(image.size(), QSize(40, 40));
        QCOMPARE(colour ? image.pixel(pixel) : qAlpha(image.pixel(pixel)), colour);
    }
};

QTEST_MAIN(TestHXGisCore)
#include "tst_hxgiscore.moc"
