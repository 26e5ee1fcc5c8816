#include "AsUser.h"

#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr uid_t root = 0;
constexpr uid_t user = 65534; // "nobody", as is the group of this number

void handOver(const QString &path)
{
    EXPECT_EQ(::lchown(QFile::encodeName(path).constData(), user, user), 0);
}

} // namespace

AsUser::AsUser(const QString &folder)
    : m_changed(::geteuid() == root)
{
    if (!m_changed)
        return;
    handOver(folder);
    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
        handOver(entries.next());
    EXPECT_EQ(::setresgid(user, user, root), 0);
    EXPECT_EQ(::setresuid(user, user, root), 0);
}

AsUser::~AsUser()
{
    if (!m_changed)
        return;
    EXPECT_EQ(::setresuid(root, root, root), 0);
    EXPECT_EQ(::setresgid(root, root, root), 0);
}
