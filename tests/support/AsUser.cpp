#include "AsUser.h"

#include <QFile>
#include <filesystem>
#include <grp.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr uid_t root = 0;
constexpr uid_t user = 65534; // "nobody", as is the group of this number

void handOver(const std::filesystem::path &path)
{
    EXPECT_EQ(::lchown(path.c_str(), user, user), 0) << path;
}

QList<gid_t> groups()
{
    QList<gid_t> ids(qMax(::getgroups(0, nullptr), 0));
    EXPECT_EQ(::getgroups(int(ids.size()), ids.data()), int(ids.size()));
    return ids;
}

} // namespace

AsUser::AsUser(const QString &folder)
    : m_changed(::geteuid() == root)
    , m_groups(groups())
{
    if (!m_changed)
        return;
    const std::filesystem::path path(QFile::encodeName(folder).toStdString());
    handOver(path);
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path))
        handOver(entry.path());
    EXPECT_EQ(::setgroups(0, nullptr), 0);
    EXPECT_EQ(::setresgid(user, user, root), 0);
    EXPECT_EQ(::setresuid(user, user, root), 0);
}

AsUser::~AsUser()
{
    if (!m_changed)
        return;
    EXPECT_EQ(::setresuid(root, root, root), 0);
    EXPECT_EQ(::setresgid(root, root, root), 0);
    EXPECT_EQ(::setgroups(size_t(m_groups.size()), m_groups.constData()), 0);
}
