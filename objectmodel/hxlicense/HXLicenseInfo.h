#pragma once
// HXLicenseInfo: what a licence grants, as signed into its payload: who holds it, until when, which
// features, and optionally the one machine it is bound to. A plain value; the JSON form is the payload
// of the licence file (see docs/licence-files.md).
#include <QDate>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include "HXExport.h"

struct HX_EXPORT HXLicenseInfo {
    QString licensee;
    QDate issued;
    // The last day the licence is valid.
    QDate expires;
    QStringList features;
    // Empty: any machine.
    QString machine;

    QJsonObject toJson() const;
    // Null licensee and error set when a required field is missing or of the wrong type.
    static HXLicenseInfo fromJson(const QJsonObject& json, QString* error);
};
