#include "BareCalculator.h"
#include "PrintQt.h"
#include "ReferenceCalculator.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace {

constexpr int sequences = 3000;
constexpr int longest = 60;

const QList<QString> &texts()
{
    static const QList<QString> all = {
        {},
        QStringLiteral("abc"),
        QStringLiteral("12abc"),
        QStringLiteral(" 1 2\t3 "),
        QStringLiteral("-7.5"),
        QStringLiteral("- 3"),
        QStringLiteral("+4"),
        QStringLiteral("--4"),
        QStringLiteral("1E+3"),
        QStringLiteral("2e-3"),
        QStringLiteral("5E"),
        QStringLiteral("5E+x"),
        QStringLiteral("1..2"),
        QStringLiteral("."),
        QStringLiteral("-.5"),
        QStringLiteral("1,5"),
        QStringLiteral("1E200"),
        QStringLiteral("-1E308"),
        QStringLiteral("1E999"),
        QStringLiteral("1E-320"),
        QStringLiteral("1E-999"),
        QStringLiteral("0.1"),
        QStringLiteral("inf"),
        QStringLiteral("nan"),
        QStringLiteral("0x10"),
        QStringLiteral("\u0661\u0662"),
        QStringLiteral("7\u00A08"),
        QStringLiteral("123456789012345678901234567890"),
    };
    return all;
}

CalculatorStep randomStep(std::mt19937 &random)
{
    const auto below = [&](unsigned limit) { return int(random() % limit); };
    const int choice = below(100);
    if (choice < 40)
        return {CalculatorStep::Digit, below(10), {}};
    if (choice < 50)
        return {CalculatorStep::Point, 0, {}};
    if (choice < 84)
        return {CalculatorStep::Action, below(7), {}};
    if (choice < 92)
        return {CalculatorStep::Type, 0, texts().at(below(unsigned(texts().size())))};
    if (choice < 97)
        return {CalculatorStep::Decimals, below(9), {}};
    return {CalculatorStep::Option, below(2), {}};
}

QString nameOf(Operation operation)
{
    static const char *const names[] = {"=", "+", "-", "*", "/", "%", "None"};
    return QString::fromLatin1(names[int(operation)]);
}

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// The first difference between the two, or an empty text. An operation that percent cannot apply to counts
/// as none.
QString difference(const BareCalculator &bare, const ReferenceCalculator &reference)
{
    const CalculatorState &state = bare.state();
    const bool isUsed = state.DecimalPointState == CalculatorState::DecimalPoint::Used;
    const QString base = reference.PercentBase.isEmpty() ? QStringLiteral("None") : reference.PercentBase;
    if (bare.field != reference.txtresult)
        return QStringLiteral("field \"%1\" for \"%2\"").arg(bare.field, reference.txtresult);
    if (bare.reported != reference.reported)
        return QStringLiteral("reported %1 for %2")
            .arg(bare.reported.join(u','), reference.reported.join(u','));
    if (!same(state.Result, reference.Result))
        return QStringLiteral("Result %1 for %2").arg(state.Result).arg(reference.Result);
    if (state.Operand != reference.Operand)
        return QStringLiteral("Operand %1 for %2").arg(state.Operand).arg(reference.Operand);
    if (nameOf(state.LastOperation) != reference.LastOperation)
        return QStringLiteral("LastOperation ") + nameOf(state.LastOperation);
    if (nameOf(state.PercentBase) != base)
        return QStringLiteral("PercentBase ") + nameOf(state.PercentBase);
    if (isUsed != (reference.DecimalPointState == QLatin1String("Used")))
        return QStringLiteral("DecimalPointState");
    if (state.Decimals != reference.Decimals || state.RoundingAdjustment != reference.RoundingAdjustment)
        return QStringLiteral("settings");
    return {};
}

} // namespace

TEST(CalculatorSequencesTest, RandomKeysGiveTheReferenceResults)
{
    std::set<QString> reported;
    int steps = 0;
    int numbers = 0;
    for (unsigned seed = 1; seed <= sequences; ++seed) {
        std::mt19937 random(seed);
        BareCalculator bare;
        ReferenceCalculator reference;
        QString done;
        const int length = 1 + int(random() % longest);
        for (int i = 0; i < length; ++i) {
            const CalculatorStep step = randomStep(random);
            done += step.describe();
            bare.perform(step);
            reference.perform(step);
            ++steps;
            numbers += int(std::isfinite(bare.state().Result) && bare.state().Result != 0);
            ASSERT_EQ(difference(bare, reference), QString())
                << "seed " << seed << ": " << qUtf8Printable(done);
        }
        reported.insert(bare.reported.begin(), bare.reported.end());
    }
    EXPECT_EQ(reported, (std::set<QString>{QStringLiteral("point"), QStringLiteral("error 6"),
                                           QStringLiteral("error 11"), QStringLiteral("thrown 6")}));
    EXPECT_GT(numbers, steps / 4); // else the keys hardly ever met a number
}

TEST(CalculatorSequencesTest, AnyShownNumberReadsBack)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const int exponent = int(random() % 40) - 20;
        const double value = std::ldexp(double(qint64(random())), exponent - 63);
        BareCalculator bare;
        bare.field = ReferenceCalculator::shown(value);
        bare.perform(QStringLiteral("+"));
        ASSERT_NEAR(bare.state().Operand, value, std::fabs(value) * 1e-14);
    }
}
