#include "TestFile.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

const QString option = QStringLiteral("--file=");

bool isIn(const testing::TestInfo &test, const QString &file)
{
    return QFileInfo(QString::fromLocal8Bit(test.file())).fileName() == file;
}

QStringList testsIn(const QString &file)
{
    QStringList names;
    const testing::UnitTest &all = *testing::UnitTest::GetInstance();
    for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
        const testing::TestSuite &tests = *all.GetTestSuite(suite);
        for (int i = 0; i < tests.total_test_count(); ++i) {
            const testing::TestInfo &test = *tests.GetTestInfo(i);
            if (isIn(test, file))
                names << QStringLiteral("%1.%2").arg(QString::fromUtf8(tests.name()),
                                                     QString::fromUtf8(test.name()));
        }
    }
    return names;
}

} // namespace

bool TestFile::select(const QStringList &arguments)
{
    for (const QString &argument : arguments) {
        if (!argument.startsWith(option))
            continue;
        const QStringList names = testsIn(argument.mid(option.size()));
        GTEST_FLAG_SET(filter, names.join(u':').toStdString());
        return !names.isEmpty();
    }
    return true;
}
