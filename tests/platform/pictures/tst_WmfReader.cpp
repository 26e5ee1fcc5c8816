#include "ErrorNumberOf.h"
#include "Metafile.h"
#include "PictureFixture.h"
#include "WmfReader.h"

#include <gtest/gtest.h>

namespace {

constexpr qint64 most = qint64(1) << 28;
constexpr QRect page(0, 0, 40, 20);
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb red = 0xFFFF0000;
constexpr QRgb blue = 0xFF0000FF;

QImage read(const QByteArray &bytes)
{
    return WmfReader::read(bytes, most);
}

/// A red brush is object 0 and selected, a pen that draws nothing 1, a blue brush 2.
Metafile painting()
{
    Metafile file;
    file.fillWith(255, 0, 0).withoutPen().fillWith(0, 0, 255).select(0).select(1);
    return file;
}

/// The colours at two places: within the left half of the page, and within the right one.
using Halves = std::pair<QRgb, QRgb>;

Halves halves(const QImage &image)
{
    return {image.pixel(image.width() / 4, image.height() / 2),
            image.pixel(image.width() * 3 / 4, image.height() / 2)};
}

const QRect leftHalf(0, 0, 20, 20);
const QRect rightHalf(20, 0, 20, 20);

/// A bitmap without a file's header: red on the left, blue on the right, of two pixels.
QByteArray twoPixels()
{
    return QByteArray(
               "\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0\0\0\0\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
               40) +
           QByteArray("\0\0\xFF\xFF\0\0\0\0", 8);
}

int darkPixels(const QImage &image, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            count += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return count;
}

/// Without the last third of the lower row: it has arcs, whose ends others draw elsewhere.
int differenceOf(const QImage &one, const QImage &other)
{
    int difference = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < (y < 40 ? 120 : 80); ++x)
            difference += std::abs(qBlue(one.pixel(x, y)) - qBlue(other.pixel(x, y)));
    }
    return difference;
}

} // namespace

TEST(WmfReader, LooksAsInOtherProgramsButForTheSmoothing)
{
    const PictureFixture fixture = PictureFixture::named("wmf/shapes.wmf");
    const QImage mine = read(fixture.bytes());
    const QImage other = fixture.pixels();
    ASSERT_EQ(mine.size(), other.size());
    QImage blank = mine;
    blank.fill(Qt::white);
    EXPECT_LT(differenceOf(mine, other) * 3, differenceOf(blank, other));
}

TEST(WmfReader, ArcsRunAgainstTheClock)
{
    Metafile file;
    file.add(0x0817, {50, 0, 50, 100, 100, 100, 0, 0}).end(); // from the right end to the left one
    const QImage image = read(file.placed(QRect(0, 0, 100, 100)));
    EXPECT_GT(darkPixels(image, QRect(0, 0, 100, 48)), 80);
    EXPECT_EQ(darkPixels(image, QRect(0, 54, 100, 46)), 0);
}

TEST(WmfReader, TheSizeIsThatOfTheUnits)
{
    const Metafile file = painting().rectangle(leftHalf).end();
    EXPECT_EQ(read(file.placed(page)).size(), QSize(40, 20));
    EXPECT_EQ(read(file.placed(page, 48)).size(), QSize(80, 40));
    EXPECT_EQ(read(file.placed(QRect(0, 0, 2880, 1440), 0)).size(), QSize(192, 96)); // as usual: 1,440
    EXPECT_EQ(halves(read(file.placed(page, 48))), Halves(red, white));
}

TEST(WmfReader, NoSideIsLongerThan4096Pixels)
{
    const Metafile file = painting().rectangle(QRect(0, 0, 15000, 15000)).end();
    EXPECT_EQ(read(file.placed(QRect(0, 0, 30000, 15000), 1)).size(), QSize(4096, 2048));
    EXPECT_EQ(read(file.placed(QRect(0, 0, 30000, 1), 1)).size(), QSize(4096, 1));
}

