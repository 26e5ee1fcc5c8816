#include "PrintQt.h"
#include "TypedAddress.h"

#include <gtest/gtest.h>

namespace {

struct Case
{
    const char *what;
    const char *typed;
    const char *address; ///< empty where it is none
};

struct TypedAddressTest : testing::TestWithParam<Case>
{};

constexpr Case cases[] = {
    {"page", "http://www.tallowick.example/a?b#c", "http://www.tallowick.example/a?b#c"},
    {"secure", "https://www.tallowick.example/", "https://www.tallowick.example/"},
    {"capitals", "HTTP://www.tallowick.example/", "http://www.tallowick.example/"},
    {"host alone", "www.tallowick.example", "http://www.tallowick.example"},
    {"host and port", "localhost:8080", "http://localhost:8080"},
    {"host, port and path", "localhost:8080/a", "http://localhost:8080/a"},
    {"address and port", "127.0.0.1:80/", "http://127.0.0.1:80/"},
    {"blanks around", "  http://a.example/  ", "http://a.example/"},
    {"blank within", "http://a.example/a b", "http://a.example/a%20b"},
    {"nothing on show", "about:blank", "about:blank"},
    {"file", "/tmp/a b.html", "file:///tmp/a%20b.html"},
    {"file with a percent sign", "/tmp/a%20b#c", "file:///tmp/a%2520b%23c"},
    {"file by its scheme", "file:///tmp/a.html", "file:///tmp/a.html"},
    {"empty", "", ""},
    {"blanks", "   ", ""},
    {"script", "javascript:alert(1)", ""},
    {"script in capitals", "JavaScript:alert(1)", ""},
    {"script behind a blank", " javascript:alert(1)", ""},
    {"data", "data:text/html,<b>x", ""},
    {"telephone", "tel:+123", ""},
    {"mail", "mailto:a@b.example", ""},
    {"a program's", "steam://run/1", ""},
    {"the engine's own", "chrome://gpu", ""},
    {"the engine's own by another name", "about:gpu", ""},
    {"source", "view-source:http://a.example/", ""},
    {"transfer", "ftp://a.example/", ""},
    {"drive", "C:\\Windows", ""},
    {"no host", "http:///etc/passwd", ""},
    {"words", "two words", ""},
};

} // namespace

TEST_P(TypedAddressTest, IsReadAs)
{
    EXPECT_EQ(TypedAddress::url(QString::fromUtf8(GetParam().typed)).toString(QUrl::FullyEncoded),
              QString::fromUtf8(GetParam().address));
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedAddressTest, testing::ValuesIn(cases),
                         [](const auto &row) { return std::to_string(row.index); });

inline void PrintTo(const Case &row, std::ostream *out)
{
    *out << row.what;
}
