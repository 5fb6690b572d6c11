// Settings location and the compiled-in image theme.
#include <QApplication>
#include <QtTest>

#include "HXApplication.h"

namespace {

double coveredFraction(const QImage& image) {
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) covered += qAlpha(image.pixel(x, y)) > 0;
    return double(covered) / (image.width() * image.height());
}

}  // namespace

class TestHXApplication : public QObject {
    Q_OBJECT
private slots:
    void settingsFileFollowsEnvironment();
    void settingsFileDefaultsToConfigFolder();
    void themeImages_data();
    void themeImages();
    void unknownThemeImage_data();
    void unknownThemeImage();
};

void TestHXApplication::settingsFileFollowsEnvironment() {
    const QByteArray saved = qgetenv("HXGIS_SETTINGS_FILE");
    qputenv("HXGIS_SETTINGS_FILE", "/tmp/elsewhere/test.ini");
    QCOMPARE(HXApplication::hxgisSettingsFilePath(), QStringLiteral("/tmp/elsewhere/test.ini"));
    qputenv("HXGIS_SETTINGS_FILE", saved);
}

void TestHXApplication::settingsFileDefaultsToConfigFolder() {
    const QByteArray saved = qgetenv("HXGIS_SETTINGS_FILE");
    qunsetenv("HXGIS_SETTINGS_FILE");
    const QString path = HXApplication::hxgisSettingsFilePath();
    qputenv("HXGIS_SETTINGS_FILE", saved);
    QVERIFY2(path.endsWith(QStringLiteral("/hxgis/hxgis.ini")), qPrintable(path));
    QVERIFY(QDir::isAbsolutePath(path));
}

void TestHXApplication::themeImages_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("minimumSide");
    for (const char* cursor :
         {"zoom-in.png", "zoom-out.png", "mActionRotatePointSymbols.png", "Identify.png"})
        QTest::newRow(cursor) << QString::fromLatin1(cursor) << 32;
    for (const char* message : {"/mIconInfo.png", "/mIconWarning.svg", "/mIconCritical.png",
                                "/mIconSuccess.png", "mIconTimerPause.png"})
        QTest::newRow(message) << QString::fromLatin1(message) << 24;
    QTest::newRow("leading slash optional") << QStringLiteral("mIconInfo.png") << 24;
}

// Every name the canvas and the message bar ask for must give a visible image.
void TestHXApplication::themeImages() {
    QFETCH(QString, name);
    QFETCH(int, minimumSide);
    const QPixmap pixmap = HXApplication::getThemePixmap(name);
    QVERIFY(!pixmap.isNull());
    QVERIFY(pixmap.width() >= minimumSide && pixmap.height() >= minimumSide);
    QVERIFY2(coveredFraction(pixmap.toImage()) > 0.1, "image is (nearly) blank");
    const QIcon icon = HXApplication::getThemeIcon(name);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.pixmap(16).size(), QSize(16, 16));
    QVERIFY(HXApplication::getThemeFilePath(name).startsWith(QLatin1Char(':')));
}

void TestHXApplication::unknownThemeImage_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << QStringLiteral("no-such-icon.png");
    QTest::newRow("empty") << QString();
    QTest::newRow("root only") << QStringLiteral("/");
}

void TestHXApplication::unknownThemeImage() {
    QFETCH(QString, name);
    QVERIFY(HXApplication::getThemePixmap(name).isNull());
    QVERIFY(HXApplication::getThemeIcon(name).isNull());
    QVERIFY(HXApplication::getThemeFilePath(name).isEmpty());
}

QTEST_MAIN(TestHXApplication)
#include "tst_hxapplication.moc"
