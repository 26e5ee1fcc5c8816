#include "CharacterWords.h"

#include "RichTextProperties.h"
#include "RtfHeader.h"
#include "RtfScript.h"
#include "RtfWords.h"

#include <QBrush>
#include <algorithm>
#include <array>

namespace {

const char *underline(QTextCharFormat::UnderlineStyle style)
{
    switch (style) {
    case QTextCharFormat::SingleUnderline:
        return "ul";
    case QTextCharFormat::DashUnderline:
        return "uldash";
    case QTextCharFormat::DotLine:
        return "uld";
    case QTextCharFormat::DashDotLine:
        return "uldashd";
    case QTextCharFormat::DashDotDotLine:
        return "uldashdd";
    case QTextCharFormat::WaveUnderline:
        return "ulwave";
    default:
        return nullptr;
    }
}

/// Points; the relative sizes of HTML become real ones.
double sizeOf(const QTextCharFormat &format, const QFont &standard)
{
    constexpr double pointsPerPixel = 0.75; // where nobody said otherwise, at 96 to the inch
    constexpr std::array<double, 7> relative = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
    constexpr int usual = 2;
    double size = standard.pointSizeF() > 0 ? standard.pointSizeF() : standard.pixelSize() * pointsPerPixel;
    if (format.fontPointSize() > 0)
        size = format.fontPointSize();
    else if (format.intProperty(QTextFormat::FontPixelSize) > 0)
        size = format.intProperty(QTextFormat::FontPixelSize) * pointsPerPixel;
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment) + usual;
    return size * relative[size_t(qBound(0, step, int(relative.size()) - 1))];
}

QString familyOf(const QTextCharFormat &format, const QFont &standard)
{
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() || families.constFirst().isEmpty() ? standard.family() : families.constFirst();
}

bool isBold(const QTextCharFormat &format, const QFont &standard)
{
    const int weight =
        format.hasProperty(QTextFormat::FontWeight) ? format.fontWeight() : int(standard.weight());
    return weight >= QFont::DemiBold;
}

QList<RtfSymbolFont::Kind> signsOf(const QList<QTextFormat> &formats)
{
    QList<RtfSymbolFont::Kind> kinds;
    kinds.reserve(formats.size());
    for (const QTextFormat &format : formats)
        kinds.append(
            RtfSymbolFont::kind(format.toCharFormat().fontFamilies().toStringList().value(0), false));
    return kinds;
}

bool hasLetters(QStringView text, RtfSymbolFont::Kind kind)
{
    return std::any_of(text.begin(), text.end(),
                       [=](QChar c) { return RtfSymbolFont::character(kind, c.unicode()) != c.unicode(); });
}

int halfPointsOf(const QTextCharFormat &format, const QFont &standard)
{
    constexpr int largestSize = 3276;
    return qBound(1, qRound(2 * sizeOf(format, standard)), largestSize);
}

bool isItalic(const QTextCharFormat &format, const QFont &standard)
{
    return format.hasProperty(QTextFormat::FontItalic) ? format.fontItalic() : standard.italic();
}

constexpr int plainSize = 24; // half points

QByteArray linkTo(const QString &address)
{
    const bool isInside = address.startsWith(u'#');
    QString target = isInside ? address.mid(1) : address;
    target.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("%22"));
    QByteArray out = isInside ? "HYPERLINK \\\\l \"" : "HYPERLINK \"";
    RtfWords::appendText(out, target);
    return out.append('"');
}

QByteArray instructionOf(const QTextCharFormat &format)
{
    if (format.isAnchor() && !format.anchorHref().isEmpty())
        return linkTo(format.anchorHref());
    QByteArray out;
    RtfWords::appendText(out, format.stringProperty(RichTextProperty::Field));
    return out;
}

} // namespace

CharacterWords::CharacterWords(const QList<QTextFormat> &formats, RtfHeader &header)
    : m_formats(formats)
    , m_header(header)
    , m_runs(formats.size() * NeedCount)
    , m_signs(signsOf(formats))
    , m_hasUnseen(std::any_of(formats.begin(), formats.end(), Unseen::isIn))
{}

CharacterWords::Run CharacterWords::run(int format, QStringView text)
{
    const int needs = needsOf(format, text);
    Run &known = m_runs[qsizetype(format) * NeedCount + needs];
    if (known.words < 0) {
        QTextCharFormat described = m_formats.at(format).toCharFormat();
        if ((needs & NoSigns) != 0)
            described.clearProperty(QTextFormat::FontFamilies);
        known = make(described, needs);
    }
    return known;
}

