#include "ComputerSet.h"

#include "PrintQt.h"

#include <gtest/gtest.h>

namespace {

QStringList rowsOf(const ComputerSet &set)
{
    QStringList rows;
    for (const Computer &computer : set.computers())
        rows << computer.name + u' ' + computer.address;
    return rows;
}

} // namespace

TEST(ComputerSet, ComputersAreMergedByTheirLabels)
{
    ComputerSet set;
    set.add(QStringLiteral("zeta"), {});
    set.add(QStringLiteral("Alpha.local"), {});
    set.add(QStringLiteral("ALPHA"), QStringLiteral("10.0.0.2"));
    set.add(QStringLiteral("alpha"), QStringLiteral("10.0.0.3"));
    EXPECT_EQ(rowsOf(set), QStringList({QStringLiteral("ALPHA 10.0.0.2"), QStringLiteral("ZETA ")}));
}

TEST(ComputerSet, WhatIsNoHostNameIsLeftOut)
{
    ComputerSet set;
    set.add(QStringLiteral("a b"), QStringLiteral("10.0.0.2"));
    set.add({}, QStringLiteral("10.0.0.3"));
    EXPECT_EQ(rowsOf(set), QStringList());
}

TEST(ComputerSet, KeepsAThousandOfTenThousand)
{
    ComputerSet set;
    for (int i = 0; i < 10000; ++i)
        set.add(QStringLiteral("host%1").arg(i), {});
    EXPECT_EQ(set.computers().size(), 1000);
    set.add(QStringLiteral("host0"), QStringLiteral("10.0.0.2"));
    EXPECT_EQ(set.computers().constFirst().address, QStringLiteral("10.0.0.2"));
}

TEST(ComputerSet, ACutNameIsTheWholeOnesComputer)
{
    ComputerSet set;
    set.add(QStringLiteral("workstation-of-the-cook"), QStringLiteral("10.0.0.2"));
    set.add(QStringLiteral("WORKSTATION-OF-"), QStringLiteral("10.0.0.2"));
    EXPECT_EQ(rowsOf(set), QStringList(QStringLiteral("WORKSTATION-OF-THE-COOK 10.0.0.2")));
}

TEST(ComputerSet, AnotherComputersNameIsNotCut)
{
    ComputerSet set;
    set.add(QStringLiteral("workstation-of-the-cook"), QStringLiteral("10.0.0.2"));
    set.add(QStringLiteral("WORKSTATION-OF-"), QStringLiteral("10.0.0.3"));
    set.add(QStringLiteral("WORKSTATION"), QStringLiteral("10.0.0.2"));
    EXPECT_EQ(set.computers().size(), 3);
}
