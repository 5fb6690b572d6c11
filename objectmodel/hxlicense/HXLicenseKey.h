#pragma once
// HXLicenseKey: an Ed25519 key through OpenSSL's libcrypto, as a public key that verifies licence
// signatures or as a private key that makes them. Keys travel as PEM text (SubjectPublicKeyInfo for
// public keys, PKCS#8 for private ones). A null key (default-constructed, or a failed read) verifies
// nothing and signs nothing. The key owns its libcrypto object; copies share it.
#include <QByteArray>
#include <QString>
#include <memory>

struct evp_pkey_st;

class HXLicenseKey {
public:
    HXLicenseKey() = default;

    // A new random key pair.
    static HXLicenseKey generate();
    // The key in a PEM text, public or private; null when the text holds no Ed25519 key.
    static HXLicenseKey fromPem(const QByteArray& pem, QString* error = nullptr);

    bool isNull() const;
    bool isPrivate() const;
    QByteArray publicKeyPem() const;
    // Empty for a public-only key.
    QByteArray privateKeyPem() const;

    // The 64-byte signature of message; empty for a null or public-only key.
    QByteArray sign(const QByteArray& message) const;
    bool verify(const QByteArray& message, const QByteArray& signature) const;

private:
    explicit HXLicenseKey(evp_pkey_st* key, bool isPrivate);

    std::shared_ptr<evp_pkey_st> mKey;
    bool mPrivate = false;
};
