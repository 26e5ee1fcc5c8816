#include "FileFilter.h"
#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

struct FilterRow
{
    const char *name;
    const char *filter;
    QStringList filters;
};

struct FileFilterTest : testing::TestWithParam<FilterRow>
{};

} // namespace

TEST_P(FileFilterTest, BecomesTheToolkitsEntries)
{
    EXPECT_EQ(FileFilter::toNameFilters(QString::fromLatin1(GetParam().filter)), GetParam().filters);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FileFilterTest,
    testing::Values(
        FilterRow{"Empty", "", {}},
        FilterRow{
            "One", "Rich Text Format (*.rtf)|*.rtf", {QStringLiteral("Rich Text Format (*.rtf) (*.rtf)")}},
        FilterRow{"AllFiles", "All Files (*.*)|*.*", {QStringLiteral("All Files (*.*) (*)")}},
        FilterRow{"Several",
                  "Rtf Files (*.rtf)|*.rtf|Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
                  {QStringLiteral("Rtf Files (*.rtf) (*.rtf)"), QStringLiteral("Text Files (*.txt) (*.txt)"),
                   QStringLiteral("All Files (*.*) (*)")}},
        FilterRow{"Patterns",
                  "Text Files (*.txt;*.bat)|*.txt;*.bat",
                  {QStringLiteral("Text Files (*.txt;*.bat) (*.txt *.bat)")}},
        FilterRow{"TextWithCommas",
                  "Bitmaps (*.bmp, *.dib)|*.bmp;*.dib",
                  {QStringLiteral("Bitmaps (*.bmp, *.dib) (*.bmp *.dib)")}},
        FilterRow{"NoBrackets", "Pictures|*.gif", {QStringLiteral("Pictures (*.gif)")}},
        FilterRow{"TextWithoutPattern",
                  "Text Files (*.txt)|*.txt|All",
                  {QStringLiteral("Text Files (*.txt) (*.txt)")}},
        FilterRow{
            "EmptyPattern", "All||Text|*.txt", {QStringLiteral("All ()"), QStringLiteral("Text (*.txt)")}}),
    [](const auto &row) { return std::string(row.param.name); });
