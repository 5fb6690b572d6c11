// Typed point input from the control-point tool's context menu: the X/Y and the degrees-minutes-
// seconds dialogs as a person sees them, and the point each hands to the current tool when typed,
// accepted, cancelled or left empty.
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "CcurrencyFunc.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HXInputCanvas.h"
#include "HXModalAnswer.h"

using namespace HXObjects;

namespace {

const char* const kXY = "Input X and Y";
const char* const kDMS = "Input DMS data";

QString Rich(const QString& text) {
    return "<html><head/><body><p>" + text + "</p></body></html>";
}

class HOPointTool : public HORecordingTool {
public:
    HOPointTool() : HORecordingTool("HXObjects::HOToolAddControlPoint") {}
    QList<HOPoint> points;
    void AddPoint(const HOPoint& point) override { points << point; }
};

// Types "objectName=text" entries into the dialog's line edits with key clicks; returns the last
// edit typed into.
QWidget* Type(QDialog* dialog, const QStringList& fields) {
    QWidget* last = dialog;
    for (const QString& field : fields) {
        const QString name = field.section('=', 0, 0);
        auto* edit = dialog->findChild<QLineEdit*>(name);
        if (!edit) qFatal("no line edit %s", qPrintable(name));
        QTest::keyClicks(edit, field.section('=', 1));
        last = edit;
    }
    return last;
}

// Closes the dialog the way a person does: "ok" and "cancel" click the buttons, "return" is pressed
// in the edit last typed into, "close" is the window's close button.
void Finish(QDialog* dialog, const QString& how, QWidget* typedInto) {
    auto* buttons = dialog->findChild<QDialogButtonBox*>("mButtonBox");
    if (how == "ok") QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    if (how == "cancel") QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    if (how == "return") QTest::keyClick(typedInto, Qt::Key_Return);
    if (how == "close") dialog->close();
}

// A map canvas whose current tool is a control-point tool recording the points it gets.
struct PointInputCanvas {
    PointInputCanvas() { fixture.canvas.setMapTool(tool); }
    // Chooses `entry` in the tool's context menu and answers the dialog it opens; false when none did.
    bool choose(const QString& entry, std::function<void(QDialog*)> answer) {
        HXModalAnswer<QDialog> modal(std::move(answer));
        HXPopupAnswer menu(entry);
        fixture.canvas.OnContextMenu(10, 10);
        return modal.answered;
    }
    HXInputCanvas fixture{HXMapCanvas::MapViewMode};
    HORefPtr<HOPointTool> tool = new HOPointTool;
};

}  // namespace

class TestDialogPointInput : public QObject {
    Q_OBJECT

private slots:
    // What each dialog shows: title, window flags, rich-text labels and its plain line edits.
    void form_data() {
        // labels: objectName=text
        HOAddColumns<QString, QString, QStringList, QStringList>({"entry", "title", "labels", "edits"});
        QTest::newRow("X and Y") << kXY << "Enter Coordinates"
                                 << QStringList{"mLabelX=" + Rich("X:"), "mLabelY=" + Rich("Y:")}
                                 << QStringList{"mLineEditX", "mLineEditY"};
        QTest::newRow("DMS") << kDMS << "Enter Coordinate DMS"
                             << QStringList{"mLabelLongitude=" + Rich("Longitude:"),
                                            "mLabelLatitude=" + Rich("Latidude:"),
                                            "mLabelDegree=" + Rich("Degree"),
                                            "mLabelMinute=" + Rich("Minute"),
                                            "mLabelSecond=" + Rich("Second")}
                             << QStringList{"mLineEditLonDegree", "mLineEditLonMinute", "mLineEditLonSecond",
                                            "mLineEditLatDegree", "mLineEditLatMinute", "mLineEditLatSecond"};
    }
    void form() {
        QFETCH(QString, entry);
        QFETCH(QStringList, labels);
        QFETCH(QStringList, edits);
        PointInputCanvas s;
        QString seenTitle, seenLabels, seenEdits, seenButtons;
        Qt::WindowFlags flags;
        bool modal = false, parentless = false;
        const bool asked = s.choose(entry, [&](QDialog* dialog) {
            seenTitle = dialog->windowTitle();
            flags = HXWindowButtonFlags(dialog);
            modal = dialog->isModal();
            parentless = !dialog->parentWidget();
            QStringList texts;
            for (const QString& label : labels) {
                auto* widget = dialog->findChild<QLabel*>(label.section('=', 0, 0));
                texts << label.section('=', 0, 0) + "=" + (widget ? widget->text() : "missing");
            }
            seenLabels = texts.join('\n');
            QStringList names;
            for (QLineEdit* edit : dialog->findChildren<QLineEdit*>())
                if (!edit->validator() && edit->text().isEmpty()) names << edit->objectName();
            seenEdits = names.join(' ');
            auto* buttons = dialog->findChild<QDialogButtonBox*>("mButtonBox");
            if (buttons && buttons->orientation() == Qt::Horizontal)
                seenButtons = QString::number(buttons->standardButtons(), 16);
        });
        QVERIFY(asked);
        QTEST(seenTitle, "title");
        QCOMPARE(flags, Qt::Dialog | Qt::WindowCloseButtonHint);
        QVERIFY(modal);
        QVERIFY(parentless);
        QCOMPARE(seenLabels, labels.join('\n'));
        QCOMPARE(seenEdits, edits.join(' '));  // in form order, empty, accepting any text
        QCOMPARE(seenButtons, QString::number(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, 16));
    }

