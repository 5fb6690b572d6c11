// Graphic elements through the clipboard's data: the private type keeps geometry, style and label
// exactly; WKT text from elsewhere becomes elements, and text that is not WKT becomes nothing.
#include <QMimeData>
#include <QtTest>

#include "HOElementClipboard.h"
#include "HOGeometryWkt.h"

using namespace HXObjects;

namespace {

QStringList Wkts(const std::vector<HORefPtr<HOElement>>& elements) {
    QStringList result;
    for (const auto& element : elements) result << HOGeometryWkt::ToWkt(*element->GetGeometry()).toQString();
    return result;
}

}  // namespace

class TestElementClipboard : public QObject {
    Q_OBJECT

private slots:
    void text_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("elements");
        QTest::newRow("point") << "POINT (1 2)" << QStringList{"POINT (1 2)"};
        QTest::newRow("one per line, blank lines skipped")
            << "LINESTRING (0 0,1 1)\n\n  MULTIPOINT ((1 2),(3 4))  \n"
            << QStringList{"LINESTRING (0 0,1 1)", "MULTIPOINT (1 2,3 4)"};
        QTest::newRow("polygon with a hole")
            << "POLYGON ((0 0,10 0,10 10,0 10,0 0),(2 2,2 4,4 4,2 2))"
            << QStringList{"POLYGON ((0 0,10 0,10 10,0 10,0 0),(2 2,2 4,4 4,2 2))"};
        QTest::newRow("multipolygon")
            << "MULTIPOLYGON (((0 0,1 0,1 1,0 0)),((5 5,6 5,6 6,5 5)))"
            << QStringList{"MULTIPOLYGON (((0 0,1 0,1 1,0 0)),((5 5,6 5,6 6,5 5)))"};
        QTest::newRow("collection split") << "GEOMETRYCOLLECTION (POINT (1 2),LINESTRING (0 0,1 1))"
                                          << QStringList{"POINT (1 2)", "LINESTRING (0 0,1 1)"};
        QTest::newRow("written over several lines") << "MULTILINESTRING ((0 0,1 1),\n (2 2,3 3))"
                                                    << QStringList{"MULTILINESTRING ((0 0,1 1),(2 2,3 3))"};
        QTest::newRow("plain words") << "two lines" << QStringList();
        QTest::newRow("one line of many is not WKT") << "POINT (1 2)\nhello" << QStringList();
        QTest::newRow("empty geometry") << "POINT EMPTY" << QStringList();
        QTest::newRow("empty text") << "" << QStringList();
    }

    void text() {
        QFETCH(QString, text);
        QFETCH(QStringList, elements);
        QMimeData data;
        data.setText(text);
        const auto decoded = HOElementClipboard::Decode(&data);
        QCOMPARE(Wkts(decoded), elements);
        for (const auto& element : decoded) QVERIFY(element->GetStyle());
    }

    // Elements copied here come back exactly, style and label included; the text is their WKT.
    void privateType() {
        HORefPtr<HOGeometry> point = new HOGeometry(HOGeometry::GeoPoint);
        point->AddPart({HOPoint(0.1, 1e7 + 0.3)});
        HORefPtr<HOStyle> style = HOStyle::NewMarker(HOStyle::Star, 9.5, HOColor(1, 2, 3, 4));
        style->SetOutlineColor(HOColor(5, 6, 7));
        const std::vector<HORefPtr<HOElement>> elements{new HOElement(7, point, style, "12"),
                                                        new HOElement(8, point, nullptr)};
        std::unique_ptr<QMimeData> data(HOElementClipboard::Encode(elements));
        QCOMPARE(data->text(), QString("POINT (0.1 10000000.3)\nPOINT (0.1 10000000.3)"));
        const auto decoded = HOElementClipboard::Decode(data.get());
        QCOMPARE(int(decoded.size()), 2);
        QCOMPARE(decoded[0]->GetGeometry()->Parts(), point->Parts());
        QCOMPARE(decoded[0]->GetLabel().toQString(), QString("12"));
        const HOStyle& s = *decoded[0]->GetStyle();
        QCOMPARE(s.GetMarkerShape(), HOStyle::Star);
        QCOMPARE(s.GetSize(), 9.5);
        QCOMPARE(s.GetColor().getA(), 4);
        QCOMPARE(s.GetOutlineColor().getB(), 7);
        QVERIFY(!decoded[1]->GetStyle());
        // Damaged private data is no data.
        data->setData(HOElementClipboard::kMimeType, data->data(HOElementClipboard::kMimeType).left(30));
        QVERIFY(HOElementClipboard::Decode(data.get()).empty());
    }
};

QTEST_MAIN(TestElementClipboard)
#include "tst_elementclipboard.moc"