TEST(WmfReader, WithoutAPlaceTheWindowCounts)
{
    const Metafile file = Metafile()
                              .add(0x020B, {0, 20})
                              .add(0x020C, {20, 40})
                              .addRaw(painting().rectangle(rightHalf).end().plain().sliced(18));
    EXPECT_EQ(read(file.plain()).size(), QSize(40, 20));
    EXPECT_EQ(halves(read(file.plain())), Halves(red, white)); // from 20 on to the left
}

TEST(WmfReader, WithoutAWindowWhatIsDrawnCounts)
{
    const Metafile file = painting().rectangle(QRect(100, 100, 40, 20)).end();
    const QImage image = read(file.plain());
    EXPECT_EQ(image.size(), QSize(41, 21));
    EXPECT_EQ(image.pixel(2, 2), red);
}

/// In units of a hundredth of a millimetre the plane's second axis points up.
TEST(WmfReader, TheModesWithUnitsCountUpwards)
{
    Metafile file;
    file.add(0x0103, {3})
        .addRaw(painting()
                    .rectangle(QRect(0, 1270, 2540, 1270))
                    .select(2)
                    .rectangle(QRect(0, 0, 2540, 1270))
                    .end()
                    .plain()
                    .sliced(18));
    const QImage image = read(file.plain());
    EXPECT_EQ(image.size(), QSize(96, 96));
    EXPECT_EQ(image.pixel(48, 10), red);
    EXPECT_EQ(image.pixel(48, 80), blue);
}

TEST(WmfReader, AWindowWithNegativeSidesIsTurnedRound)
{
    Metafile file = painting();
    file.add(0x020B, {0, 40}).add(0x020C, {20, -40}).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(white, red));
}

TEST(WmfReader, AWindowWithoutSidesIsIgnored)
{
    Metafile file = painting();
    file.add(0x020C, {0, 0}).add(0x0410, {0, 0, 0, 0}).add(0x0410, {1, 0, 1, 0}).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
    EXPECT_EQ(read(file.placed(QRect(5, 5, 0, 0))).size(), QSize(21, 21));
}

TEST(WmfReader, TheWindowIsMovedAndScaled)
{
    Metafile file = painting();
    file.add(0x020F, {0, -20}).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(white, red));
    Metafile scaled = painting();
    scaled.add(0x0410, {1, 1, 1, 2}).rectangle(page).end(); // twice as many units from left to right
    EXPECT_EQ(halves(read(scaled.placed(page))), Halves(red, white));
}

TEST(WmfReader, ADamagedListIsDrawnUpToThere)
{
    Metafile file = painting();
    file.rectangle(leftHalf);
    Metafile none = file;
    EXPECT_EQ(halves(read(none.placed(page))), Halves(red, white)); // no end
    for (const int size : {1, 2, 7, 0x7FFFFFFF, -1}) {
        Metafile damaged = file;
        QByteArray record(6, '\x04');
        qToLittleEndian<quint32>(quint32(size), record.data());
        damaged.addRaw(record);
        EXPECT_EQ(halves(read(damaged.placed(page))), Halves(red, white)) << size;
    }
}

TEST(WmfReader, RecordsOfNoSizeEndTheList)
{
    Metafile file = painting();
    file.rectangle(leftHalf).addRaw(QByteArray("\0\0\0\0\x1B\x04", 6)).rectangle(rightHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, AListThatIsDamagedBeforeItDrawsIsAnError)
{
    EXPECT_EQ(errorNumberOf([&] { read(painting().placed(page)); }), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorNumberOf([&] { read(QByteArray("\xD7\xCD\xC6\x9A")); }), ErrorNumber::InvalidPicture);
    EXPECT_EQ(halves(read(Metafile().end().placed(page))), Halves(white, white)); // whole, and empty
}

TEST(WmfReader, ObjectsThatDoNotExistAreIgnored)
{
    Metafile file = painting();
    file.select(3)
        .select(65535)
        .add(0x01F0, {77})
        .add(0x0228, {5, 9})
        .add(0x012B, {5})
        .rectangle(leftHalf)
        .end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, ADeletedObjectsNumberIsTheNextOnes)
{
    Metafile file = painting();
    file.add(0x01F0, {1}).fillWith(0, 0, 255).select(1).rectangle(leftHalf).end(); // the pen's number
    EXPECT_EQ(halves(read(file.placed(page))), Halves(blue, white));
}

TEST(WmfReader, TenThousandsOfObjectsAreDropped)
{
    Metafile file = painting();
    for (int object = 0; object < 50000; ++object)
        file.fillWith(0, 0, 255);
    file.select(4096).rectangle(leftHalf).select(4095).rectangle(rightHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, blue));
}

