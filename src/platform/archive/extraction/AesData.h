#pragma once

#include "PackedData.h"

#include <memory>
#include <openssl/evp.h>

/// The data of an entry that is encrypted by AES, decrypted. libzip reads such data too, but takes all stored
/// entries without a checksum for damaged.
class AesData : public PackedData
{
public:
    /// \a data is the entry's, of \a size bytes; \a strength is 1 to 3 for keys of 128, 192 and 256 bits.
    /// Throws WrongPassword where the two bytes that check the password differ, and BadArchive.
    AesData(std::unique_ptr<PackedData> data, qint64 size, int strength, const QByteArray &password);

    /// At the end it checks the code over all data, and throws BadArchive where that does not fit.
    qsizetype read(char *to, qsizetype size) override;

private:
    void readHead(int strength, const QByteArray &password);
    void decrypt(char *bytes, qsizetype size);
    void fillKeyStream();
    void checkEnd();

    std::unique_ptr<PackedData> m_data;
    qint64 m_left; ///< bytes of data before the code
    quint64 m_block = 0;
    bool m_isChecked = false;
    QByteArray m_keyStream;
    qsizetype m_used = 0; ///< of m_keyStream
    std::unique_ptr<EVP_CIPHER_CTX, void (*)(EVP_CIPHER_CTX *)> m_cipher;
    std::unique_ptr<EVP_MD_CTX, void (*)(EVP_MD_CTX *)> m_code;
    std::unique_ptr<EVP_PKEY, void (*)(EVP_PKEY *)> m_codeKey;
};
