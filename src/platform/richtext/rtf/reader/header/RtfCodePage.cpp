#include "RtfCodePage.h"

#include <algorithm>
#include <iconv.h>
#include <map>
#include <unicode/ucnv.h>

namespace {

constexpr int johab = 1361;
constexpr uchar firstHigh = 0x80;

/// Names that do not follow from the number.
const char *specialName(int number)
{
    switch (number) {
    case 874:
        return "windows-874";
    case 932:
    case 10001:
        return "windows-932";
    case 936:
    case 10008:
        return "windows-936";
    case 949:
    case 10003:
        return "windows-949";
    case 950:
    case 10002:
        return "windows-950";
    case 10000:
        return "macintosh";
    case 10006:
        return "x-mac-greek";
    case 10007:
        return "x-mac-cyrillic";
    case 10029:
        return "x-mac-centraleurroman";
    case 10081:
        return "x-mac-turkish";
    case 20866:
        return "KOI8-R";
    case 21866:
        return "KOI8-U";
    case 54936:
        return "gb18030";
    case 65001:
        return "UTF-8";
    default:
        return nullptr;
    }
}

UConverter *open(const QByteArray &name)
{
    UErrorCode error = U_ZERO_ERROR;
    UConverter *converter = ucnv_open(name.constData(), &error);
    return U_SUCCESS(error) ? converter : nullptr;
}

UConverter *openNumber(int number)
{
    if (const char *name = specialName(number))
        return open(name);
    constexpr int firstWindows = 1250;
    constexpr int lastWindows = 1258;
    const bool isWindows = number >= firstWindows && number <= lastWindows;
    UConverter *converter = open((isWindows ? "windows-" : "ibm-") + QByteArray::number(number));
    return converter ? converter : open("windows-" + QByteArray::number(number));
}

/// The old Korean page, which the library of converters lacks.
void appendJohab(QString &text, QByteArrayView bytes)
{
    iconv_t converter = iconv_open("UTF-16LE", "JOHAB");
    if (converter == iconv_t(-1)) {
        text.append(QString(bytes.size(), QChar::ReplacementCharacter));
        return;
    }
    QByteArray input = bytes.toByteArray();
    QString output(input.size() * 2, Qt::Uninitialized);
    char *from = input.data();
    size_t fromLeft = size_t(input.size());
    char *to = reinterpret_cast<char *>(output.data());
    size_t toLeft = size_t(output.size()) * sizeof(QChar);
    while (iconv(converter, &from, &fromLeft, &to, &toLeft) == size_t(-1) && fromLeft > 0 &&
           toLeft >= sizeof(char16_t)) {
        const char16_t unknown = QChar::ReplacementCharacter;
        to = std::copy_n(reinterpret_cast<const char *>(&unknown), sizeof unknown, to);
        toLeft -= sizeof unknown;
        ++from;
        --fromLeft;
    }
    iconv_close(converter);
    text.append(QStringView(output).chopped(qsizetype(toLeft / sizeof(QChar))));
}

} // namespace

const RtfCodePage &RtfCodePage::page(int number)
{
    // Converters keep a state of their own while they work, so no two threads share one.
    static thread_local std::map<int, std::unique_ptr<RtfCodePage>> pages;
    const auto known = pages.find(number);
    if (known != pages.end())
        return *known->second;
    std::unique_ptr<RtfCodePage> made(new RtfCodePage(number));
    const bool isKnown = made->m_converter || number == johab || number == symbol;
    return isKnown ? *pages.emplace(number, std::move(made)).first->second : page(standard);
}

int RtfCodePage::numberOfCharset(int charset, int standardPage)
{
    struct Row
    {
        int charset;
        int page;
    };
    static constexpr auto rows = std::to_array<Row>(
        {{2, symbol}, {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002},  {85, 10006},
         {86, 10081}, {88, 10029}, {89, 10007}, {128, 932},  {129, 949},  {130, johab}, {134, 936},
         {136, 950},  {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},  {186, 1257},
         {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850}});
    const auto row = std::find_if(rows.begin(), rows.end(), [&](Row r) { return r.charset == charset; });
    return row == rows.end() ? standardPage : row->page;
}

RtfCodePage::RtfCodePage(int number)
    : m_number(number)
    , m_isMultiByte(number == johab)
{
    if (number != johab && number != symbol)
        m_converter = openNumber(number);
    if (m_converter)
        m_isMultiByte = ucnv_getMaxCharSize(m_converter) > 1;
    if (m_converter || number == symbol || m_isMultiByte)
        fillTable();
}

RtfCodePage::~RtfCodePage()
{
    if (m_converter)
        ucnv_close(m_converter);
}

/// A multi-byte page uses the table for its ASCII part alone.
void RtfCodePage::fillTable()
{
    constexpr char16_t privateArea = 0xF000; // where fonts of signs keep them
    for (int i = 0; i < int(m_table.size()); ++i) {
        QString text;
        const char byte = char(i);
        if (i < firstHigh)
            text = QChar(i);
        else if (m_number == symbol)
            text = QChar(privateArea + i);
        else if (!m_isMultiByte)
            appendConverted(text, QByteArrayView(&byte, 1));
        const char16_t c = text.isEmpty() ? u'\0' : text.front().unicode();
        m_table[size_t(i)] = c < u' ' && c != u'\t' ? u'\0' : c;
    }
}

void RtfCodePage::append(QString &text, QByteArrayView bytes) const
{
    const auto isHigh = [](char c) { return static_cast<uchar>(c) >= firstHigh; };
    if (m_isMultiByte && std::any_of(bytes.begin(), bytes.end(), isHigh)) {
        appendMultiByte(text, bytes);
        return;
    }
    const qsizetype start = text.size();
    text.resize(start + bytes.size());
    QChar *to = text.data() + start;
    for (const char byte : bytes) {
        *to = QChar(m_table[static_cast<uchar>(byte)]);
        to += *to != QChar(u'\0');
    }
    text.truncate(to - text.constData());
}

void RtfCodePage::appendMultiByte(QString &text, QByteArrayView bytes) const
{
    QString converted;
    if (m_number == johab)
        appendJohab(converted, bytes);
    else
        appendConverted(converted, bytes);
    for (const QChar c : std::as_const(converted)) {
        if (c >= u' ' || c == u'\t')
            text.append(c);
    }
}

void RtfCodePage::appendConverted(QString &text, QByteArrayView bytes) const
{
    constexpr char16_t substitute = 0x1A; // what the converter writes for a single byte that it does not know
    QString converted(bytes.size() * 2, Qt::Uninitialized);
    UErrorCode error = U_ZERO_ERROR;
    const int length = ucnv_toUChars(m_converter, reinterpret_cast<UChar *>(converted.data()),
                                     int(converted.size()), bytes.data(), int(bytes.size()), &error);
    if (U_FAILURE(error)) {
        text.append(QChar::ReplacementCharacter);
        return;
    }
    converted.truncate(length);
    text.append(converted.replace(QChar(substitute), QChar(QChar::ReplacementCharacter)));
}
