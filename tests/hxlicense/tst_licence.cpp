// Licence files as the library judges them: what each kind of damage or misuse comes out as, what the
// queries answer for the licence held, and the hxlicense tool from key pair to verdict.
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "HXLicense.h"
#include "HXLicenseFile.h"
#include "HXLicenseKey.h"

Q_DECLARE_METATYPE(HXLicenseStatus)

namespace {

HXLicenseInfo Grant(int daysLeft, const QString& machine = QString()) {
    HXLicenseInfo info;
    info.licensee = "Acme Survey Ltd";
    info.issued = QDate::currentDate().addDays(-10);
    info.expires = QDate::currentDate().addDays(daysLeft);
    info.features = QStringList{"print", "edit"};
    info.machine = machine;
    return info;
}

QByteArray Replaced(QByteArray text, const QByteArray& from, const QByteArray& to) {
    return from.isEmpty() ? text : text.replace(from, to);
}

}  // namespace

class TestLicence : public QObject {
    Q_OBJECT

    // Test keys, made fresh for this run; neither is the key the library ships with.
    HXLicenseKey mIssuer = HXLicenseKey::generate();
    HXLicenseKey mStranger = HXLicenseKey::generate();

private slots:
    void initTestCase() {
        QVERIFY(mIssuer.isPrivate() && mStranger.isPrivate());
        QVERIFY(HXLicense::setTrustedPublicKey(mIssuer.publicKeyPem()));
    }

    void init() { HXLicense::reset(); }

    void verdict_data() {
        QTest::addColumn<int>("daysLeft");
        QTest::addColumn<QString>("machine");
        QTest::addColumn<bool>("signedByStranger");
        QTest::addColumn<QByteArray>("from");  // text replaced in the issued licence, if any
        QTest::addColumn<QByteArray>("to");
        QTest::addColumn<int>("keepBytes");  // -1: the whole text
        QTest::addColumn<HXLicenseStatus>("expected");
        const QString here = HXLicense::machineId();
        using S = HXLicenseStatus;
        const QByteArray none;
        QTest::newRow("valid") << 30 << "" << false << none << none << -1 << S::Valid;
        QTest::newRow("last valid day") << 0 << "" << false << none << none << -1 << S::Valid;
        QTest::newRow("expired yesterday") << -1 << "" << false << none << none << -1 << S::Expired;
        QTest::newRow("bound to this machine") << 30 << here << false << none << none << -1 << S::Valid;
        QTest::newRow("bound to another machine")
            << 30 << "0123abcd" << false << none << none << -1 << S::WrongMachine;
        QTest::newRow("CRLF line ends")
            << 30 << "" << false << QByteArray("\n") << QByteArray("\r\n") << -1 << S::Valid;
        QTest::newRow("licensee altered")
            << 30 << "" << false << QByteArray("Acme") << QByteArray("Acne") << -1 << S::BadSignature;
        QTest::newRow("feature added") << 30 << "" << false << QByteArray("\"edit\"")
                                       << QByteArray("\"edit\", \"admin\"") << -1 << S::BadSignature;
        QTest::newRow("expired, date moved on")
            << -1 << "" << false << QDate::currentDate().addDays(-1).toString(Qt::ISODate).toLatin1()
            << QByteArray("2099-12-31") << -1 << S::BadSignature;
        QTest::newRow("signed by an untrusted key")
            << 30 << "" << true << none << none << -1 << S::BadSignature;
        QTest::newRow("truncated in the payload") << 30 << "" << false << none << none << 60 << S::Malformed;
        QTest::newRow("signature cut short") << 30 << "" << false << none << none << -12 << S::Malformed;
        QTest::newRow("signature not base64")
            << 30 << "" << false << QByteArray("ed25519 ") << QByteArray("ed25519 *") << -1 << S::Malformed;
        QTest::newRow("newer format") << 30 << "" << false << QByteArray("licence 1")
                                      << QByteArray("licence 2") << -1 << S::UnsupportedVersion;
        QTest::newRow("no format version")
            << 30 << "" << false << QByteArray("licence 1") << QByteArray("licence x") << -1 << S::Malformed;
        QTest::newRow("empty") << 30 << "" << false << none << none << 0 << S::Malformed;
    }

