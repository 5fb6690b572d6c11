#include "HXLicenseInfo.h"

#include <QCoreApplication>
#include <QJsonArray>

namespace {

QDate dateField(const QJsonObject& json, const char* name) {
    return QDate::fromString(json.value(QLatin1String(name)).toString(), Qt::ISODate);
}

}  // namespace

QJsonObject HXLicenseInfo::toJson() const {
    QJsonObject json;
    json.insert("licensee", licensee);
    json.insert("issued", issued.toString(Qt::ISODate));
    json.insert("expires", expires.toString(Qt::ISODate));
    json.insert("features", QJsonArray::fromStringList(features));
    json.insert("machine", machine);
    return json;
}

HXLicenseInfo HXLicenseInfo::fromJson(const QJsonObject& json, QString* error) {
    HXLicenseInfo info;
    const QJsonValue features = json.value("features");
    const QString licensee = json.value("licensee").toString();
    info.issued = dateField(json, "issued");
    info.expires = dateField(json, "expires");
    info.machine = json.value("machine").toString();
    QString problem;
    if (licensee.isEmpty())
        problem = QCoreApplication::translate("HXLicense", "no licensee");
    else if (!info.issued.isValid())
        problem = QCoreApplication::translate("HXLicense", "no valid issue date");
    else if (!info.expires.isValid())
        problem = QCoreApplication::translate("HXLicense", "no valid expiry date");
    else if (!features.isArray())
        problem = QCoreApplication::translate("HXLicense", "no feature list");
    if (!problem.isEmpty()) {
        if (error) *error = problem;
        return HXLicenseInfo();
    }
    for (const QJsonValue& feature : features.toArray()) info.features << feature.toString();
    info.licensee = licensee;
    return info;
}
