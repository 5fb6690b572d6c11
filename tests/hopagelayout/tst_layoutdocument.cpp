// Layout documents: a composed layout saved and opened again gives the same page, elements, links and
// maps; damaged, foreign and newer documents are refused with a reason and leave the open layout as
// it was; sources that moved are reported and the rest is kept.
#include <QtTest>

#include "HODataFrame.h"
#include "HOFeatureLayer.h"
#include "HOFileFunc.h"
#include "HOGraphicElement.h"
#include "HOLayoutComposer.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HOPictureElement.h"
#include "HOScaleBarElement.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTextElement.h"

using namespace HXObjects;

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), qPrintable(path));
}

QByteArray squareGeoJson(double x) {
    return QString(
               "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\","
               "\"properties\":{\"kind\":\"wood\"},"
               "\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[[[%1,0],[%2,0],[%2,10],[%1,10],[%1,0]]]}}"
               "]}")
        .arg(x)
        .arg(x + 10)
        .toUtf8();
}

HORefPtr<HOLayer> openLayer(const QString& path) {
    HOString error;
    HORefPtr<HOLayer> layer = OpenLayer(path, &error);
    if (!layer) qWarning("%s", qPrintable(error.toQString()));
    return layer;
}

// What a person would call the same layout: kinds, places, settings and links in order.
QStringList describe(HOPageLayoutView& layout) {
    QStringList lines;
    const auto elements = layout.get_graphicscontainer()->GetElements();
    for (const auto& e : elements) {
        const HORect b = e->get_bounds();
        QString line =
            QString("%1 [%2 %3 %4 %5] %6")
                .arg(e->get_element_type())
                .arg(b.minx)
                .arg(b.maxx)
                .arg(b.miny)
                .arg(b.maxy)
                .arg(QString::fromUtf8(QJsonDocument(e->properties()).toJson(QJsonDocument::Compact)));
        if (auto* picture = dynamic_cast<HOPictureElement*>(e.get()))
            line += " picture " + QFileInfo(picture->get_path()).fileName();
        if (auto* s = dynamic_cast<HOMapSurroundElement*>(e.get()))
            line += QString(" frame %1").arg(s->get_frame() == layout.get_operating_data_frame().get());
        if (auto* f = dynamic_cast<HODataFrame*>(e.get())) {
            for (const auto& layer : f->get_map_view()->GetMap()->GetLayers(true)) {
                line += QString(" layer %1 %2 %3 %4")
                            .arg(layer->GetName().toQString())
                            .arg(layer->IsVisible())
                            .arg(layer->GetOpacity())
                            .arg(layer->GetComposition());
                if (auto* fl = dynamic_cast<HOFeatureLayer*>(layer.get())) {
                    line += " " + fl->GetStyle()->GetColor().toQColor().name();
                    const HOLabelSettings labels = fl->GetLabelSettings();
                    line += QString(" labels '%1' %2 %3 %4 %5")
                                .arg(labels.expression, labels.color.toQColor().name())
                                .arg(labels.fontSize)
                                .arg(labels.maxScale)
                                .arg(labels.priority);
                    const auto custom = fl->GetCustomFeatureRender()->GetAllStyles();
                    for (const auto& [id, style] : custom)
                        line += QString(" #%1 %2").arg(id).arg(style->GetWidth());
                    line += " by '" + fl->GetCategoryField().toQString() + "'";
                    for (const auto& [value, style] : fl->GetCategoryStyles())
                        line += QString(" %1 %2").arg(value.toQString(), style->GetColor().toQColor().name());
                }
            }
            line += QString(" grid %1").arg(f->get_map_view()->GetRulerAndGridSetting()->get_draw_km_grid());
            // To the thousand: the map view fits its extent to whole pixels of the screen it is on.
            line += QString(" scale %1k").arg(qRound(f->get_map_scale() / 1000));
        }
        lines << line;
    }
    const HOPageSetup p = layout.GetPageSetup();
    lines << QString("page %1 %2 %3 %4").arg(p.Paper()).arg(p.Width()).arg(p.Height()).arg(p.Margin());
    return lines;
}

}  // namespace

