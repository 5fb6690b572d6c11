#include "HXLicenseKey.h"

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>

namespace {

using Bio = std::unique_ptr<BIO, decltype(&BIO_free)>;
using DigestContext = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

Bio memoryBio(const QByteArray& data) {
    return Bio(BIO_new_mem_buf(data.constData(), data.size()), &BIO_free);
}

QByteArray bioContents(BIO* bio) {
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return QByteArray(data, int(size));
}

// libcrypto queues its errors per thread; a failure read here must not surface in a later call.
QString lastCryptoError() {
    const unsigned long code = ERR_get_error();
    ERR_clear_error();
    char text[256] = {};
    ERR_error_string_n(code, text, sizeof text);
    return QString::fromLatin1(text);
}

}  // namespace

HXLicenseKey::HXLicenseKey(evp_pkey_st* key, bool isPrivate)
    : mKey(key, &EVP_PKEY_free), mPrivate(isPrivate) {}

HXLicenseKey HXLicenseKey::generate() {
    EVP_PKEY* key = EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519");
    if (!key) {
        ERR_clear_error();
        return HXLicenseKey();
    }
    return HXLicenseKey(key, true);
}

HXLicenseKey HXLicenseKey::fromPem(const QByteArray& pem, QString* error) {
    const bool isPrivate = pem.contains("PRIVATE KEY");
    Bio bio = memoryBio(pem);
    EVP_PKEY* key = isPrivate ? PEM_read_bio_PrivateKey(bio.get(), nullptr, nullptr, nullptr)
                              : PEM_read_bio_PUBKEY(bio.get(), nullptr, nullptr, nullptr);
    if (!key) {
        if (error) *error = QStringLiteral("not a PEM key: %1").arg(lastCryptoError());
        return HXLicenseKey();
    }
    if (EVP_PKEY_get_id(key) != EVP_PKEY_ED25519) {
        EVP_PKEY_free(key);
        if (error) *error = QStringLiteral("not an Ed25519 key");
        return HXLicenseKey();
    }
    return HXLicenseKey(key, isPrivate);
}

bool HXLicenseKey::isNull() const {
    return !mKey;
}

bool HXLicenseKey::isPrivate() const {
    return mKey && mPrivate;
}

QByteArray HXLicenseKey::publicKeyPem() const {
    if (!mKey) return QByteArray();
    Bio bio(BIO_new(BIO_s_mem()), &BIO_free);
    if (!PEM_write_bio_PUBKEY(bio.get(), mKey.get())) return QByteArray();
    return bioContents(bio.get());
}

QByteArray HXLicenseKey::privateKeyPem() const {
    if (!isPrivate()) return QByteArray();
    Bio bio(BIO_new(BIO_s_mem()), &BIO_free);
    if (!PEM_write_bio_PrivateKey(bio.get(), mKey.get(), nullptr, nullptr, 0, nullptr, nullptr))
        return QByteArray();
    return bioContents(bio.get());
}

QByteArray HXLicenseKey::sign(const QByteArray& message) const {
    if (!isPrivate()) return QByteArray();
    DigestContext context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    // Ed25519 hashes internally: one-shot signing with no digest of our own.
    size_t size = 0;
    const auto* data = reinterpret_cast<const unsigned char*>(message.constData());
    if (!context || EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, mKey.get()) != 1 ||
        EVP_DigestSign(context.get(), nullptr, &size, data, size_t(message.size())) != 1) {
        ERR_clear_error();
        return QByteArray();
    }
    QByteArray signature(int(size), Qt::Uninitialized);
    if (EVP_DigestSign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &size, data,
                       size_t(message.size())) != 1) {
        ERR_clear_error();
        return QByteArray();
    }
    return signature;
}

bool HXLicenseKey::verify(const QByteArray& message, const QByteArray& signature) const {
    if (!mKey) return false;
    DigestContext context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    const bool ok =
        context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, mKey.get()) == 1 &&
        EVP_DigestVerify(context.get(), reinterpret_cast<const unsigned char*>(signature.constData()),
                         size_t(signature.size()),
                         reinterpret_cast<const unsigned char*>(message.constData()),
                         size_t(message.size())) == 1;
    ERR_clear_error();
    return ok;
}