TEST(WmfReader, StatesAreSavedAndRestored)
{
    Metafile file = painting();
    file.add(0x001E).select(2).add(0x001E).add(0x0127, {-2}).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
    Metafile absolute = painting();
    absolute.add(0x001E).select(2).add(0x001E).add(0x0127, {2}).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(absolute.placed(page))), Halves(blue, white));
}

TEST(WmfReader, AFloodOfStatesIsBounded)
{
    Metafile file = painting();
    for (int state = 0; state < 100000; ++state)
        file.add(0x001E);
    file.select(2).add(0x0127, {300}).add(0x0127, {-300}).add(0x0127, {0}).rectangle(leftHalf);
    file.add(0x0127, {-1}).rectangle(rightHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(blue, red));
}

TEST(WmfReader, ClippingKeepsWhatIsOutside)
{
    Metafile file = painting();
    file.add(0x0416, {20, 20, 0, 0}).rectangle(page).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
    Metafile away = painting();
    away.add(0x0415, {20, 20, 0, 0}).rectangle(page).end();
    EXPECT_EQ(halves(read(away.placed(page))), Halves(white, red));
    Metafile moved = painting();
    moved.add(0x0416, {20, 20, 0, 0}).add(0x0220, {0, 20}).rectangle(page).end();
    EXPECT_EQ(halves(read(moved.placed(page))), Halves(white, red));
}

TEST(WmfReader, RegionsAreTheirRectangles)
{
    Metafile file = painting();
    file.add(0x06FF, {0, 6, 0, 0, 0, 0, 0, 20, 0, 40, 20}).add(0x012B, {3}).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(white, red));
    Metafile filled = painting();
    filled.add(0x06FF, {0, 6, 0, 0, 0, 0, 0, 20, 0, 40, 20}).add(0x0228, {3, 2}).end();
    EXPECT_EQ(halves(read(filled.placed(page))), Halves(white, blue));
    Metafile clipped = painting();
    clipped.add(0x06FF, {0, 6, 0, 0, 0, 0, 0, 20, 0, 40, 20})
        .select(3)
        .rectangle(page)
        .add(0x012C, {9})
        .end();
    EXPECT_EQ(halves(read(clipped.placed(page))), Halves(white, red));
}

TEST(WmfReader, BitmapsAreStretchedToTheirPlace)
{
    const QByteArray bitmap = twoPixels();
    Metafile stretched;
    stretched.add(0x0F43, {0x20, 0xCC, 0, 1, 2, 0, 0, 20, 40, 0, 0}, bitmap).end();
    EXPECT_EQ(halves(read(stretched.placed(page))), Halves(red, blue));
    Metafile other;
    other.add(0x0B41, {0x20, 0xCC, 1, 2, 0, 0, 20, 40, 0, 0}, bitmap).end();
    EXPECT_EQ(halves(read(other.placed(page))), Halves(red, blue));
    Metafile plain;
    plain.add(0x0940, {0x20, 0xCC, 0, 0, 1, 2, 10, 10}, bitmap).end();
    EXPECT_EQ(read(plain.placed(page)).pixel(10, 10), red);
    EXPECT_EQ(read(plain.placed(page)).pixel(11, 10), blue);
    Metafile set;
    set.add(0x0D33, {0, 1, 0, 0, 0, 1, 2, 10, 10}, bitmap).end();
    EXPECT_EQ(read(set.placed(page)).pixel(11, 10), blue);
}

