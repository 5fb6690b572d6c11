// hxlicense: the licence issuer's tool.
//   hxlicense keygen PRIVATE.pem PUBLIC.pem
//   hxlicense issue --key PRIVATE.pem --licensee NAME --expires YYYY-MM-DD [--feature F]... [--machine ID]
//   OUT hxlicense verify --key PUBLIC.pem FILE hxlicense machine-id
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include "HXLicense.h"
#include "HXLicenseFile.h"
#include "HXLicenseKey.h"

namespace {

QTextStream& err() {
    static QTextStream stream(stderr);
    return stream;
}

int fail(const QString& message, int code = 1) {
    err() << "hxlicense: " << message << Qt::endl;
    return code;
}

bool readFile(const QString& path, QByteArray* contents) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    *contents = file.readAll();
    return true;
}

// A private key is written readable by its owner only, and never over an existing file.
bool writeFile(const QString& path, const QByteArray& contents, bool secret) {
    QFile file(path);
    if (secret && file.exists()) return false;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    if (secret) file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return file.write(contents) == contents.size() && file.flush();
}

HXLicenseKey readKey(const QString& path, QString* error) {
    QByteArray pem;
    if (!readFile(path, &pem)) {
        *error = QString("cannot read '%1'").arg(path);
        return HXLicenseKey();
    }
    const HXLicenseKey key = HXLicenseKey::fromPem(pem, error);
    if (key.isNull()) *error = QString("'%1': %2").arg(path, *error);
    return key;
}

int keygen(const QStringList& args) {
    if (args.size() != 2) return fail("keygen needs PRIVATE.pem PUBLIC.pem", 2);
    const HXLicenseKey key = HXLicenseKey::generate();
    if (key.isNull()) return fail("cannot generate an Ed25519 key");
    if (!writeFile(args[0], key.privateKeyPem(), true))
        return fail(QString("cannot write '%1' (it must not exist yet)").arg(args[0]));
    if (!writeFile(args[1], key.publicKeyPem(), false))
        return fail(QString("cannot write '%1'").arg(args[1]));
    return 0;
}

int issue(const QCommandLineParser& parser, const QStringList& args) {
    if (args.size() != 1) return fail("issue needs one output file", 2);
    QString error;
    const HXLicenseKey key = readKey(parser.value("key"), &error);
    if (key.isNull()) return fail(error);
    if (!key.isPrivate()) return fail(QString("'%1' is not a private key").arg(parser.value("key")));
    HXLicenseInfo info;
    info.licensee = parser.value("licensee");
    info.issued = QDate::currentDate();
    info.expires = QDate::fromString(parser.value("expires"), Qt::ISODate);
    info.features = parser.values("feature");
    info.machine = parser.value("machine");
    if (info.licensee.isEmpty()) return fail("--licensee is required", 2);
    if (!info.expires.isValid()) return fail("--expires needs a date YYYY-MM-DD", 2);
    if (!writeFile(args[0], HXLicenseFile::issue(info, key), false))
        return fail(QString("cannot write '%1'").arg(args[0]));
    return 0;
}

int verify(const QCommandLineParser& parser, const QStringList& args) {
    if (args.size() != 1) return fail("verify needs one licence file", 2);
    if (parser.isSet("key")) {
        QByteArray pem;
        if (!readFile(parser.value("key"), &pem) || !HXLicense::setTrustedPublicKey(pem))
            return fail(QString("'%1' is not an Ed25519 public key").arg(parser.value("key")));
    }
    QString error;
    const HXLicenseStatus status = HXLicense::initialize(args[0], &error);
    QTextStream(stdout) << HXLicense::statusText(status) << (error.isEmpty() ? QString() : ": " + error)
                        << Qt::endl;
    return status == HXLicenseStatus::Valid ? 0 : 1;
}

}  // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Makes licence keys and issues signed HXMapControls licence files.");
    parser.addHelpOption();
    parser.addPositionalArgument("command", "keygen | issue | verify | machine-id");
    parser.addOptions({{"key", "Private key (issue) or public key (verify), PEM.", "file"},
                       {"licensee", "Who holds the licence.", "name"},
                       {"expires", "Last valid day, YYYY-MM-DD.", "date"},
                       {"feature", "A feature the licence grants (repeatable).", "name"},
                       {"machine", "Bind the licence to this machine id (see machine-id).", "id"}});
    parser.process(app);
    QStringList args = parser.positionalArguments();
    const QString command = args.isEmpty() ? QString() : args.takeFirst();
    if (command == "keygen") return keygen(args);
    if (command == "issue") return issue(parser, args);
    if (command == "verify") return verify(parser, args);
    if (command == "machine-id") {
        QTextStream(stdout) << HXLicense::machineId() << Qt::endl;
        return 0;
    }
    return fail("unknown command; see --help", 2);
}
