#include "PictureFixture.h"

#include "Files.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {

const std::string picturesFolder = QUILL_TEST_DATA "/pictures/";

QByteArray bytesOf(const std::string &name)
{
    return Files::read(QString::fromStdString(picturesFolder + name));
}

} // namespace

std::vector<PictureFixture> PictureFixture::some(const std::string &beginning)
{
    std::vector<PictureFixture> fixtures;
    std::ifstream list(picturesFolder + "pictures.txt");
    for (std::string line; std::getline(list, line);) {
        PictureFixture fixture;
        std::istringstream fields(line);
        fields >> fixture.name >> fixture.pixelsName;
        if (!(fields >> fixture.shownName))
            fixture.shownName = fixture.pixelsName;
        if (fixture.name.starts_with(beginning))
            fixtures.push_back(fixture);
    }
    return fixtures;
}

std::vector<PictureFixture> PictureFixture::all()
{
    return some({});
}

PictureFixture PictureFixture::named(const std::string &name)
{
    return some(name).at(0);
}

QByteArray PictureFixture::bytes() const
{
    return bytesOf(name);
}

QImage PictureFixture::pixels() const
{
    return QImage::fromData(bytesOf(pixelsName), "png");
}

QImage PictureFixture::shown() const
{
    return QImage::fromData(bytesOf(shownName), "png");
}

int largestDifference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return 256;
    const QImage left = one.convertToFormat(QImage::Format_ARGB32);
    const QImage right = other.convertToFormat(QImage::Format_ARGB32);
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            const bool areClear = qAlpha(a) == 0 && qAlpha(b) == 0; // of a colour that nobody sees
            const int color = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                        std::abs(qBlue(a) - qBlue(b))});
            largest = std::max({largest, areClear ? 0 : color, std::abs(qAlpha(a) - qAlpha(b))});
        }
    }
    return largest;
}
