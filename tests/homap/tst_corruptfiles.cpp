// Damaged and hostile files, written by the test: each opens within a deadline to a null layer and an
// error naming the file and the reason, or — where the file is legitimately readable in part — to a
// layer; nothing crashes, hangs or prints.
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <chrono>

#include "HOLayerFixture.h"
#include "HOStderrCapture.h"
#include "HOTestColumns.h"
#include "HOTimedOpen.h"

using namespace HXObjects;

namespace {

const char* const lines =
    "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{},"
    "\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[0,0],[10,10]]}}]}";

QByteArray kmlDocument(const QByteArray& placemarks) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://www.opengis.net/kml/2.2\" "
           "xmlns:gx=\"http://www.google.com/kml/ext/2.2\"><Document>" +
           placemarks + "</Document></kml>";
}

QByteArray vrt(const QByteArray& size, const QByteArray& source) {
    return "<VRTDataset rasterXSize=\"" + size + "\" rasterYSize=\"" + size +
           "\"><GeoTransform>0, 1, 0, 10, 0, -1</GeoTransform><VRTRasterBand dataType=\"Byte\" band=\"1\">" +
           source + "</VRTRasterBand></VRTDataset>";
}

QByteArray simpleSource(const QByteArray& file) {
    return "<SimpleSource><SourceFilename relativeToVRT=\"0\">" + file +
           "</SourceFilename><SourceBand>1</SourceBand></SimpleSource>";
}

}  // namespace

class TestCorruptFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        CPLPushErrorHandler(CPLQuietErrorHandler);  // the fixtures' own writes
        const double geo[6] = {0, 1, 0, 10, 0, -1};
        m_tif = file("good.tif");
        QVERIFY(HOLayerFixture::WriteRaster(m_tif, 64, 64, 1, GDT_Byte, 4326, geo,
                                            [](int, int x, int y) { return double(x ^ y); }));
        m_gpkg = file("good.gpkg");
        QVERIFY(
            HOLayerFixture::WriteVector(m_gpkg, "GPKG", 4326, wkbPoint, {{"POINT(1 2)"}, {"POINT(3 4)"}}));
        m_fgb = file("good.fgb");
        QVERIFY(
            HOLayerFixture::WriteVector(m_fgb, "FlatGeobuf", 4326, wkbPolygon,
                                        {{"POLYGON((0 0,1 0,1 1,0 0))"}, {"POLYGON((2 2,3 2,3 3,2 2))"}}));
    }

    void cleanupTestCase() { CPLPopErrorHandler(); }

    void eachFileFailsCleanlyAndQuickly_data() {
        // readable: a layer is expected: the file is sound enough to read
        // reason: part of the error when no layer; empty: any reason
        HOAddColumns<QString, bool, QString>({"path", "readable", "reason"});
        const auto bad = [](const char* tag, const QString& path, const char* reason = "") {
            QTest::newRow(tag) << path << false << QString(reason);
        };
        const auto good = [](const char* tag, const QString& path) {
            QTest::newRow(tag) << path << true << QString();
        };

        // Special files.
        QVERIFY(::mkfifo(qPrintable(file("pipe.geojson")), 0644) == 0);
        bad("named pipe", file("pipe.geojson"), "not a regular file");
        bad("device", "/dev/zero", "not a regular file");
        QVERIFY(QDir(m_dir.path()).mkdir("nodata"));
        bad("directory without data", file("nodata"));
        QVERIFY(::symlink(qPrintable(file("loop-b.shp")), qPrintable(file("loop-a.shp"))) == 0);
        QVERIFY(::symlink(qPrintable(file("loop-a.shp")), qPrintable(file("loop-b.shp"))) == 0);
        bad("symlink loop", file("loop-a.shp"), "a loop of symbolic links");
        QVERIFY(::symlink(qPrintable(file("gone.gpkg")), qPrintable(file("dangling.gpkg"))) == 0);
        bad("dangling link", file("dangling.gpkg"), "a symbolic link to a missing file");
        // The mode bits refuse the file to every user, the administrator who runs CI included.
        write("locked.geojson", lines);
        QVERIFY(::chmod(qPrintable(file("locked.geojson")), 0) == 0);
        bad("unreadable file", file("locked.geojson"), "permission denied");
        bad("missing file", file("missing.shp"), "no such file");
        bad("missing folder", file("nowhere/x.tif"), "no such file");
        for (const char* name : {"zero.gpkg", "zero.shp", "zero.tif", "zero.geojson", "zero.fgb"})
            bad(name, write(name, ""));

        // GeoPackage.
        const QByteArray gpkg = contents(m_gpkg);
        bad("gpkg garbage", write("garbage.gpkg", garbage(8192)));
        bad("gpkg truncated", write("cut.gpkg", gpkg.left(1536)));
        bad("gpkg broken header", write("header.gpkg", garbage(100) + gpkg.mid(100)));
        good("gpkg broken rtree", sqlCopy("rtree.gpkg", "DELETE FROM rtree_data_geom_node"));
        good("gpkg bad geometry blob",
             sqlCopy("blob.gpkg", "UPDATE data SET geom = x'4750000100000000deadbeef'"));

        // Shapefile.
        const QString shp = file("parts.shp");
        QVERIFY(HOLayerFixture::WriteVector(shp, "ESRI Shapefile", 4326, wkbPoint, {{"POINT(1 2)"}}));
        const QByteArray shpBytes = contents(shp);
        write("noshx.shp", shpBytes);
        write("noshx.dbf", contents(file("parts.dbf")));
        bad("shapefile without .shx", file("noshx.shp"), ".shx");
        write("nodbf.shp", shpBytes);
        write("nodbf.shx", contents(file("parts.shx")));
        good("shapefile without .dbf", file("nodbf.shp"));
        write("pipedbf.shp", shpBytes);
        write("pipedbf.shx", contents(file("parts.shx")));
        QVERIFY(::mkfifo(qPrintable(file("pipedbf.dbf")), 0644) == 0);
        bad("shapefile with a pipe as .dbf", file("pipedbf.shp"), "not a regular file");
        bad("shapefile garbage", write("garbage.shp", garbage(4096)));
        QByteArray huge = shpBytes;
        huge.replace(24, 4, QByteArray("\x7f\xff\xff\xff", 4));  // file length in 16-bit words
        good("shapefile huge declared length", write("huge.shp", huge));
        write("huge.shx", contents(file("parts.shx")));

        // GeoJSON.
        bad("geojson truncated", write("cut.geojson", QByteArray(lines).left(60)));
        bad("geojson garbage", write("garbage.geojson", garbage(2048)));
        good("geojson NaN coordinates",
             write("nan.geojson", QByteArray(lines).replace("[10,10]", "[NaN,NaN]")));
        bad("geojson deeply nested",
            write("deep.geojson", "{\"type\":\"Point\",\"coordinates\":" + QByteArray(100000, '[') +
                                      QByteArray(100000, ']') + "}"));
        bad("geojson features not a list",
            write("notalist.geojson", "{\"type\":\"FeatureCollection\",\"features\":{}}"));
        bad("unknown layer name",
            write("named.geojson", "{\"type\":\"FeatureCollection\",\"features\":[]}") + "|layername=roads",
            "no layer named 'roads'");
        good("wrong extension", write("image.geojson", contents(m_tif)));

        // KML.
        good("kml track without times",
             write("track.kml", kmlDocument("<Placemark><gx:Track><gx:coord>1 2 0</gx:coord>"
                                            "<gx:coord>3 4 0</gx:coord></gx:Track></Placemark>")));
        good("kmz track without times", zipped("track.kmz", contents(file("track.kml"))));
        bad("kml truncated",
            write("cut.kml",
                  kmlDocument("<Placemark><Point><coordinates>1,2</coordinates></Point></Placemark>")
                      .left(120)));
        QByteArray laughs = "<?xml version=\"1.0\"?><!DOCTYPE kml [<!ENTITY a \"aaaaaaaaaa\">";
        for (char c = 'b'; c <= 'j'; ++c)
            laughs += QByteArray("<!ENTITY ") + c + " \"" + QByteArray("&") + char(c - 1) + ";" +
                      QByteArray("&") + char(c - 1) + ";&" + char(c - 1) + ";&" + char(c - 1) + ";\">";
        laughs +=
            "]><kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document><name>&j;</name></Document></kml>";
        bad("kml entity expansion", write("laughs.kml", laughs));

        // FlatGeobuf.
        const QByteArray fgb = contents(m_fgb);
        bad("fgb garbage after magic", write("garbage.fgb", fgb.left(8) + garbage(4096)));
        bad("fgb truncated", write("cut.fgb", fgb.left(fgb.size() / 2)));
        bad("fgb huge header size",
            write("huge.fgb", fgb.left(8) + QByteArray("\xff\xff\xff\x7f", 4) + fgb.mid(12)));

        // GeoTIFF.
        const QByteArray tif = contents(m_tif);
        bad("tif garbage", write("garbage.tif", garbage(4096)));
        bad("tif truncated header", write("header.tif", tif.left(10)));
        bad("tif huge declared size", write("huge.tif", withHugeSize(tif)), "too large");
        const QString southUp = file("southup.tif");
        const double flipped[6] = {0, 1, 0, 0, 0, 1}, geo[6] = {0, 1, 0, 10, 0, -1};
        QVERIFY(HOLayerFixture::WriteRaster(southUp, 8, 8, 1, GDT_Byte, 0, flipped,
                                            [](int, int, int) { return 1.0; }));
        const QString whole = file("whole.tif");
        QVERIFY(HOLayerFixture::WriteRaster(whole, 300, 300, 1, GDT_Float32, 4509, geo,
                                            [](int, int x, int y) { return double(x + y); }));
        const QByteArray pixels = contents(whole);
        bad("tif without its pixels", write("nopixels.tif", pixels.left(pixels.size() / 3)));
        good("tif south-up (warped, readable)", southUp);

        // VRT.
        bad("vrt recursive", write("self.vrt", vrt("8", simpleSource(file("self.vrt").toUtf8()))));
        bad("vrt on /dev/zero", write("zero.vrt", vrt("8", simpleSource("/dev/zero"))));
        bad("vrt on a missing file",
            write("missing.vrt", vrt("8", simpleSource(file("absent.tif").toUtf8()))));
        bad("vrt malformed", write("bad.vrt", vrt("8", "").left(60)));
        good("vrt huge declared size", write("huge.vrt", vrt("2000000000", "")));
    }

    void eachFileFailsCleanlyAndQuickly() {
        QFETCH(QString, path);
        QFETCH(bool, readable);
        QFETCH(QString, reason);
        HOStderrCapture capture;
        const HOTimedOpen opened = HOTimedOpen::Run(path, std::chrono::seconds(5));
        const QByteArray printed = capture.Finish();
        QVERIFY2(opened.finished, "opening took more than 5 s");
        QVERIFY2(printed.isEmpty(), printed.constData());
        if (readable) {
            QVERIFY2(opened.layer, qPrintable(opened.error));
            return;
        }
        QVERIFY(!opened.layer);
        const QString prefix = QStringLiteral("cannot open '%1': ").arg(path);
        QVERIFY2(opened.error.startsWith(prefix) && opened.error.size() > prefix.size() + 3,
                 qPrintable(opened.error));
        QVERIFY2(opened.error.contains(reason), qPrintable(opened.error));
    }

