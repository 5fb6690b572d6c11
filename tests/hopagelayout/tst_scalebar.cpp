// The scale bar stays true to its frame: its round length fits the element at any scale, and drawn at
// a print resolution its first segment measures that length on paper at the frame's scale.
#include <QPainter>
#include <QtTest>

#include "HODataFrame.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOScaleBarElement.h"
#include "HOTestColumns.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

class tst_ScaleBar : public QObject {
    Q_OBJECT

private slots:
    void barLengthFitsTheElement_data() {
        HOAddColumns<double, double, double>({"scale", "widthMm", "metres"});
        // 80 mm less 12 mm of label room is 68 mm of bar at most.
        QTest::newRow("1:50 000") << 50000.0 << 80.0 << 2000.0;  // 3.4 km fit: 2 km
        QTest::newRow("1:10 000") << 10000.0 << 80.0 << 500.0;   // 680 m fit: 500 m
        QTest::newRow("1:1 000") << 1000.0 << 80.0 << 50.0;      // 68 m fit: 50 m
        QTest::newRow("exactly fits") << 100000.0 << 62.0 << 5000.0;
        QTest::newRow("no room for a bar") << 50000.0 << 12.0 << 0.0;
        QTest::newRow("no scale") << 0.0 << 80.0 << 0.0;
    }

    void barLengthFitsTheElement() {
        QFETCH(double, scale);
        QFETCH(double, widthMm);
        QTEST(HOScaleBarElement::BarLength(scale, widthMm), "metres");
    }

    void drawnBarMeasuresItsLengthOnPaper() {
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(new HOTestRectLayer(HORect(0, 10000, 0, 10000), Qt::red));  // metres
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetMap(map);
        HORefPtr<HODataFrame> frame(new HODataFrame);
        frame->set_map_view(view);
        frame->set_bounds({0, 100, 0, 100});
        frame->set_map_extent({0, 10000, 0, 10000});
        QCOMPARE(frame->get_map_scale(), 100000.0);  // 10 km on 100 mm
        frame->set_map_scale(25000);
        QVERIFY(qAbs(frame->get_map_scale() - 25000) < 1e-6);

        HORefPtr<HOScaleBarElement> bar(new HOScaleBarElement);
        bar->set_frame(frame);
        bar->set_bounds({0, 80, 0, 14});
        const double dpi = 300, pxPerMm = dpi / 25.4;
        QImage image(qCeil(80 * pxPerMm), qCeil(14 * pxPerMm), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        HOPageRenderContext context;
        context.output = true;
        context.dpi = dpi;
        context.transform.extentTop = 14;
        context.transform.unitsPerPixel = 1 / pxPerMm;
        {
            QPainter painter(&image);
            bar->draw(painter, context);
        }
        // 1:25 000 over 68 mm is 1.7 km: a 1 km bar of five 200 m segments, the first black.
        const int row = qRound(4.5 * pxPerMm);  // through the bar, below the labels
        int first = -1, last = -1;
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, row)) < 60) {
                if (first < 0) first = x;
                last = x;
            } else if (first >= 0 && x - last > 3) {
                break;
            }
        }
        const double segmentMm = 200.0 * 1000 / 25000;  // 8 mm
        QVERIFY2(first >= 0 && qAbs((last - first + 1) / pxPerMm - segmentMm) < 0.3,
                 qPrintable(QString("black run %1..%2 px").arg(first).arg(last)));
        QCOMPARE(HOScaleBarElement::ScaleText(25000), QString("1:25 000"));
    }
};

QTEST_MAIN(tst_ScaleBar)
#include "tst_scalebar.moc"
