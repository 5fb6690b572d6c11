// The style picker: the symbol library (built-in, from JSON, added by a host), choosing and editing a
// symbol through the dialog's widgets, cancelling, and the live preview.
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QJsonDocument>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include "HOTestColumns.h"
#include "HXColorBtn.h"
#include "HXDialogTesting.h"
#include "HXModalAnswer.h"
#include "HXStyleLibrary.h"
#include "HXStyleManager.h"
#include "HXStylePickerDialog.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HOStyle::StyleType)

// A symbol picked in the dialog: its row, the pattern chosen (-1: unchanged), "spinBoxName=text"
// typed, the colour picked in the colour dialog (empty: unchanged), OK or Cancel, and the style got.
struct Pick {
    HOStyle::StyleType type;
    int row, pattern;
    QString edits, color;
    bool accept;
    QString style;
};
Q_DECLARE_METATYPE(Pick)

namespace {

QString hex(const HOColor& c) {
    return QColor(c.getR(), c.getG(), c.getB()).name();
}

// Every value the picker can change, in one line per kind.
QString describe(const HOStyle* style) {
    if (!style) return "null";
    const QString opacity = QString(" opacity %1").arg(style->GetOpacity());
    switch (style->GetStyleType()) {
        case HOStyle::MarkerStyle:
            return QString("marker shape %1 size %2 %3 outline %4 %5")
                       .arg(style->GetMarkerShape())
                       .arg(style->GetSize())
                       .arg(hex(style->GetColor()), hex(style->GetOutlineColor()))
                       .arg(style->GetWidth()) +
                   opacity;
        case HOStyle::LineStyle:
            return QString("line dash %1 width %2 %3 casing %4 %5")
                       .arg(style->GetDash())
                       .arg(style->GetWidth())
                       .arg(hex(style->GetColor()))
                       .arg(style->GetCasingWidth())
                       .arg(hex(style->GetOutlineColor())) +
                   opacity;
        case HOStyle::FillStyle:
            break;
    }
    return QString("fill pattern %1 %2 outline %3 %4")
               .arg(style->GetFillPattern())
               .arg(hex(style->GetColor()), hex(style->GetOutlineColor()))
               .arg(style->GetWidth()) +
           opacity;
}

// JSON written with single quotes, which read better inside C++ strings.
QByteArray json(const char* text) {
    return QByteArray(text).replace('\'', '"');
}

QString describeJson(const QByteArray& text) {
    const HORefPtr<HOStyle> style = HXStyleLibrary::styleFromJson(QJsonDocument::fromJson(text).object());
    return describe(style.get());
}

void typeInto(QAbstractSpinBox* spin, const QString& text) {
    spin->selectAll();
    QTest::keyClicks(spin, text);
    QTest::keyClick(spin, Qt::Key_Enter);
}

}  // namespace

class TestStylePicker : public QObject {
    Q_OBJECT

private slots:
    void builtInLibrary_data() {
        QTest::addColumn<HOStyle::StyleType>("type");
        QTest::newRow("markers") << HOStyle::MarkerStyle;
        QTest::newRow("lines") << HOStyle::LineStyle;
        QTest::newRow("fills") << HOStyle::FillStyle;
    }
    void builtInLibrary() {
        QFETCH(HOStyle::StyleType, type);
        const auto symbols = HXStyleLibrary::instance().symbols(type);
        QVERIFY2(symbols.size() >= 12, "a library worth choosing from");
        QSet<QString> names;
        QSet<QString> looks;
        for (const auto& symbol : symbols) {
            QCOMPARE(symbol.style->GetStyleType(), type);
            QVERIFY(!symbol.name.isEmpty());
            names.insert(symbol.name);
            looks.insert(describe(symbol.style.get()));
        }
        QCOMPARE(names.size(), int(symbols.size()));
        QCOMPARE(looks.size(), int(symbols.size()));  // no two symbols look the same
    }

