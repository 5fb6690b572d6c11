// Graphic elements saved to a GeoPackage and read back: geometry, style and label of each kind of
// element, drawing order, the coordinate system; a missing or foreign file gives an error and no
// elements, and a failed save leaves the earlier file.
#include <gdal_priv.h>

#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOElementFile.h"
#include "HOGraphicsLayer.h"
#include "edit/HOGeometryWkt.h"
#include "edit/HOStyleJson.h"

using namespace HXObjects;

namespace {

HORefPtr<HOElement> Element(const char* wkt, HORefPtr<HOStyle> style, const char* label = "") {
    return new HOElement(0, HOGeometryWkt::FromWkt(wkt).front(), style, label);
}

QString Describe(const HOElement& e) {
    return HOGeometryWkt::ToWkt(*e.GetGeometry()).toQString() + " | " + HOStyleJson::Write(*e.GetStyle()) +
           " | " + e.GetLabel().toQString();
}

}  // namespace

class TestElementFile : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void roundTrip() {
        HORefPtr<HOStyle> dashed = HOStyle::NewLine(3.5, HOColor(10, 20, 30, 200), HOStyle::Dash);
        dashed->SetCasingWidth(1.5);
        HORefPtr<HOStyle> fill = HOStyle::NewFill(HOColor(255, 200, 0, 120), HOColor(220, 30, 30), 2.0);
        fill->SetFillPattern(HOStyle::FillPattern(2));
        fill->SetOpacity(0.5);
        const std::vector<HORefPtr<HOElement>> elements{
            Element("POLYGON ((0 0,10 0,10 10,0 0),(2 1,8 1,8 7,2 1))", fill, "field"),
            Element("MULTILINESTRING ((0 0,5 5),(6 6,7 9))", dashed),
            Element("POINT (120.5 30.25)", HOStyle::NewMarker(HOStyle::Star, 9, HOColor(0, 0, 255)), "北"),
        };
        const QString path = m_dir.filePath("elements.gpkg");
        const auto system = HOCoordinateSystem::FromUserInput("EPSG:4490");
        HOString error;
        QVERIFY2(HOElementFile::Save(path.toUtf8().data(), elements, system.get(), &error), error.c_str());
        const auto loaded = HOElementFile::Load(path.toUtf8().data(), &error);
        QCOMPARE(int(loaded.size()), 3);
        for (std::size_t i = 0; i < loaded.size(); ++i)
            QCOMPARE(Describe(*loaded[i]), Describe(*elements[i]));
        // Saving again replaces the file; an empty layer saves an empty table.
        QVERIFY(HOElementFile::Save(path.toUtf8().data(), {}, nullptr, &error));
        QVERIFY(HOElementFile::Load(path.toUtf8().data(), &error).empty());
        QVERIFY(!QFile::exists(path + ".part"));
    }

    void unreadable_data() {
        QTest::addColumn<QByteArray>("content");  // empty: no file
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("not a GeoPackage") << QByteArray("this is text\n");
    }

    void unreadable() {
        QFETCH(QByteArray, content);
        const QString path = m_dir.filePath(QString("bad-%1.gpkg").arg(QTest::currentDataTag()));
        if (!content.isEmpty()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        HOString error;
        QVERIFY(HOElementFile::Load(path.toUtf8().data(), &error).empty());
        QVERIFY2(error.toQString().startsWith("cannot read '" + path + "'"), error.c_str());
    }

    void saveIntoMissingFolderFails() {
        const QString path = m_dir.filePath("no/such/folder/elements.gpkg");
        HOString error;
        QVERIFY(!HOElementFile::Save(path.toUtf8().data(), {}, nullptr, &error));
        QVERIFY2(error.toQString().startsWith("cannot write '" + path + "'"), error.c_str());
    }
};

QTEST_MAIN(TestElementFile)
#include "tst_elementfile.moc"
