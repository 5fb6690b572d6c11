#include "HXLicenseFile.h"

#include <QJsonDocument>
#include <QList>

namespace {

const QByteArray kHeader = "HXMapControls licence ";
const QByteArray kSignaturePrefix = "signature ed25519 ";
const int kSignatureBytes = 64;

QByteArray headerLine() {
    return kHeader + QByteArray::number(HXLicenseFile::kVersion) + '\n';
}

HXLicenseStatus fail(HXLicenseStatus status, const QString& reason, QString* error) {
    if (error) *error = reason;
    return status;
}

// Lines ended by line feeds, carriage returns dropped, blank lines after the last text line removed.
QList<QByteArray> licenceLines(const QByteArray& text) {
    QList<QByteArray> lines = QByteArray(text).replace('\r', "").split('\n');
    while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
    return lines;
}

QByteArray joinLines(const QList<QByteArray>& lines) {
    QByteArray joined;
    for (const QByteArray& line : lines) joined += line + '\n';
    return joined;
}

}  // namespace

QByteArray HXLicenseFile::issue(const HXLicenseInfo& info, const HXLicenseKey& privateKey) {
    const QByteArray signedPart = headerLine() + QJsonDocument(info.toJson()).toJson(QJsonDocument::Indented);
    const QByteArray signature = privateKey.sign(signedPart);
    if (signature.isEmpty()) return QByteArray();
    return signedPart + kSignaturePrefix + signature.toBase64() + '\n';
}

HXLicenseStatus HXLicenseFile::read(const QByteArray& text, const HXLicenseKey& trustedKey,
                                    HXLicenseInfo* info, QString* error) {
    const QList<QByteArray> lines = licenceLines(text);
    if (lines.isEmpty() || !lines.first().startsWith(kHeader))
        return fail(HXLicenseStatus::Malformed, "not a licence file", error);
    bool numeric = false;
    const int version = lines.first().mid(kHeader.size()).trimmed().toInt(&numeric);
    if (!numeric) return fail(HXLicenseStatus::Malformed, "no format version", error);
    if (version != kVersion)
        return fail(HXLicenseStatus::UnsupportedVersion,
                    QString("format version %1 is not supported").arg(version), error);
    if (lines.size() < 3 || !lines.last().startsWith(kSignaturePrefix))
        return fail(HXLicenseStatus::Malformed, "no signature line (truncated?)", error);

    const auto decoded = QByteArray::fromBase64Encoding(lines.last().mid(kSignaturePrefix.size()).trimmed(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.size() != kSignatureBytes)
        return fail(HXLicenseStatus::Malformed, "the signature is not 64 bytes of base64", error);
    const QList<QByteArray> signedLines = lines.mid(0, lines.size() - 1);
    if (!trustedKey.verify(joinLines(signedLines), decoded.decoded))
        return fail(HXLicenseStatus::BadSignature,
                    "the signature does not match: the licence was altered or signed by an untrusted key",
                    error);

    QJsonParseError parseError;
    const QJsonDocument payload = QJsonDocument::fromJson(joinLines(signedLines.mid(1)), &parseError);
    if (!payload.isObject())
        return fail(HXLicenseStatus::Malformed, "the payload is not a JSON object", error);
    QString fieldError;
    const HXLicenseInfo read = HXLicenseInfo::fromJson(payload.object(), &fieldError);
    if (!fieldError.isEmpty())
        return fail(HXLicenseStatus::Malformed, "the payload has " + fieldError, error);
    if (info) *info = read;
    return HXLicenseStatus::Valid;
}
