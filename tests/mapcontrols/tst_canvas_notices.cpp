// What a tool says through the canvas: tips beside the mouse, notices across the map, the host's
// command line, and the file prompts with their remembered directory.
#include <QApplication>
#include <QFileDialog>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTimer>
#include <QtTest>
#include <functional>

#include "HORecordingCommandControl.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXTooltip.h"

using namespace HXObjects;

namespace {

// Answers the next file dialog once it is up: records its directory, then selects the given file
// names (relative to `dir`) and accepts, or rejects when there are none.
class FileDialogAnswer {
public:
    FileDialogAnswer(const QString& dir, const QStringList& names) : mDir(dir), mNames(names) {
        QTimer::singleShot(0, [this] { answer(); });
    }
    QString shownDirectory;

private:
    void answer() {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            QTimer::singleShot(10, [this] { answer(); });
            return;
        }
        shownDirectory = dialog->directory().absolutePath();
        if (mNames.isEmpty()) {
            dialog->reject();
            return;
        }
        QStringList quoted;
        for (const QString& name : mNames) quoted << '"' + QDir(mDir).absoluteFilePath(name) + '"';
        dialog->selectFile(quoted.join(' '));
        static_cast<QDialog*>(dialog)->accept();  // QFileDialog::accept is protected
    }
    QString mDir;
    QStringList mNames;
};

}  // namespace

class TestCanvasNotices : public QObject {
    Q_OBJECT

private slots:
    void init();
    void tipWindow();
    void noticeRunsAcrossTheMap();
    void commandLine_data();
    void commandLine();
    void singleFilePrompt_data();
    void singleFilePrompt();
    void multiFilePrompt_data();
    void multiFilePrompt();
    void charsetAndDocumentState();

private:
    QTemporaryDir mDir;
    QString settingsFile() const { return mDir.filePath("hxgis.ini"); }
    QString dataDir() const { return mDir.filePath("data"); }
};

void TestCanvasNotices::init() {
    QVERIFY(mDir.isValid());
    QFile::remove(settingsFile());
    qputenv("HXGIS_SETTINGS_FILE", settingsFile().toLocal8Bit());
    QDir().mkpath(dataDir());
    QDir().mkpath(mDir.filePath("HXSDE30_conn"));
    QDir::setCurrent(mDir.path());
    for (const char* name : {"a.shp", "b.shp"}) {
        QFile file(QDir(dataDir()).filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

void TestCanvasNotices::tipWindow() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    canvas.show();
    QVERIFY(QTest::qWaitForWindowExposed(&canvas));
    canvas.ShowTip(5, 5, "");
    QVERIFY(!canvas.findChild<HXTooltip*>());
    canvas.ShowTip(10, 20, "Click the first corner");
    auto* tip = canvas.findChild<HXTooltip*>();
    QVERIFY(tip);
    QVERIFY(tip->isVisible());
    QCOMPARE(tip->text(), QString("Click the first corner"));
    canvas.ShowTip(10, 20, "");
    QVERIFY(tip->isHidden());
    canvas.ShowTip(30, 40, "Click the second corner");
    QCOMPARE(canvas.findChildren<HXTooltip*>().size(), 1);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&canvas, &leave);
    QVERIFY(tip->isHidden());
}

void TestCanvasNotices::noticeRunsAcrossTheMap() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    QVERIFY(widget);
    canvas.ShowMessage("Layer saved");
    canvas.ShowMessage("Second");
    QMutexLocker lock(&widget->mNoticeMutex);
    QCOMPARE(widget->mNotices.size(), 2);
    const HXNoticeItem* item = widget->mNotices.first();
    QCOMPARE(item->text, QString("Layer saved"));
    QCOMPARE(item->color, QColor(0, 0, 255, 255));
    QCOMPARE(item->x, 0);
    for (const HXNoticeItem* notice : widget->mNotices) {
        QVERIFY2(notice->fraction >= 0.1 && notice->fraction <= 0.496 + 1e-12,
                 qPrintable(QString::number(notice->fraction)));
        // (r mod 100) / 100 * 0.4 + 0.1 takes 100 values 0.004 apart.
        const double steps = (notice->fraction - 0.1) / 0.004;
        QVERIFY(qAbs(steps - qRound(steps)) < 1e-6);
    }
}

void TestCanvasNotices::commandLine_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("call");
    QTest::newRow("notice") << "AddNoticeInfo"
                            << "AddNotice Specify the next point";
    QTest::newRow("edit text") << "SetCmdEditInfo"
                               << "SetEditInfo Specify the next point";
    QTest::newRow("show view") << "ShowCommandView"
                               << "ShowView Specify the next point 1";
    QTest::newRow("focus") << "SetCommandViewFocus"
                           << "SetViewFocus 1";
}