    // The point that reaches the tool. DMS rows give the packed D.MMSS value the dialog must hand to
    // CcurrencyFunc::DmsToDegree for longitude and latitude.
    void typedPoint_data() {
        // typed: objectName=text
        HOAddColumns<QString, QStringList, QString, bool, HOPoint>(
            {"entry", "typed", "finish", "added", "point"});
        auto dms = [](double lon, double lat) {
            return HOPoint(CcurrencyFunc::DmsToDegree(lon), CcurrencyFunc::DmsToDegree(lat));
        };
        const auto row = [](const char* tag, const char* entry, const QStringList& typed, const char* finish,
                            bool added, const HOPoint& point) {
            QTest::newRow(tag) << entry << typed << finish << added << point;
        };
        row("x and y", kXY, {"mLineEditX=4500123.25", "mLineEditY=-37.5"}, "ok", true, {4500123.25, -37.5});
        row("x and y, Return accepts", kXY, {"mLineEditX= 1e3 ", "mLineEditY=2"}, "return", true, {1000, 2});
        row("empty and non-numeric count as 0", kXY, {"mLineEditX=12a", "mLineEditY="}, "ok", true, {0, 0});
        row("no NaN or infinity reaches the tool", kXY, {"mLineEditX=nan", "mLineEditY=-inf"}, "ok", true,
            {0, 0});
        row("x and y, cancelled", kXY, {"mLineEditX=5"}, "cancel", false, {});
        row("x and y, closed", kXY, {"mLineEditX=5"}, "close", false, {});
        row("tool removed while asking", kXY, {"mLineEditX=5"}, "remove tool, ok", false, {});
        const QStringList east{"mLineEditLonDegree=120", "mLineEditLonMinute=30", "mLineEditLonSecond=0",
                               "mLineEditLatDegree=30",  "mLineEditLatMinute=15", "mLineEditLatSecond=36"};
        row("DMS", kDMS, east, "ok", true, dms(120.30, 30.1536));
        row("DMS is 120.5 degrees", kDMS, east.mid(0, 3), "ok", true, {120.5, 0});
        row("negative degrees still add the fractions", kDMS,
            {"mLineEditLonDegree=-120", "mLineEditLonMinute=30", "mLineEditLatDegree=-0"}, "ok", true,
            dms(-119.70, 0));
        row("degrees are truncated toward zero", kDMS,
            {"mLineEditLonDegree=120.9", "mLineEditLatDegree=-30.9", "mLineEditLatSecond=45"}, "ok", true,
            dms(120, -29.9955));
        row("minutes beyond 59 are not refused", kDMS,
            {"mLineEditLonDegree=10", "mLineEditLonMinute=75", "mLineEditLatSecond=4.5"}, "ok", true,
            dms(10.75, 0.00045));
        row("DMS, empty and non-numeric count as 0", kDMS,
            {"mLineEditLonDegree=east", "mLineEditLatMinute=x"}, "return", true, {0, 0});
    }
    void typedPoint() {
        QFETCH(QString, entry);
        QFETCH(QStringList, typed);
        QFETCH(QString, finish);
        QFETCH(bool, added);
        QFETCH(HOPoint, point);
        PointInputCanvas s;
        QVERIFY(s.choose(entry, [&](QDialog* dialog) {
            QWidget* typedInto = Type(dialog, typed);
            if (finish.startsWith("remove tool")) s.fixture.canvas.setMapTool(nullptr);
            Finish(dialog, finish.section(", ", -1), typedInto);
        }));
        QCOMPARE(s.tool->points.size(), added ? 1 : 0);
        if (added) {
            QCOMPARE(s.tool->points[0].x, point.x);
            QCOMPARE(s.tool->points[0].y, point.y);
        }
    }

    // Without a tool the input entries do nothing and open no dialog.
    void noToolAsksNothing() {
        HXInputCanvas fixture(HXMapCanvas::MapViewMode);
        HXModalAnswer<QDialog> answer([](QDialog*) {});
        for (int data : {0, 1, 2}) {
            QAction action(nullptr);
            action.setData(data);
            fixture.canvas.AddPointWithInput(&action);
        }
        fixture.canvas.AddPointWithInput(nullptr);
        QVERIFY(!answer.answered);
    }
};

QTEST_MAIN(TestDialogPointInput)
#include "tst_dialog_pointinput.moc"
