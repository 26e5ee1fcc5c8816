#pragma once

#include <QByteArray>
#include <QImage>
#include <string>
#include <vector>

/// A picture of tests/data/pictures, and what other programs see in it.
struct PictureFixture
{
    static std::vector<PictureFixture> all();
    /// Those whose name begins with \a beginning.
    static std::vector<PictureFixture> some(const std::string &beginning);
    static PictureFixture named(const std::string &name);

    QByteArray bytes() const;
    QImage pixels() const;
    QImage shown() const;

    std::string name;
    std::string pixelsName;
    std::string shownName;
};

/// What of the file's name may be part of the name of a test.
template<class Info>
std::string testNameOf(const Info &info)
{
    std::string name = info.param.name;
    for (char &sign : name) {
        if (!std::isalnum(static_cast<unsigned char>(sign)))
            sign = '_';
    }
    return name;
}

inline void PrintTo(const PictureFixture &fixture, std::ostream *out)
{
    *out << fixture.name;
}

/// By how much the most different of the channels of all pixels differs; 256 for images of different sizes.
int largestDifference(const QImage &one, const QImage &other);
