#include "ForkedTask.h"
#include "Form.h"
#include "Paths.h"
#include "RecoveryFolder.h"
#include "RegistryFile.h"
#include "RunningSuite.h"
#include "Settings.h"

#include <QRandomGenerator>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int kills = 100;
constexpr int patience = 60000; // milliseconds
constexpr int lines = 300;
constexpr int longestWait = 40; // milliseconds; some saves

const QString settingsSection = QStringLiteral("Settings");
const QString counter = QStringLiteral("MainLeft");
const QString bystander = QStringLiteral("MainTop");

/// A text of many lines that all have the same number, so that parts of two saves are noticed.
QString textOf(int number)
{
    return QStringLiteral("save %1\n").arg(number).repeated(lines);
}

/// The number in a whole text, else -1.
int numberIn(const QString &text)
{
    const int number = text.section(u'\n', 0, 0).mid(5).toInt();
    return text == textOf(number) ? number : -1;
}

QByteArray richTextOf(int number)
{
    RichTextBox box;
    box.setText(textOf(number));
    return box.TextRTF();
}

/// The running suite, its document "letter.rtf", its settings and a root of the registry, saved over and over
/// by processes that are killed.
struct KillsTest : testing::Test
{
    RunningSuite suite;
    RegistryFile registry{suite.home.file(QStringLiteral("registry.json"))};
    const QString path = suite.home.file(QStringLiteral("letter.rtf"));

    void save(int number)
    {
        suite.text().setText(textOf(number));
        suite.frame().files().SaveCurrentDocument();
        const RegistryResult stored = registry.change([&](RegistryKey &root) {
            RegistryKey &key = root.make({QStringLiteral("Counts")});
            key.setValue(counter, {RegistryType::Number, quint32(number)});
            key.setValue(bystander, {RegistryType::Number, quint32(1)});
            return RegistryResult::Ok;
        });
        ASSERT_EQ(stored, RegistryResult::Ok);
        Settings::save(Paths::applicationTitle, settingsSection, counter, QString::number(number));
    }

    [[noreturn]] void saveForEver(int number)
    {
        const auto copy = RecoveryFolder::makeCopy();
        for (;; ++number) {
            copy->write({path, PlainText::LineEnd::Lf, richTextOf(number)});
            save(number);
        }
    }

    int savedInDocument() const
    {
        RichTextBox box;
        box.LoadFile(path);
        return numberIn(box.Text());
    }
    int savedInRegistry() const
    {
        RegistryKey root;
        if (registry.read(root) != RegistryResult::Ok)
            return -1;
        const RegistryKey &key = root.make({QStringLiteral("Counts")});
        return key.value(bystander) ? int(std::get<quint32>(key.value(counter)->data)) : -1;
    }
    static int savedInSettings()
    {
        const auto get = [](const QString &key) {
            return Settings::get(Paths::applicationTitle, settingsSection, key, QStringLiteral("-1")).toInt();
        };
        return get(bystander) == 1 ? get(counter) : -1;
    }
    /// In the copy that the killed process has left.
    static int savedInCopy()
    {
        const auto orphans = RecoveryFolder::takeOrphans();
        if (orphans.size() != 1)
            return -1;
        const std::optional<RecoveryText> text = orphans.front()->read();
        orphans.front()->remove();
        if (!text)
            return -1;
        RichTextBox box;
        box.setTextRTF(text->rtf);
        return numberIn(box.Text());
    }
};

} // namespace

TEST_F(KillsTest, EveryFileIsOldOrNewAndWhole)
{
    suite.active().setCaption(path);
    Settings::save(Paths::applicationTitle, settingsSection, bystander, QStringLiteral("1"));
    save(1);
    int last = 1;
    for (int kill = 0; kill < kills; ++kill) {
        ForkedTask saving;
        ASSERT_TRUE(saving.start([&]() -> bool { saveForEver(last + 1); }));
        ASSERT_TRUE(QTest::qWaitFor([&] { return savedInSettings() > last; }, patience));
        QTest::qSleep(QRandomGenerator::global()->bounded(longestWait));
        ASSERT_TRUE(saving.isRunning());
        saving.stop();

        // Each round saves the copy, the document, the registry and the settings, so that none is behind the
        // next.
        const int settings = savedInSettings();
        EXPECT_GT(settings, last);
        EXPECT_GE(savedInRegistry(), settings);
        EXPECT_LE(savedInRegistry(), settings + 1);
        EXPECT_GE(savedInDocument(), savedInRegistry());
        EXPECT_LE(savedInDocument(), settings + 1);
        EXPECT_GE(savedInCopy(), savedInDocument());
        last = savedInDocument();
        ASSERT_FALSE(HasFailure()) << "after " << kill << " kills";
    }
}