class tst_LayoutDocument : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString path(const QString& name) const { return m_dir.filePath(name); }

    // An A3 portrait layout of two GeoJSON squares, styled, with a grid, at 1:250 000, plus a line.
    HORefPtr<HOPageLayoutView> composed() {
        writeFile(path("a.geojson"), squareGeoJson(0));
        writeFile(path("b.geojson"), squareGeoJson(20));
        HORefPtr<HOMap> map(new HOMap);
        for (const char* name : {"a.geojson", "b.geojson"}) {
            if (HORefPtr<HOLayer> layer = openLayer(path(name))) map->AddLayer(layer);
        }
        if (map->GetLayerCount() != 2) return {};
        auto* second = static_cast<HOFeatureLayer*>(map->GetLayers(true)[1].get());
        second->SetName("second");
        second->SetVisible(false);
        second->SetOpacity(0.4);
        second->SetComposition(HOLayer::Multiply);
        HOLabelSettings labels;
        labels.expression = "{name} {id}";
        labels.color = HOColor(200, 10, 10);
        labels.fontSize = 12.5;
        labels.maxScale = 500000;
        labels.priority = 3;
        second->SetLabelSettings(labels);
        second->SetStyle(HOStyle::NewFill(HOColor(10, 200, 30), HOColor(0, 0, 0), 2.0));
        second->GetCustomFeatureRender()->SetFeatureStyle(
            0, HOStyle::NewFill(HOColor(1, 2, 3), HOColor(4, 5, 6), 3.5));
        if (!second->SetCategoryStyles("kind",
                                       {{"wood", HOStyle::NewFill(HOColor(7, 8, 9), HOColor(0, 0, 0), 1.0)},
                                        {"lake", HOStyle::NewFill(HOColor(9, 8, 7), HOColor(0, 0, 0), 1.0)}}))
            return {};
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetMap(map);
        HORefPtr<HOPageLayoutView> layout(new HOPageLayoutView);
        layout->SetSize(800, 600);
        HOPageSetup setup;
        setup.SetPaper("A3");
        setup.SetLandscape(false);
        setup.SetMargin(15);
        layout->SetPageSetup(setup);
        HOLayoutComposer::ComposeDefault(*layout, view, "Two squares");
        static_cast<HODataFrame*>(layout->get_operating_data_frame().get())->set_map_scale(250000);
        HORefPtr<HOGraphicElement> line(new HOGraphicElement);
        line->set_shape(HOGraphicElement::Line);
        line->set_stroke(Qt::red, 0.5);
        line->set_bounds({20, 60, 30, 35});
        layout->get_graphicscontainer()->AddElement(line);
        QImage logo(8, 8, QImage::Format_RGB32);
        logo.fill(Qt::blue);
        logo.save(path("logo.png"));
        HORefPtr<HOPictureElement> picture(new HOPictureElement);
        picture->set_path(path("logo.png"));
        picture->set_bounds({200, 230, 20, 40});
        layout->get_graphicscontainer()->AddElement(picture);
        return layout;
    }

