#pragma once
// HXLicenseFile: the licence file's text form, version 1:
//
//     HXMapControls licence 1
//     { ...the payload, indented JSON... }
//     signature ed25519 <base64 of the 64-byte signature>
//
// The signature covers every line above the signature line, each ended by a line feed (carriage
// returns are dropped first, so a file that went through a Windows editor still verifies). Reading
// checks the form and the signature before it trusts a byte of the payload.
#include <QByteArray>

#include "HXLicenseInfo.h"
#include "HXLicenseKey.h"
#include "HXLicenseStatus.h"

class HXLicenseFile {
public:
    static constexpr int kVersion = 1;

    // The text of a licence granting info, signed with privateKey; empty when the key cannot sign.
    static QByteArray issue(const HXLicenseInfo& info, const HXLicenseKey& privateKey);

    // Checks form, version and signature against trustedKey and reads the payload into info. Returns
    // Valid, Malformed, UnsupportedVersion or BadSignature; expiry and machine are the caller's to judge.
    static HXLicenseStatus read(const QByteArray& text, const HXLicenseKey& trustedKey, HXLicenseInfo* info,
                                QString* error);
};