void TestCanvasNotices::commandLine() {
    QFETCH(QString, operation);
    QFETCH(QString, call);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    HORecordingCommandControl control;
    const HOString text("Specify the next point");
    const std::function<void()> operations[] = {
        [&] { canvas.AddNoticeInfo(text); }, [&] { canvas.SetCmdEditInfo(text); },
        [&] { canvas.ShowCommandView(text, nullptr, true); }, [&] { canvas.SetCommandViewFocus(); }};
    const QStringList names{"AddNoticeInfo", "SetCmdEditInfo", "ShowCommandView", "SetCommandViewFocus"};
    const auto& run = operations[names.indexOf(operation)];
    run();  // no command line yet: nothing happens
    canvas.SetCommandControl(&control);
    run();
    QCOMPARE(control.calls, QStringList{call});
}

void TestCanvasNotices::singleFilePrompt_data() {
    // "HXSDE30_conn" exists as a directory under the working directory, so a prompt that took the
    // entry for a directory would visibly open there.
    QTest::addColumn<QString>("remembered");
    QTest::addColumn<QString>("dirArgument");
    QTest::addColumn<bool>("opensAtRemembered");
    QTest::addColumn<QStringList>("choice");
    QTest::newRow("remembered directory") << "directory"
                                          << "/elsewhere" << true << QStringList{"a.shp"};
    QTest::newRow("empty dir argument starts at the default") << "directory"
                                                              << "" << false << QStringList{"a.shp"};
    QTest::newRow("database connection entry") << "HXSDE30_conn"
                                               << "/elsewhere" << false << QStringList{"b.shp"};
    QTest::newRow("remembered, then cancelled") << "directory"
                                                << "/elsewhere" << true << QStringList{};
}

void TestCanvasNotices::singleFilePrompt() {
    QFETCH(QString, remembered);
    QFETCH(QString, dirArgument);
    QFETCH(bool, opensAtRemembered);
    QFETCH(QStringList, choice);
    // A directory of this row's own: no earlier prompt can have left the dialog there.
    const QString rowDir = mDir.filePath(QString("remembered %1").arg(QTest::currentDataTag()));
    QDir().mkpath(rowDir);
    const QString rememberedValue = remembered == "directory" ? rowDir : remembered;
    QSettings(settingsFile(), QSettings::IniFormat).setValue("history/lastOpenFilePath", rememberedValue);
    // The chosen file lives in a directory of its own, so the remembered one visibly changes.
    const QString chosenDir = mDir.filePath("chosen");
    QDir().mkpath(chosenDir);
    for (const QString& name : choice) QFile(QDir(chosenDir).filePath(name)).open(QIODevice::WriteOnly);

    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    FileDialogAnswer answer(chosenDir, choice);
    const HOString path = canvas.getOpenFileName("Open", HOString(dirArgument), "Shapefiles (*.shp)");

    const QString rememberedDir = QFileInfo(rememberedValue).absoluteFilePath();
    QCOMPARE(answer.shownDirectory == rememberedDir, opensAtRemembered);
    const QString expectedPath = choice.isEmpty() ? QString() : QDir(chosenDir).filePath(choice.first());
    QCOMPARE(path.toQString(), expectedPath);
    const QString stored =
        QSettings(settingsFile(), QSettings::IniFormat).value("history/lastOpenFilePath").toString();
    QCOMPARE(stored, choice.isEmpty() ? rememberedValue : chosenDir);
}

void TestCanvasNotices::multiFilePrompt_data() {
    QTest::addColumn<QStringList>("choice");
    QTest::newRow("two files") << QStringList{"a.shp", "b.shp"};
    QTest::newRow("cancelled") << QStringList{};
}

void TestCanvasNotices::multiFilePrompt() {
    QFETCH(QStringList, choice);
    const QString start = mDir.filePath("start");
    QDir().mkpath(start);
    QSettings(settingsFile(), QSettings::IniFormat).setValue("history/lastOpenFilePath", start);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    FileDialogAnswer answer(dataDir(), choice);
    const std::vector<HOString> paths = canvas.getOpenFileNames("Open", "/elsewhere", "All (*)");
    QCOMPARE(int(paths.size()), choice.size());
    for (int i = 0; i < choice.size(); ++i) QCOMPARE(QFileInfo(paths[i].toQString()).fileName(), choice[i]);
    // The start directory is written back, not the directory of the chosen files.
    QSettings settings(settingsFile(), QSettings::IniFormat);
    QCOMPARE(settings.value("history/lastOpenFilePath").toString(), start);
    QCOMPARE(answer.shownDirectory, start);
}

void TestCanvasNotices::charsetAndDocumentState() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    QCOMPARE(canvas.GetCharsetEncoding().toQString(),
             QString::fromLatin1(QTextCodec::codecForLocale()->name()));
    QVERIFY(!canvas.DocStateChanged());
    canvas.SetDocStateChanged();
    QVERIFY(canvas.DocStateChanged());
    canvas.ResetDocState();
    QVERIFY(!canvas.DocStateChanged());
}

QTEST_MAIN(TestCanvasNotices)
#include "tst_canvas_notices.moc"