private slots:
    void savedLayoutOpensTheSame() {
        const HORefPtr<HOPageLayoutView> layout = composed();
        QVERIFY(layout);
        HOFileFunc file(path("layout.hxlayout"));
        QVERIFY2(layout->save(&file, 0), qPrintable(file.LastError()));
        // Paths are kept relative to the document.
        QFile saved(file.Path());
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QByteArray text = saved.readAll();
        QVERIFY(text.contains("\"source\": \"a.geojson\"") && !text.contains(m_dir.path().toUtf8()));

        HORefPtr<HOPageLayoutView> reopened(new HOPageLayoutView);
        reopened->SetSize(640, 480);
        HOFileFunc in(file.Path());
        QVERIFY2(reopened->open(&in, 0), qPrintable(in.LastError()));
        QVERIFY(in.Warnings().isEmpty());
        QCOMPARE(describe(*reopened), describe(*layout));
        QVERIFY(describe(*layout).join('\n').contains("scale 250k"));
        QVERIFY(describe(*layout).join('\n').contains("by 'kind' lake #090807 wood #070809"));
    }

    void badDocumentsAreRefused_data() {
        // bytes: "CUT" stands for the first half of a good document
        HOAddColumns<QByteArray, QString>({"bytes", "reason"});
        QTest::newRow("truncated") << QByteArray("CUT") << "not a layout document";
        QTest::newRow("newer version")
            << QByteArray("{\"format\":\"hxlayout\",\"version\":2,\"elements\":[]}")
            << "version 2 is not supported";
        QTest::newRow("other JSON") << QByteArray("{\"type\":\"FeatureCollection\"}")
                                    << "not a layout document";
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0", 10) << "not a layout document";
        QTest::newRow("page beyond A0")
            << QByteArray(
                   "{\"format\":\"hxlayout\",\"version\":1,\"page\":{\"paper\":\"Huge\",\"width\":2000,"
                   "\"height\":3000}}")
            << "larger than A0";
        QTest::newRow("unknown element")
            << QByteArray(
                   "{\"format\":\"hxlayout\",\"version\":1,\"page\":{\"paper\":\"A4\"},\"elements\":"
                   "[{\"type\":\"teapot\",\"bounds\":[0,10,0,10]}]}")
            << "unknown element type 'teapot'";
        QTest::newRow("empty bounds")
            << QByteArray(
                   "{\"format\":\"hxlayout\",\"version\":1,\"page\":{\"paper\":\"A4\"},\"elements\":"
                   "[{\"type\":\"text\",\"bounds\":[10,10,0,10]}]}")
            << "no valid bounds";
    }

    void badDocumentsAreRefused() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const HORefPtr<HOPageLayoutView> layout = composed();
        QVERIFY(layout);
        if (bytes == "CUT") {
            HOFileFunc good(path("good.hxlayout"));
            QVERIFY(layout->save(&good, 0));
            QFile file(good.Path());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray all = file.readAll();
            bytes = all.left(all.size() / 2);
        }
        writeFile(path("bad.hxlayout"), bytes);
        const QStringList before = describe(*layout);
        const auto operating = layout->get_operating_data_frame();
        HOFileFunc file(path("bad.hxlayout"));
        QVERIFY(!layout->open(&file, 0));
        QVERIFY2(file.LastError().contains(reason) && file.LastError().contains("bad.hxlayout"),
                 qPrintable(file.LastError()));
        QCOMPARE(describe(*layout), before);
        QVERIFY(layout->get_operating_data_frame() == operating);
    }

    void missingSourcesAreReportedAndTheRestKept_data() {
        HOAddColumns<QStringList, int>({"removed", "layersLeft"});
        QTest::newRow("one moved") << QStringList{"b.geojson"} << 1;
        QTest::newRow("all moved") << QStringList{"a.geojson", "b.geojson"} << 0;
        QTest::newRow("picture moved") << QStringList{"logo.png"} << 2;
    }

    void missingSourcesAreReportedAndTheRestKept() {
        QFETCH(QStringList, removed);
        const HORefPtr<HOPageLayoutView> layout = composed();
        QVERIFY(layout);
        HOFileFunc file(path("moved.hxlayout"));
        QVERIFY(layout->save(&file, 0));
        for (const QString& name : removed) QVERIFY(QFile::remove(path(name)));

        HORefPtr<HOPageLayoutView> reopened(new HOPageLayoutView);
        reopened->SetSize(640, 480);
        HOFileFunc in(file.Path());
        QVERIFY2(reopened->open(&in, 0), qPrintable(in.LastError()));
        QCOMPARE(in.Warnings().size(), removed.size());
        for (int i = 0; i < removed.size(); ++i)
            QVERIFY2(in.Warnings()[i].contains(removed[i]), qPrintable(in.Warnings()[i]));
        auto* frame = static_cast<HODataFrame*>(reopened->get_operating_data_frame().get());
        QTEST(frame->get_map_view()->GetMap()->GetLayerCount(), "layersLeft");
        QCOMPARE(frame->get_note().contains(removed.last()), removed.last().endsWith(".geojson"));
        QCOMPARE(reopened->get_graphicscontainer()->GetElements().size(),
                 layout->get_graphicscontainer()->GetElements().size());
    }
};

QTEST_MAIN(tst_LayoutDocument)
#include "tst_layoutdocument.moc"
