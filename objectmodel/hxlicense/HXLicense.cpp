#include "HXLicense.h"

#include <QCoreApplication>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QSysInfo>

#include "HXLicenseFile.h"
#include "HXLicenseKey.h"
#include "HXLicenseVendorKey.h"

namespace {

struct LicenseState {
    QMutex mutex;
    HXLicenseKey trustedKey = HXLicenseKey::fromPem(QByteArray(kVendorPublicKeyPem));
    // The verdict of the load: Valid means authentic and for this machine; expiry is judged per query.
    HXLicenseStatus loaded = HXLicenseStatus::Absent;
    HXLicenseInfo info;
};

LicenseState& state() {
    static LicenseState licence;
    return licence;
}

HXLicenseKey trustedKey() {
    QMutexLocker lock(&state().mutex);
    return state().trustedKey;
}

HXLicenseStatus store(HXLicenseStatus loaded, const HXLicenseInfo& info) {
    QMutexLocker lock(&state().mutex);
    state().loaded = loaded;
    state().info = info;
    return loaded;
}

HXLicenseStatus judge(HXLicenseStatus loaded, const HXLicenseInfo& info) {
    if (loaded == HXLicenseStatus::Valid && QDate::currentDate() > info.expires)
        return HXLicenseStatus::Expired;
    return loaded;
}

}  // namespace

namespace HXLicense {

HXLicenseStatus initialize(const QString& path, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QCoreApplication::translate("HXLicense", "cannot read '%1': %2")
                         .arg(path, file.errorString());
        return store(HXLicenseStatus::Absent, HXLicenseInfo());
    }
    return initializeFromText(file.readAll(), error);
}

HXLicenseStatus initializeFromText(const QByteArray& text, QString* error) {
    HXLicenseInfo read;
    HXLicenseStatus loaded = HXLicenseFile::read(text, trustedKey(), &read, error);
    if (loaded == HXLicenseStatus::Valid && !read.machine.isEmpty() && read.machine != machineId()) {
        loaded = HXLicenseStatus::WrongMachine;
        if (error)
            *error = QCoreApplication::translate("HXLicense", "the licence is bound to machine %1")
                         .arg(read.machine);
    }
    const HXLicenseStatus verdict = judge(store(loaded, read), read);
    if (verdict == HXLicenseStatus::Expired && error)
        *error = QCoreApplication::translate("HXLicense", "the licence expired on %1")
                     .arg(read.expires.toString(Qt::ISODate));
    return verdict;
}

void reset() {
    store(HXLicenseStatus::Absent, HXLicenseInfo());
}

HXLicenseStatus status() {
    QMutexLocker lock(&state().mutex);
    return judge(state().loaded, state().info);
}

bool isValid() {
    return status() == HXLicenseStatus::Valid;
}

bool hasFeature(const QString& feature) {
    return isValid() && info().features.contains(feature);
}

HXLicenseInfo info() {
    QMutexLocker lock(&state().mutex);
    return state().info;
}

QString statusText(HXLicenseStatus status) {
    switch (status) {
        case HXLicenseStatus::Valid:
            return QCoreApplication::translate("HXLicense", "Valid licence");
        case HXLicenseStatus::Absent:
            return QCoreApplication::translate("HXLicense", "No licence");
        case HXLicenseStatus::Malformed:
            return QCoreApplication::translate("HXLicense", "Not a licence file");
        case HXLicenseStatus::UnsupportedVersion:
            return QCoreApplication::translate("HXLicense", "Licence file of an unsupported version");
        case HXLicenseStatus::BadSignature:
            return QCoreApplication::translate("HXLicense", "Licence signature invalid");
        case HXLicenseStatus::WrongMachine:
            return QCoreApplication::translate("HXLicense", "Licence bound to another machine");
        case HXLicenseStatus::Expired:
            return QCoreApplication::translate("HXLicense", "Licence expired");
    }
    return QString();
}

bool setTrustedPublicKey(const QByteArray& pem) {
    const HXLicenseKey key = HXLicenseKey::fromPem(pem.isEmpty() ? QByteArray(kVendorPublicKeyPem) : pem);
    if (key.isNull() || key.isPrivate()) return false;
    QMutexLocker lock(&state().mutex);
    state().trustedKey = key;
    return true;
}

QByteArray trustedPublicKey() {
    return trustedKey().publicKeyPem();
}

QString machineId() {
    return QString::fromLatin1(QSysInfo::machineUniqueId());
}

}  // namespace HXLicense