    void verdict() {
        QFETCH(int, daysLeft);
        QFETCH(QString, machine);
        QFETCH(bool, signedByStranger);
        QFETCH(QByteArray, from);
        QFETCH(QByteArray, to);
        QFETCH(int, keepBytes);
        QFETCH(HXLicenseStatus, expected);
        QByteArray text =
            HXLicenseFile::issue(Grant(daysLeft, machine), signedByStranger ? mStranger : mIssuer);
        QVERIFY(!text.isEmpty());
        text = Replaced(text, from, to);
        if (keepBytes >= 0) text.truncate(keepBytes);
        if (keepBytes < -1) text.chop(-keepBytes);
        QString error;
        QCOMPARE(HXLicense::initializeFromText(text, &error), expected);
        QCOMPARE(HXLicense::status(), expected);
        QCOMPARE(error.isEmpty(), expected == HXLicenseStatus::Valid);
        QCOMPARE(HXLicense::isValid(), expected == HXLicenseStatus::Valid);
    }

    // Random bytes, and a licence-shaped text whose payload is signed but is not a licence.
    void garbage() {
        QByteArray noise(4096, Qt::Uninitialized);
        for (char& c : noise) c = char(QRandomGenerator::global()->generate());
        QCOMPARE(HXLicense::initializeFromText(noise), HXLicenseStatus::Malformed);
        HXLicenseInfo nobody = Grant(30);
        nobody.licensee.clear();
        QString error;
        QCOMPARE(HXLicense::initializeFromText(HXLicenseFile::issue(nobody, mIssuer), &error),
                 HXLicenseStatus::Malformed);
        QVERIFY2(error.contains("licensee"), qPrintable(error));
    }

    void queriesAnswerForTheLicenceHeld() {
        QCOMPARE(HXLicense::status(), HXLicenseStatus::Absent);
        QVERIFY(!HXLicense::hasFeature("print"));
        QTemporaryDir dir;
        QFile file(dir.filePath("site.lic"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(HXLicenseFile::issue(Grant(30), mIssuer));
        file.close();
        QCOMPARE(HXLicense::initialize(file.fileName()), HXLicenseStatus::Valid);
        QCOMPARE(HXLicense::info().licensee, QString("Acme Survey Ltd"));
        QCOMPARE(HXLicense::info().expires, QDate::currentDate().addDays(30));
        QVERIFY(HXLicense::hasFeature("edit"));
        QVERIFY(!HXLicense::hasFeature("admin"));

        // A failed load replaces the licence held before.
        QString error;
        QCOMPARE(HXLicense::initialize(dir.filePath("missing.lic"), &error), HXLicenseStatus::Absent);
        QVERIFY2(error.contains("missing.lic"), qPrintable(error));
        QVERIFY(!HXLicense::hasFeature("edit"));
    }

    void trustedKeyIsAPublicEd25519Key() {
        const QByteArray trusted = HXLicense::trustedPublicKey();
        QVERIFY(
            !HXLicense::setTrustedPublicKey("-----BEGIN PUBLIC KEY-----\nAAAA\n-----END PUBLIC KEY-----\n"));
        QVERIFY(!HXLicense::setTrustedPublicKey(mStranger.privateKeyPem()));
        QCOMPARE(HXLicense::trustedPublicKey(), trusted);
        // The key compiled in trusts neither test key.
        QVERIFY(HXLicense::setTrustedPublicKey(QByteArray()));
        QCOMPARE(HXLicense::initializeFromText(HXLicenseFile::issue(Grant(30), mIssuer)),
                 HXLicenseStatus::BadSignature);
        QVERIFY(HXLicense::setTrustedPublicKey(trusted));
    }

    // keygen -> issue -> verify with the tool, then the same licence altered.
    void toolEndToEnd() {
        QTemporaryDir dir;
        const auto run = [&](const QStringList& args) {
            QProcess tool;
            tool.start(HX_LICENSE_TOOL, args);
            if (!tool.waitForFinished(60000)) return -1;
            return tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
        };
        const QString key = dir.filePath("issuer.pem"), pub = dir.filePath("issuer.pub"),
                      lic = dir.filePath("site.lic");
        QCOMPARE(run({"keygen", key, pub}), 0);
        QCOMPARE(QFile(key).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        QCOMPARE(run({"keygen", key, pub}), 1);  // never over an existing private key
        QCOMPARE(run({"issue", "--key", key, "--licensee", "Acme", "--expires", "2099-12-31", "--feature",
                      "print", lic}),
                 0);
        QCOMPARE(run({"issue", "--key", pub, "--licensee", "Acme", "--expires", "2099-12-31", lic}), 1);
        QCOMPARE(run({"verify", "--key", pub, lic}), 0);
        QFile file(lic);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray altered = file.readAll().replace("2099-12-31", "2199-12-31");
        file.resize(0);
        file.write(altered);
        file.close();
        QCOMPARE(run({"verify", "--key", pub, lic}), 1);
    }
};

QTEST_GUILESS_MAIN(TestLicence)
#include "tst_licence.moc"