private:
    QString file(const QString& name) const { return m_dir.filePath(name); }

    QString write(const QString& name, const QByteArray& bytes) const {
        return HOLayerFixture::WriteFile(file(name), bytes);
    }
    static QByteArray contents(const QString& path) { return HOLayerFixture::ReadFile(path); }

    // Deterministic bytes that no format recognises.
    static QByteArray garbage(int size) {
        QByteArray bytes(size, '\0');
        quint32 state = 12345;
        for (char& c : bytes) c = char((state = state * 1103515245u + 12345u) >> 24);
        return bytes;
    }

    // A zip file holding `kml` as doc.kml.
    QString zipped(const QString& name, const QByteArray& kml) const {
        const QByteArray entry = "/vsizip/" + file(name).toUtf8() + "/doc.kml";
        VSILFILE* out = VSIFOpenL(entry.constData(), "wb");
        if (!out || VSIFWriteL(kml.constData(), 1, std::size_t(kml.size()), out) != std::size_t(kml.size()))
            qFatal("cannot write %s", qPrintable(name));
        VSIFCloseL(out);
        return file(name);
    }

    // A copy of the good GeoPackage with one SQL statement applied.
    QString sqlCopy(const QString& name, const char* sql) const {
        const QString path = write(name, contents(m_gpkg));
        GDALDatasetUniquePtr ds(
            GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        if (ds) ds->ReleaseResultSet(ds->ExecuteSQL(sql, nullptr, nullptr));
        return path;
    }

    // The GeoTIFF with its width and height tags (in its first directory) set to 2^31 - 1.
    static QByteArray withHugeSize(QByteArray tif) {
        const auto u16 = [&](int at) { return quint16(uchar(tif[at]) | uchar(tif[at + 1]) << 8); };
        const int ifd = int(quint32(u16(4)) | quint32(u16(6)) << 16);
        for (int i = 0, n = u16(ifd); i < n; ++i) {
            const int entry = ifd + 2 + 12 * i;
            if (u16(entry) != 256 && u16(entry) != 257) continue;
            tif.replace(entry + 2, 10, QByteArray("\x04\x00\x01\x00\x00\x00\xff\xff\xff\x7f", 10));
        }
        return tif;
    }

    QTemporaryDir m_dir;
    QString m_tif, m_gpkg, m_fgb;
};

QTEST_MAIN(TestCorruptFiles)
#include "tst_corruptfiles.moc"
