// The scale widget between the canvas and the user: scales the canvas shows never zoom it again,
// scales the user types do.
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXMapCanvas.h"
#include "HXScaleComboBox.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;

class TestScaleWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void canvasScaleDoesNotZoom();
    void typedScaleZooms_data();
    void typedScaleZooms();
    void canvasZoomShowsInTheBox();
    void withoutCanvas();

private:
    static void type(HXStatusBarScaleWidget* widget, const QString& text) {
        widget->mScaleEdit->lineEdit()->setText(text);
        QTest::keyClick(widget->mScaleEdit->lineEdit(), Qt::Key_Return);
    }

    QTemporaryDir mSettingsDir;
    std::unique_ptr<HXMapCanvas> mCanvas;
    HXStatusBarScaleWidget* mWidget = nullptr;
};

void TestScaleWidget::initTestCase() {
    QVERIFY(mSettingsDir.isValid());
    qputenv("HXGIS_SETTINGS_FILE", mSettingsDir.filePath(QStringLiteral("hxgis.ini")).toLocal8Bit());
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TestScaleWidget::init() {
    mCanvas = std::make_unique<HXMapCanvas>(HXMapCanvas::MapViewMode, nullptr);
    mCanvas->resize(600, 400);
    HORefPtr<HOMap> map(new HOMap);
    map->SetSpatialReference(HOCoordinateSystem::FromUserInput("EPSG:4509"));
    mCanvas->GetMapView()->SetMap(map);
    mCanvas->setExtent(HORect(450000.0, 470000.0, 4410000.0, 4425000.0));
    mWidget = mCanvas->findChild<HXStatusBarScaleWidget*>(QStringLiteral("mScaleWidget"));
    QVERIFY(mWidget);
}

void TestScaleWidget::cleanup() {
    mCanvas.reset();
}

void TestScaleWidget::canvasScaleDoesNotZoom() {
    const double before = mCanvas->scale();
    QSignalSpy changed(mWidget->mScaleEdit, &HXScaleComboBox::scaleChanged);

    mWidget->setScale(1.0 / 12345);

    QCOMPARE(mWidget->mScaleEdit->currentText(), QStringLiteral("1:12,345"));
    QCOMPARE(mCanvas->scale(), before);
    QCOMPARE(changed.count(), 0);
}

void TestScaleWidget::typedScaleZooms_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("denominator");
    QTest::newRow("reduction") << "1:25000" << 25000.0;
    QTest::newRow("denominator") << "80000" << 80000.0;
}

void TestScaleWidget::typedScaleZooms() {
    QFETCH(QString, typed);
    QFETCH(double, denominator);
    type(mWidget, typed);
    QVERIFY2(qAbs(mCanvas->scale() - denominator) < 1e-6 * denominator, QByteArray::number(mCanvas->scale()));
}

void TestScaleWidget::canvasZoomShowsInTheBox() {
    mCanvas->zoomScale(50000.0);
    QTRY_COMPARE(mWidget->mScaleEdit->currentText(), QStringLiteral("1:50,000"));
    QVERIFY(qAbs(mCanvas->scale() - 50000.0) < 0.05);
}

void TestScaleWidget::withoutCanvas() {
    HXStatusBarScaleWidget widget(nullptr);
    QCOMPARE(widget.mScaleEdit->currentText(), QStringLiteral("1:1"));
    type(&widget, QStringLiteral("1:500"));
    QCOMPARE(widget.mScaleEdit->scale(), 1.0 / 500);

    widget.updateScales({QStringLiteral("1:300"), QStringLiteral("1:600")});
    QCOMPARE(widget.mScaleEdit->count(), 2);
    QCOMPARE(widget.mScaleEdit->itemText(1), QStringLiteral("1:600"));
}

QTEST_MAIN(TestScaleWidget)
#include "tst_scalewidget.moc"