    void styleFromJson_data() {
        HOAddColumns<QByteArray, QString>({"text", "style"});
        QTest::newRow("marker")
            << json(
                   "{'kind':'marker','shape':'star','size':14,'color':'#ffbf00','outline':'#8a6500',"
                   "'outlineWidth':2,'opacity':0.5}")
            << "marker shape 5 size 14 #ffbf00 outline #8a6500 2 opacity 0.5";
        QTest::newRow("cased dashed line")
            << json(
                   "{'kind':'line','width':3,'color':'#ff0000','dash':'DashDot','casingWidth':1.5,"
                   "'casingColor':'#000000'}")
            << "line dash 3 width 3 #ff0000 casing 1.5 #000000 opacity 1";
        QTest::newRow("hatched fill")
            << json(
                   "{'kind':'fill','pattern':'diagonalcross','color':'#00ff00','outline':'#0000ff',"
                   "'outlineWidth':0}")
            << "fill pattern 7 #00ff00 outline #0000ff 0 opacity 1";
        QTest::newRow("missing values keep the defaults")
            << json("{'kind':'fill'}") << "fill pattern 0 #505050 outline #282828 1 opacity 1";
        QTest::newRow("unknown names keep the defaults")
            << json("{'kind':'marker','shape':'hexagon','color':'no colour'}")
            << "marker shape 0 size 6 #505050 outline #282828 1 opacity 1";
        QTest::newRow("unknown kind") << json("{'kind':'text'}") << "null";
    }
    void styleFromJson() {
        QFETCH(QByteArray, text);
        QTEST(describeJson(text), "style");
    }

