// The drawing widget's licence check against the licence the process holds: with a licence required,
// only a valid one lets the map show; once hidden, the map stays hidden.
#include <QtTest>

#include "HXLicense.h"
#include "HXLicenseFile.h"
#include "HXLicenseKey.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"

namespace {

const QColor kMapColour(10, 200, 30);

bool ShowsMap(HXMapWidget* widget) {
    const QImage shown = widget->grab().toImage();
    return shown.pixelColor(5, 5) == kMapColour &&
           shown.pixelColor(widget->width() / 2, widget->height() / 2) == kMapColour;
}

}  // namespace

class TestCanvasLicence : public QObject {
    Q_OBJECT

    // A test key made for this run; the library is told to trust it instead of the key it ships with.
    HXLicenseKey mIssuer = HXLicenseKey::generate();

    QByteArray Licence(int daysLeft, const HXLicenseKey& key) {
        HXLicenseInfo info;
        info.licensee = "Acme Survey Ltd";
        info.issued = QDate::currentDate();
        info.expires = QDate::currentDate().addDays(daysLeft);
        return HXLicenseFile::issue(info, key);
    }

    HXMapWidget* Show(HXMapCanvas& canvas) {
        canvas.enableWaterMask(false);
        canvas.setWindowState(Qt::WindowNoState);
        canvas.resize(200, 125);
        canvas.show();
        if (!QTest::qWaitForWindowExposed(&canvas)) return nullptr;
        auto* widget = canvas.findChild<HXMapWidget*>();
        widget->mImage = QImage(widget->size(), QImage::Format_ARGB32_Premultiplied);
        widget->mImage.fill(kMapColour);
        return widget;
    }

private slots:
    void initTestCase() { QVERIFY(HXLicense::setTrustedPublicKey(mIssuer.publicKeyPem())); }

    void mapShownOnlyWithAValidLicence_data() {
        QTest::addColumn<bool>("required");
        QTest::addColumn<QByteArray>("licence");
        QTest::addColumn<bool>("shown");
        const QByteArray valid = Licence(30, mIssuer);
        QTest::newRow("not required, none") << false << QByteArray() << true;
        QTest::newRow("not required, expired") << false << Licence(-1, mIssuer) << true;
        QTest::newRow("required, valid") << true << valid << true;
        QTest::newRow("required, none") << true << QByteArray() << false;
        QTest::newRow("required, expired") << true << Licence(-1, mIssuer) << false;
        QTest::newRow("required, altered") << true << QByteArray(valid).replace("Acme", "Acne") << false;
        QTest::newRow("required, untrusted key") << true << Licence(30, HXLicenseKey::generate()) << false;
        QTest::newRow("required, truncated") << true << valid.left(valid.size() / 2) << false;
    }

    void mapShownOnlyWithAValidLicence() {
        QFETCH(bool, required);
        QFETCH(QByteArray, licence);
        QFETCH(bool, shown);
        HXLicense::reset();
        if (!licence.isEmpty()) HXLicense::initializeFromText(licence);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        HXMapWidget* widget = Show(canvas);
        QVERIFY(widget);
        canvas.enableMapViewLic(required);
        QVERIFY(QMetaObject::invokeMethod(widget, "slotCheckLic"));
        QCOMPARE(widget->mLicensed, shown);
        QCOMPARE(ShowsMap(widget), shown);
    }

    // A licence lost while the program runs hides the map; loading a valid one again does not bring it back.
    void hiddenForGood() {
        HXLicense::initializeFromText(Licence(30, mIssuer));
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        HXMapWidget* widget = Show(canvas);
        QVERIFY(widget);
        canvas.enableMapViewLic(true);
        widget->slotCheckLic();
        QVERIFY(ShowsMap(widget));
        HXLicense::reset();
        widget->slotCheckLic();
        QVERIFY(!ShowsMap(widget));
        HXLicense::initializeFromText(Licence(30, mIssuer));
        widget->slotCheckLic();
        QVERIFY(!ShowsMap(widget));
    }
};

QTEST_MAIN(TestCanvasLicence)
#include "tst_canvas_licence.moc"
