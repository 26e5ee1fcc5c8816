#include "AesData.h"

#include "BadArchive.h"
#include "WrongPassword.h"

#include <QtEndian>
#include <array>
#include <new>

namespace {

constexpr qsizetype codeSize = 10; // what is kept of the code's 20 bytes
constexpr qsizetype checkSize = 2;
constexpr qsizetype blockSize = 16;
constexpr qsizetype blocksAtOnce = 256;
constexpr int rounds = 1000;

uchar *writable(QByteArray &bytes)
{
    return reinterpret_cast<uchar *>(bytes.data());
}

const uchar *readable(const QByteArray &bytes)
{
    return reinterpret_cast<const uchar *>(bytes.constData());
}

void require(bool isDone)
{
    if (!isDone)
        throw std::bad_alloc(); // nothing else can go wrong in these calls
}

QByteArray readAll(PackedData &data, qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    if (data.read(bytes.data(), size) < size)
        throw BadArchive{"its data is damaged"};
    return bytes;
}

qsizetype keySizeOf(int strength)
{
    return 8 * (strength + 1);
}

const EVP_CIPHER *cipherOf(int strength)
{
    return strength == 1 ? EVP_aes_128_ecb() : strength == 2 ? EVP_aes_192_ecb() : EVP_aes_256_ecb();
}

} // namespace

AesData::AesData(std::unique_ptr<PackedData> data, qint64 size, int strength, const QByteArray &password)
    : m_data(std::move(data))
    , m_left(size - keySizeOf(strength) / 2 - checkSize - codeSize)
    , m_cipher(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free)
    , m_code(EVP_MD_CTX_new(), EVP_MD_CTX_free)
    , m_codeKey(nullptr, EVP_PKEY_free)
{
    require(m_cipher && m_code);
    if (strength < 1 || strength > 3)
        throw BadArchive{"its encryption is not supported", BadArchive::Unsupported};
    if (m_left < 0)
        throw BadArchive{"its data is damaged"};
    readHead(strength, password);
}

/// A salt, from which the keys are made with the password, and two bytes that check whether it is the right
/// one.
void AesData::readHead(int strength, const QByteArray &password)
{
    const qsizetype keySize = keySizeOf(strength);
    const QByteArray salt = readAll(*m_data, keySize / 2);
    const QByteArray expected = readAll(*m_data, checkSize);
    QByteArray keys(2 * keySize + checkSize, Qt::Uninitialized);
    require(PKCS5_PBKDF2_HMAC_SHA1(password.constData(), int(password.size()), readable(salt),
                                   int(salt.size()), rounds, int(keys.size()), writable(keys)) == 1);
    if (keys.last(checkSize) != expected)
        throw WrongPassword();
    require(EVP_EncryptInit_ex(m_cipher.get(), cipherOf(strength), nullptr, readable(keys), nullptr) == 1);
    m_codeKey.reset(
        EVP_PKEY_new_raw_private_key(EVP_PKEY_HMAC, nullptr, readable(keys) + keySize, std::size_t(keySize)));
    require(m_codeKey &&
            EVP_DigestSignInit(m_code.get(), nullptr, EVP_sha1(), nullptr, m_codeKey.get()) == 1);
}

qsizetype AesData::read(char *to, qsizetype size)
{
    const qsizetype wanted = qsizetype(qMin<qint64>(size, m_left));
    if (m_data->read(to, wanted) < wanted)
        throw BadArchive{"its data is damaged"};
    require(EVP_DigestSignUpdate(m_code.get(), to, std::size_t(wanted)) == 1);
    decrypt(to, wanted);
    m_left -= wanted;
    if (m_left == 0)
        checkEnd();
    return wanted;
}

void AesData::decrypt(char *bytes, qsizetype size)
{
    for (qsizetype i = 0; i < size; ++i) {
        if (m_used == m_keyStream.size())
            fillKeyStream();
        bytes[i] = char(bytes[i] ^ m_keyStream[m_used++]);
    }
}

/// The blocks are counted from 1, the lowest byte first.
void AesData::fillKeyStream()
{
    QByteArray counters(blocksAtOnce * blockSize, '\0');
    for (qsizetype i = 0; i < blocksAtOnce; ++i)
        qToLittleEndian(++m_block, counters.data() + i * blockSize);
    m_keyStream.resize(counters.size());
    int size = 0;
    require(EVP_EncryptUpdate(m_cipher.get(), writable(m_keyStream), &size, readable(counters),
                              int(counters.size())) == 1);
    m_used = 0;
}

void AesData::checkEnd()
{
    if (m_isChecked)
        return;
    m_isChecked = true;
    std::array<uchar, EVP_MAX_MD_SIZE> code = {};
    std::size_t size = code.size();
    require(EVP_DigestSignFinal(m_code.get(), code.data(), &size) == 1);
    if (readAll(*m_data, codeSize) != QByteArrayView(reinterpret_cast<char *>(code.data()), codeSize))
        throw BadArchive{"its data is damaged"};
}
