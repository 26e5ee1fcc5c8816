#include "RtfSymbolFont.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr char16_t privateArea = 0xF000;
constexpr char16_t firstPlace = 0x20;
constexpr char16_t lastPlace = 0xFF;

// Places 0x20 to 0x7E and 0xA0 to 0xFE of the Symbol font.
constexpr std::u16string_view symbolLow =
    u" !\u2200#\u2203%&\u220B()\u2217+,\u2212./0123456789:;<=>?"
    u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1"
    u"\u039A\u039B\u039C\u039D\u039F\u03A0\u0398\u03A1\u03A3\u03A4\u03A5"
    u"\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_"
    u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5"
    u"\u03BA\u03BB\u03BC\u03BD\u03BF\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5"
    u"\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C";
constexpr std::u16string_view symbolHigh =
    u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192\u2193"
    u"\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0\u23AF\u21B5"
    u"\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282\u2286\u2208\u2209"
    u"\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4\u21D0\u21D1\u21D2\u21D3"
    u"\u25CA\u2329\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2\u23A3\u23A7\u23A8\u23A9\u23AA"
    u"\uF0F0\u232A\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4\u23A5\u23A6\u23AB\u23AC\u23AD";
constexpr char16_t symbolHighStart = 0xA0;
static_assert(symbolLow.size() == 0x7F - 0x20 && symbolHigh.size() == 0xFF - symbolHighStart);

struct Sign
{
    char16_t place;
    char16_t character;
};

/// The signs of Wingdings that texts use: bullets, arrows, boxes, ticks.
constexpr auto wingdings = std::to_array<Sign>(
    {{0x20, u' '},      {0x22, u'\u2702'}, {0x28, u'\u260E'}, {0x2A, u'\u2709'}, {0x36, u'\u231B'},
     {0x3F, u'\u270D'}, {0x46, u'\u261E'}, {0x4A, u'\u263A'}, {0x4B, u'\u263B'}, {0x4C, u'\u2639'},
     {0x6C, u'\u25CF'}, {0x6E, u'\u25A0'}, {0x6F, u'\u25A1'}, {0x71, u'\u2751'}, {0x72, u'\u2752'},
     {0x73, u'\u2B27'}, {0x74, u'\u29EB'}, {0x75, u'\u25C6'}, {0x76, u'\u2756'}, {0x77, u'\u2B25'},
     {0x9E, u'\u00B7'}, {0x9F, u'\u2022'}, {0xA1, u'\u25CB'}, {0xA2, u'\u25CB'}, {0xA7, u'\u25AA'},
     {0xA8, u'\u25FB'}, {0xAB, u'\u2605'}, {0xD8, u'\u27A2'}, {0xDF, u'\u2190'}, {0xE0, u'\u2192'},
     {0xE1, u'\u2191'}, {0xE2, u'\u2193'}, {0xE8, u'\u2794'}, {0xEF, u'\u21E6'}, {0xF0, u'\u21E8'},
     {0xFB, u'\u2717'}, {0xFC, u'\u2713'}, {0xFD, u'\u2612'}, {0xFE, u'\u2611'}});

char16_t symbol(char16_t place)
{
    if (place < firstPlace + symbolLow.size())
        return symbolLow[place - firstPlace];
    if (place >= symbolHighStart && place < symbolHighStart + symbolHigh.size())
        return symbolHigh[place - symbolHighStart];
    return char16_t(privateArea + place);
}

char16_t wingding(char16_t place)
{
    const auto *sign =
        std::find_if(wingdings.begin(), wingdings.end(), [&](Sign s) { return s.place == place; });
    return sign == wingdings.end() ? char16_t(privateArea + place) : sign->character;
}

} // namespace

RtfSymbolFont::Kind RtfSymbolFont::kind(const QString &family, bool isSymbolCharset)
{
    if (family == QLatin1String("Symbol"))
        return Kind::Symbol;
    if (family == QLatin1String("Wingdings"))
        return Kind::Wingdings;
    return isSymbolCharset ? Kind::Other : Kind::None;
}

char16_t RtfSymbolFont::character(Kind kind, char16_t place)
{
    const char16_t low = place >= privateArea ? char16_t(place - privateArea) : place;
    if (kind == Kind::None || low < firstPlace || low > lastPlace)
        return place;
    if (kind == Kind::Symbol)
        return symbol(low);
    if (kind == Kind::Wingdings)
        return wingding(low);
    return low == u' ' ? low : char16_t(privateArea + low);
}
