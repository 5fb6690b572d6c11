#pragma once
// HXLicense: the process-wide licence, for hosts and for the canvas's licence check. A host loads one
// licence (a file or its text) at start-up; the queries then answer from memory, so they are cheap and
// safe from any thread. The signature is checked once, when the licence is loaded, against the trusted
// public key: the one compiled in (HX_LICENSE_PUBLIC_KEY_FILE at build time) unless the host or a test
// trusts another with setTrustedPublicKey before loading. Expiry is judged against today's date on
// every query, so a licence that runs out while the program runs turns Expired.
#include <QByteArray>
#include <QString>

#include "HXExport.h"
#include "HXLicenseInfo.h"
#include "HXLicenseStatus.h"

namespace HXLicense {

// Reads and verifies the licence file at path; it replaces the licence held before, even when it is
// not valid (a failed load leaves no licence). error receives the reason when the result is not Valid.
HX_EXPORT HXLicenseStatus initialize(const QString& path, QString* error = nullptr);
// The same for a licence's text.
HX_EXPORT HXLicenseStatus initializeFromText(const QByteArray& text, QString* error = nullptr);
// Forgets the licence: status() becomes Absent.
HX_EXPORT void reset();

HX_EXPORT HXLicenseStatus status();
HX_EXPORT bool isValid();
// True when the licence is valid and lists feature.
HX_EXPORT bool hasFeature(const QString& feature);
// What the loaded licence grants (empty when none was read).
HX_EXPORT HXLicenseInfo info();
HX_EXPORT QString statusText(HXLicenseStatus status);

// Trusts the Ed25519 public key in pem (PEM text) for licences loaded from now on; an empty text goes
// back to the key compiled in. False, and nothing changes, when pem holds no Ed25519 public key.
HX_EXPORT bool setTrustedPublicKey(const QByteArray& pem);
HX_EXPORT QByteArray trustedPublicKey();

// This machine's identity as a licence's "machine" field names it.
HX_EXPORT QString machineId();

}  // namespace HXLicense