    void hostSymbols_data() {
        HOAddColumns<QByteArray, bool, int, QString>({"content", "ok", "addedMarkers", "error"});
        QTest::newRow("two symbols")
            << json(
                   "{'symbols':[ {'kind':'marker','name':'Well','shape':'triangle','color':'#0000ff'}, "
                   "{'kind':'fill','name':'Paddy','pattern':'horizontal'}, "
                   "{'kind':'unknown','name':'skipped'}]}")
            << true << 1 << "";
        QTest::newRow("not JSON") << QByteArray("symbols: well") << false << 0 << "cannot read";
        QTest::newRow("no list of symbols") << json("{'markers':[]}") << false << 0 << "no list of symbols";
        QTest::newRow("no file") << QByteArray() << false << 0 << "cannot open";
    }
    void hostSymbols() {
        QFETCH(QByteArray, content);
        QFETCH(bool, ok);
        QFETCH(int, addedMarkers);
        QFETCH(QString, error);
        QTemporaryDir dir;
        const QString path = dir.filePath("host.json");
        if (!content.isEmpty()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        HXStyleLibrary& library = HXStyleLibrary::instance();
        const auto before = library.symbols(HOStyle::MarkerStyle).size();
        QString message;
        QCOMPARE(library.addSymbols(path, &message), ok);
        QVERIFY2(message.contains(error) && (ok || message.contains(path)), qPrintable(message));
        const auto after = library.symbols(HOStyle::MarkerStyle);
        QCOMPARE(int(after.size() - before), addedMarkers);
        if (addedMarkers) QCOMPARE(after.back().name, QString("Well"));
    }

    // The test picks a symbol by clicking it, edits it through the widgets and presses OK or Cancel.
    void pickThroughDialog_data() {
        QTest::addColumn<Pick>("pick");
        const auto row = [](const char* tag, HOStyle::StyleType type, int row, int pattern, const char* edits,
                            const char* color, bool accept, const char* style) {
            QTest::newRow(tag) << Pick{type, row, pattern, edits, color, accept, style};
        };
        row("marker as it is", HOStyle::MarkerStyle, 0, -1, "", "", true,
            "marker shape 0 size 8 #d7191c outline #7f0000 1 opacity 1");
        row("marker edited", HOStyle::MarkerStyle, 2, HOStyle::Star,
            "mSizeSpin=20 mOutlineWidthSpin=2 mOpacitySpin=50", "#00ffff", true,
            "marker shape 5 size 20 #00ffff outline #0b4a1f 2 opacity 0.5");
        row("cased line, dashed and wider", HOStyle::LineStyle, 10, HOStyle::Dash,
            "mSizeSpin=6 mOutlineWidthSpin=2", "", true,
            "line dash 1 width 6 #fdae61 casing 2 #7f4a00 opacity 1");
        row("fill hatched and translucent", HOStyle::FillStyle, 1, HOStyle::CrossHatch,
            "mOutlineWidthSpin=0 mOpacitySpin=30", "#123456", true,
            "fill pattern 4 #123456 outline #33a02c 0 opacity 0.3");
        row("cancelled", HOStyle::FillStyle, 3, 2, "mOpacitySpin=10", "", false, "null");
    }
    void pickThroughDialog() {
        QFETCH(Pick, pick);
        const auto symbol = [&] {
            return HXStyleLibrary::instance().symbols(pick.type)[std::size_t(pick.row)];
        };
        const QString libraryBefore = describe(symbol().style.get());
        HXModalAnswer<HXStylePickerDialog> driver([&](HXStylePickerDialog* dialog) {
            auto* list = child<QListWidget>(dialog, "mSymbolList");
            list->scrollToItem(list->item(pick.row));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(pick.row)).center());
            if (pick.pattern >= 0) child<QComboBox>(dialog, "mPatternCombo")->setCurrentIndex(pick.pattern);
            for (const QString& edit : pick.edits.split(' ', Qt::SkipEmptyParts))
                typeInto(child<QAbstractSpinBox>(dialog, edit.section('=', 0, 0)), edit.section('=', 1));
            if (!pick.color.isEmpty()) {
                HXModalAnswer<QColorDialog> colorDriver([&](QColorDialog* colors) {
                    colors->setCurrentColor(QColor(pick.color));
                    colors->accept();
                });
                QTest::mouseClick(child<HXColorBtn>(dialog, "mColorButton"), Qt::LeftButton);
                QVERIFY2(colorDriver.answered, "the colour dialog did not open");
            }
            saveScreenshot(dialog, QString("stylepicker-%1").arg(pick.type));
            QTest::mouseClick(child<QDialogButtonBox>(dialog, "mButtonBox")
                                  ->button(pick.accept ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel),
                              Qt::LeftButton);
        });
        const HORefPtr<HOStyle> chosen(selectStyle(pick.type));
        QVERIFY2(driver.answered, "the picker did not open");
        QCOMPARE(describe(chosen.get()), pick.style);
        // The library's symbol is a template: editing the choice leaves it as it was.
        QCOMPARE(describe(symbol().style.get()), libraryBefore);
    }

    void previewFollowsEdits_data() {
        QTest::addColumn<HOStyle::StyleType>("type");
        QTest::newRow("marker") << HOStyle::MarkerStyle;
        QTest::newRow("fill") << HOStyle::FillStyle;
    }
    void previewFollowsEdits() {
        QFETCH(HOStyle::StyleType, type);
        HXStylePickerDialog dialog(type, nullptr);
        auto* preview = child<QLabel>(&dialog, "mPreview");
        auto centre = [&] {
            const QImage image = preview->pixmap(Qt::ReturnByValue).toImage();
            return image.pixelColor(image.width() / 2, image.height() / 2);
        };
        child<HXColorBtn>(&dialog, "mColorButton")->setColor(QColor(0, 200, 0));
        QCOMPARE(centre(), QColor(0, 200, 0));
        typeInto(child<QSpinBox>(&dialog, "mOpacitySpin"), "0");
        QCOMPARE(centre().alpha(), 0);
    }
};

QTEST_MAIN(TestStylePicker)
#include "tst_stylepicker.moc"