TEST(WmfReader, ANegativeSideTurnsABitmapRound)
{
    Metafile file;
    file.add(0x0F43, {0x20, 0xCC, 0, 1, 2, 0, 0, 20, -40, 0, 40}, twoPixels()).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(blue, red));
}

TEST(WmfReader, DamagedBitmapsAreLeftOut)
{
    for (qsizetype size = 0; size < 40; ++size) {
        Metafile file = painting();
        file.rectangle(leftHalf)
            .add(0x0F43, {0x20, 0xCC, 0, 1, 2, 0, 0, 20, 20, 0, 20}, twoPixels().first(size))
            .end();
        EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white)) << size;
    }
    QByteArray giant = twoPixels();
    qToLittleEndian<quint32>(100000, giant.data() + 4);
    qToLittleEndian<quint32>(100000, giant.data() + 8);
    Metafile file = painting();
    file.add(0x0F43, {0x20, 0xCC, 0, 1, 2, 0, 0, 20, 20, 0, 20}, giant).rectangle(leftHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, LogicalOperationsJoinThePictures)
{
    Metafile file = painting();
    file.rectangle(page).add(0x061D, {0x49, 0x5A, 20, 20, 0, 0}).end(); // red and red make black
    EXPECT_EQ(halves(read(file.placed(page))), Halves(qRgb(0, 0, 0), red));
    Metafile pen = painting();
    pen.add(0x0104, {7}).rectangle(leftHalf).add(0x0104, {11}).rectangle(page).end();
    EXPECT_EQ(halves(read(pen.placed(page))), Halves(qRgb(0, 255, 255), white));
}

TEST(WmfReader, PatternsAreDrawn)
{
    Metafile file = painting();
    file.add(0x0142, {5, 0}, twoPixels()).select(3).rectangle(leftHalf).end();
    const QImage image = read(file.placed(page));
    EXPECT_EQ(image.pixel(4, 4), red);
    EXPECT_EQ(image.pixel(5, 4), blue);
}

TEST(WmfReader, TextsAreDrawnWhereTheyBelong)
{
    Metafile file;
    file.add(0x02FB, {-20, 0, 0, 0, 400, 0, 0, 0, 0}, QByteArray("DejaVu Sans\0", 12))
        .select(0)
        .add(0x0102, {1});
    Metafile top = file;
    top.add(0x0521, {4, 0x4D4D, 0x4D4D, 2, 2}).end(); // MMMM
    const QImage below = read(top.placed(QRect(0, 0, 100, 60)));
    EXPECT_GT(darkPixels(below, QRect(2, 2, 80, 28)), 100);
    EXPECT_EQ(darkPixels(below, QRect(0, 32, 100, 28)), 0);
    Metafile baseline = file;
    baseline.add(0x012E, {0x18 | 0x02}).add(0x0A32, {50, 98, 4, 0, 0x4D4D, 0x4D4D, 8, 8, 8, 8}).end();
    const QImage left = read(baseline.placed(QRect(0, 0, 100, 60)));
    EXPECT_EQ(darkPixels(left, QRect(0, 51, 100, 9)), 0);
    EXPECT_EQ(darkPixels(left, QRect(0, 0, 60, 60)), 0);
    EXPECT_GT(darkPixels(left, QRect(60, 30, 40, 20)), 50);
}

TEST(WmfReader, TextsFillTheirRectangle)
{
    Metafile file;
    file.add(0x0201, {0x00FF, 0}).add(0x0A32, {0, 0, 0, 2, 0, 0, 20, 20}).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, TextsOfAllCharacterSetsAreDrawn)
{
    for (int set = 0; set < 256; ++set) {
        Metafile file;
        file.add(0x02FB, {10, 0, 300, 0, 700, 1, set << 8, 0, 0}, QByteArray(40, 'x')).select(0);
        file.add(0x0521, {3, 0xE4F6, 0xFF, 0, 0}).add(0x0521, {65535, 0x4141}).end();
        EXPECT_EQ(read(file.placed(page)).size(), page.size()) << set;
    }
}