int CharacterWords::needsOf(int format, QStringView text) const
{
    int needs = 0;
    if (m_signs.at(format) != RtfSymbolFont::Kind::None && hasLetters(text, m_signs.at(format)))
        needs |= NoSigns;
    for (const QChar c : text) {
        if (c < QChar(RtfScript::first))
            continue;
        if (RtfScript::isComplex(c.unicode()))
            needs |= ComplexLook;
        else if (RtfScript::isEastAsian(c.unicode()))
            needs |= EastAsianLook;
    }
    return needs;
}

int CharacterWords::wordsAtCellStart(int format)
{
    QTextCharFormat text = m_formats.at(format).toCharFormat();
    text.clearBackground();
    return m_words.number(wordsOf(text));
}

CharacterWords::Run CharacterWords::make(const QTextCharFormat &format, int needs)
{
    Run run;
    run.words = m_words.number(wordsOf(format, needs));
    run.field = m_fields.number(instructionOf(format));
    run.isPicture = format.isImageFormat();
    run.note = format.intProperty(RichTextProperty::NoteMark);
    run.noteCount = format.intProperty(RichTextProperty::NoteCount);
    run.unseen = Unseen::of(format);
    return run;
}

QByteArray CharacterWords::wordsOf(const QTextCharFormat &format, int needs)
{
    QByteArray out;
    appendAssociated(out, format, needs);
    appendFont(out, format);
    appendLines(out, format);
    appendPosition(out, format);
    appendColours(out, format);
    if (format.hasProperty(RichTextProperty::Language))
        RtfWords::append(out, "lang", format.intProperty(RichTextProperty::Language));
    return out;
}

/// Readers take these scripts' fonts from here alone, so even the first is named.
void CharacterWords::appendAssociated(QByteArray &out, const QTextCharFormat &format, int needs)
{
    if (needs < ComplexLook)
        return;
    const int font = m_header.fonts.number(familyOf(format, m_header.standard));
    if ((needs & ComplexLook) != 0) {
        RtfWords::append(out, "rtlch");
        RtfWords::append(out, "af", font);
        const int size = halfPointsOf(format, m_header.standard);
        if (size != plainSize)
            RtfWords::append(out, "afs", size);
        if (isBold(format, m_header.standard))
            RtfWords::append(out, "ab");
        if (isItalic(format, m_header.standard))
            RtfWords::append(out, "ai");
        RtfWords::append(out, "ltrch");
    }
    if ((needs & EastAsianLook) != 0) {
        RtfWords::append(out, "dbch");
        RtfWords::append(out, "af", font);
        RtfWords::append(out, "loch");
    }
}

void CharacterWords::appendFont(QByteArray &out, const QTextCharFormat &format)
{
    const int font = m_header.fonts.number(familyOf(format, m_header.standard));
    if (font != 0)
        RtfWords::append(out, "f", font);
    const int size = halfPointsOf(format, m_header.standard);
    if (size != plainSize)
        RtfWords::append(out, "fs", size);
    if (isBold(format, m_header.standard))
        RtfWords::append(out, "b");
    if (isItalic(format, m_header.standard))
        RtfWords::append(out, "i");
    if (format.fontCapitalization() == QFont::AllUppercase)
        RtfWords::append(out, "caps");
    else if (format.fontCapitalization() == QFont::SmallCaps)
        RtfWords::append(out, "scaps");
}

void CharacterWords::appendLines(QByteArray &out, const QTextCharFormat &format)
{
    if (const char *word = underline(format.underlineStyle())) {
        RtfWords::append(out, word);
        if (format.underlineColor().isValid())
            RtfWords::append(out, "ulc", m_header.colours.number(format.underlineColor()));
    }
    if (format.fontStrikeOut())
        RtfWords::append(out, "strike");
}

void CharacterWords::appendPosition(QByteArray &out, const QTextCharFormat &format) const
{
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        RtfWords::append(out, "super");
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        RtfWords::append(out, "sub");
    const int shift = format.intProperty(RichTextProperty::BaselineShift);
    if (shift != 0)
        RtfWords::appendLength(out, shift > 0 ? "up" : "dn", qAbs(shift));
}

void CharacterWords::appendColours(QByteArray &out, const QTextCharFormat &format)
{
    const int text = m_header.colours.number(format.foreground());
    if (text != 0)
        RtfWords::append(out, "cf", text);
    const int behind = m_header.colours.number(format.background());
    if (behind != 0)
        RtfWords::append(out, format.hasProperty(RichTextProperty::IsShading) ? "chcbpat" : "highlight",
                         behind);
}