/// The commands that once made programs run what a file holds, and those that only programs have a use for.
TEST(WmfReader, EscapesAndUnknownCommandsArePassedOver)
{
    Metafile file = painting();
    file.add(0x0626, {9, 4, 0x1234, 0x5678})
        .add(0x0626, {15, 4}, "WMFC")
        .add(0x7777, {1, 2, 3})
        .rectangle(leftHalf)
        .end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, CommandsWithoutTheirNumbersDrawNothingElse)
{
    Metafile file = painting();
    file.rectangle(leftHalf);
    for (int function = 1; function < 0x1000; ++function) {
        if (function != 0x0127)
            file.add(0x001E).add(function).add(0x0127, {-1});
    }
    EXPECT_EQ(read(file.end().placed(page)).pixel(10, 10), red);
}

TEST(WmfReader, CountsBeyondTheCommandAreCut)
{
    Metafile file = painting();
    file.add(0x0324, {65535, 0, 0, 20, 0, 20, 20, 0, 20})
        .add(0x0538, {65535, 65535, 1, 2})
        .add(0x0325, {65535, 1})
        .end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, white));
}

TEST(WmfReader, MillionsOfCommandsEnd)
{
    Metafile few = painting();
    few.rectangle(leftHalf);
    const QByteArray nothing = Metafile().add(0x0035).plain().sliced(18);
    Metafile file = few;
    file.addRaw(nothing.repeated(3'000'000)).rectangle(rightHalf).end();
    EXPECT_EQ(halves(read(file.placed(page))), Halves(red, red));
}

/// A short file that would take hours: what it has drawn in its time is shown.
TEST(WmfReader, EndlessDrawingEnds)
{
    Metafile file = painting();
    file.rectangle(QRect(0, 0, 15000, 30000));
    const QByteArray fill = Metafile().rectangle(QRect(0, 0, 15000, 30000)).plain().sliced(18);
    file.addRaw(fill.repeated(100'000)).rectangle(QRect(15000, 0, 15000, 30000)).end();
    EXPECT_EQ(halves(read(file.placed(QRect(0, 0, 30000, 30000), 1))), Halves(red, white));
}

/// A shape or a line whose edges cross each other millions of times, which would take minutes.
TEST(WmfReader, AShapeThatTakesTooLongIsTheLastOne)
{
    QByteArray points;
    for (int point = 0; point < 16000; ++point) {
        const quint16 place[] = {qToLittleEndian(quint16(point * 7919 % 30000)),
                                 qToLittleEndian(quint16(point % 2 * 30000 + point % 97))};
        points.append(reinterpret_cast<const char *>(place), sizeof place);
    }
    const auto isLast = [&](int function, int pen) {
        Metafile file = painting();
        file.rectangle(QRect(0, 0, 15000, 30000)).add(0x02FA, {pen, 50, 0, 0, 0}).select(3);
        file.add(function, {16000}, points).select(1).rectangle(QRect(15000, 0, 15000, 30000)).end();
        return halves(read(file.placed(QRect(0, 0, 30000, 30000), 1))) == Halves(red, white);
    };
    EXPECT_TRUE(isLast(0x0324, 5));
    EXPECT_TRUE(isLast(0x0325, 0));
    EXPECT_TRUE(isLast(0x0325, 2));
}

TEST(WmfReader, APictureOverTheLimitIsAnError)
{
    const QByteArray bytes = painting().rectangle(leftHalf).end().placed(page);
    EXPECT_FALSE(WmfReader::read(bytes, 40 * 20 * 4).isNull());
    EXPECT_EQ(errorNumberOf([&] { WmfReader::read(bytes, 40 * 20 * 4 - 1); }), ErrorNumber::InvalidPicture);
}
