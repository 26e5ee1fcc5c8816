#include "DiallerDialogs.h"

#include "DialogDriver.h"
#include "Forms.h"
#include "LineError.h"
#include "MockModemManager.h"
#include "PrintQt.h"
#include "PrivateSystemBus.h"
#include "ScratchHome.h"
#include "TelephoneSettings.h"
#include "frmDialingRules.h"
#include "frmLines.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct DiallerDialogsTest : testing::Test
{
    ScratchHome home;
    PrivateSystemBus bus;
    DiallerDialogs dialogs;
    DialogDriver driver;

    DiallerDialogsTest()
    {
        Forms::registerWindow(QStringLiteral("frmLines"), Forms::Instances::One, [] { return new frmLines; });
        Forms::registerWindow(QStringLiteral("frmDialingRules"), Forms::Instances::One,
                              [] { return new frmDialingRules; });
    }

    template<class Control>
    static Control &control(QWidget &dialog, const char *name)
    {
        return *dialog.findChild<Control *>(QString::fromLatin1(name));
    }
    static void type(QWidget &dialog, const char *name, const char *text)
    {
        auto &field = control<QLineEdit>(dialog, name);
        field.selectAll();
        QTest::keyClicks(&field, QString::fromLatin1(text));
    }
    static void press(QWidget &dialog, const char *name)
    {
        QTest::mouseClick(&control<QPushButton>(dialog, name), Qt::LeftButton);
    }
    static void enterAccount(QWidget &dialog)
    {
        press(dialog, "cmdAdd");
        type(dialog, "txtLabel", "Home");
        type(dialog, "txtServer", "sip.example.org");
        type(dialog, "txtUser", "alice");
        type(dialog, "txtPassword", "secret");
    }

    void expectLines(std::function<void(frmLines &)> act)
    {
        driver.expectWindow<frmLines>(QStringLiteral("frmLines"), std::move(act));
    }
    static void write(const QList<LineSettings> &lines)
    {
        TelephoneSettings settings;
        settings.lines = lines;
        settings.write();
    }
};

LineSettings labelled(const char *label, LineSettings::Kind kind)
{
    LineSettings line;
    line.kind = kind;
    line.label = QString::fromLatin1(label);
    line.server = QStringLiteral("host");
    line.user = QStringLiteral("user");
    line.port = QStringLiteral("/dev/ttyUSB7");
    return line;
}

} // namespace

TEST_F(DiallerDialogsTest, EntersTheFirstLine)
{
    expectLines([](frmLines &dialog) {
        EXPECT_FALSE(control<QLineEdit>(dialog, "txtLabel").isEnabled());
        EXPECT_FALSE(control<QPushButton>(dialog, "cmdRemove").isEnabled());
        enterAccount(dialog);
        EXPECT_EQ(control<QListWidget>(dialog, "lstLines").currentItem()->text(), QStringLiteral("Home"));
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    const QList<LineSettings> lines = TelephoneSettings::read().lines;
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(lines[0].kind, LineSettings::Kind::Sip);
    EXPECT_EQ(lines[0].label, QStringLiteral("Home"));
    EXPECT_EQ(lines[0].server, QStringLiteral("sip.example.org"));
    EXPECT_EQ(lines[0].user, QStringLiteral("alice"));
    EXPECT_EQ(lines[0].password, QStringLiteral("secret"));
    EXPECT_TRUE(lines[0].registers);
    EXPECT_EQ(lines[0].microphone, QStringLiteral("alsa,default"));
}

TEST_F(DiallerDialogsTest, CancelChangesNothing)
{
    expectLines([](frmLines &dialog) {
        enterAccount(dialog);
        press(dialog, "cmdCancel");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_TRUE(TelephoneSettings::read().lines.isEmpty());
}

TEST_F(DiallerDialogsTest, BeginsWithTheLineAskedFor)
{
    write({labelled("one", LineSettings::Kind::Sip), labelled("two", LineSettings::Kind::Serial)});
    expectLines([](frmLines &dialog) {
        EXPECT_EQ(control<QLineEdit>(dialog, "txtLabel").text(), QStringLiteral("two"));
        EXPECT_EQ(control<QComboBox>(dialog, "cboPort").currentText(), QStringLiteral("/dev/ttyUSB7"));
        EXPECT_TRUE(control<QComboBox>(dialog, "cboPort").isVisible());
        EXPECT_FALSE(control<QLineEdit>(dialog, "txtServer").isVisible());
        control<QComboBox>(dialog, "cboSpeed").setCurrentText(QStringLiteral("9600"));
        control<QComboBox>(dialog, "cboMode").setCurrentIndex(1);
        control<QCheckBox>(dialog, "chkPulses").setChecked(true);
        type(dialog, "txtInitialisation", "L1");
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 1), 0);
    const QList<LineSettings> lines = TelephoneSettings::read().lines;
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].label, QStringLiteral("one"));
    EXPECT_EQ(lines[1].speed, 9600);
    EXPECT_EQ(lines[1].mode, LineSettings::SerialMode::Voice);
    EXPECT_TRUE(lines[1].dialsByPulses);
    EXPECT_EQ(lines[1].initialisation, QStringLiteral("L1"));
}

TEST_F(DiallerDialogsTest, RemovesTheSelectedLine)
{
    write({labelled("one", LineSettings::Kind::Sip), labelled("two", LineSettings::Kind::Sip),
           labelled("three", LineSettings::Kind::Sip)});
    expectLines([](frmLines &dialog) {
        press(dialog, "cmdRemove");
        EXPECT_EQ(control<QLineEdit>(dialog, "txtLabel").text(),
                  control<QListWidget>(dialog, "lstLines").currentItem()->text());
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 1), 0);
    const QList<LineSettings> lines = TelephoneSettings::read().lines;
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].label, QStringLiteral("one"));
    EXPECT_EQ(lines[1].label, QStringLiteral("three"));
}

TEST_F(DiallerDialogsTest, ShowsTheLineThatIsNotComplete)
{
    write({labelled("one", LineSettings::Kind::Sip), labelled("two", LineSettings::Kind::Sip)});
    expectLines([](frmLines &dialog) {
        control<QLineEdit>(dialog, "txtServer").clear();
        control<QListWidget>(dialog, "lstLines").setCurrentRow(1);
        press(dialog, "cmdOK");
        EXPECT_EQ(control<QListWidget>(dialog, "lstLines").currentRow(), 0);
        type(dialog, "txtServer", "host");
        press(dialog, "cmdOK");
    });
    driver
        .expectBox(QStringLiteral("Telephone Lines"),
                   QStringLiteral(
                       "The account cannot be used. Server and user name are needed, as one word each, the "
                       "password may not have a \" or <, a certificate is a file whose path has no blank, "
                       "and a sound "
                       "device is written like "
                       "\"alsa,default\"."))
        .press(QMessageBox::Ok);
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).server, QStringLiteral("host"));
}

TEST_F(DiallerDialogsTest, AModemNeedsItsPort)
{
    write({labelled("one", LineSettings::Kind::Serial)});
    expectLines([](frmLines &dialog) {
        for (const char *port : {"", "  ", "ttyS0"}) {
            control<QComboBox>(dialog, "cboPort").setEditText(QString::fromLatin1(port));
            press(dialog, "cmdOK");
            EXPECT_TRUE(dialog.isVisible()) << port;
        }
        press(dialog, "cmdCancel");
    });
    for (int box = 0; box < 3; ++box)
        driver
            .expectBox(QStringLiteral("Telephone Lines"),
                       QStringLiteral("Please enter the port of the modem, such as /dev/ttyUSB0."))
            .press(QMessageBox::Ok);
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).port, QStringLiteral("/dev/ttyUSB7"));
}

TEST_F(DiallerDialogsTest, OnlyAnEncryptedConnectionHasACertificate)
{
    write({labelled("one", LineSettings::Kind::Sip)});
    expectLines([](frmLines &dialog) {
        EXPECT_FALSE(control<QLineEdit>(dialog, "txtCertificate").isEnabled());
        EXPECT_FALSE(control<QComboBox>(dialog, "cboSound").isEnabled());
        control<QComboBox>(dialog, "cboTransport").setCurrentIndex(2);
        EXPECT_TRUE(control<QLineEdit>(dialog, "txtCertificate").isEnabled());
        type(dialog, "txtCertificate", "/c.pem");
        EXPECT_EQ(control<QComboBox>(dialog, "cboSound").currentIndex(), 1);
        EXPECT_TRUE(control<QComboBox>(dialog, "cboSound").isEnabled());
        control<QComboBox>(dialog, "cboSound").setCurrentIndex(2);
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).transport, LineSettings::Transport::Tls);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).certificate, QStringLiteral("/c.pem"));
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).soundEncryption,
              LineSettings::SoundEncryption::Required);
}

TEST_F(DiallerDialogsTest, ChoosesTheMobileModem)
{
    MockModemManager manager;
    manager.addModem(QStringLiteral("m1"), QStringLiteral("Stick"));
    write({labelled("one", LineSettings::Kind::Sip)});
    expectLines([&](frmLines &dialog) {
        control<QComboBox>(dialog, "cboKind").setCurrentIndex(1);
        auto &modems = control<QComboBox>(dialog, "cboModem");
        ASSERT_TRUE(QTest::qWaitFor([&] { return modems.count() == 1; }));
        EXPECT_EQ(modems.currentIndex(), -1);
        modems.setCurrentText(QStringLiteral("Maker Stick +491234"));
        manager.addModem(QStringLiteral("m0"), QStringLiteral("Stick"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return modems.count() == 2; }));
        EXPECT_EQ(modems.currentIndex(), 1);
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).kind, LineSettings::Kind::Mobile);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).modem, QStringLiteral("m1"));
}

TEST_F(DiallerDialogsTest, AServiceThatDoesNotAnswerHoldsNothingUp)
{
    const MockModemManager manager;
    manager.freeze();
    QElapsedTimer time;
    time.start();
    expectLines([](frmLines &dialog) { press(dialog, "cmdCancel"); });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_LT(time.elapsed(), 900);
}

TEST_F(DiallerDialogsTest, AModemThatIsAwayStays)
{
    LineSettings line = labelled("one", LineSettings::Kind::Mobile);
    line.modem = QStringLiteral("away");
    write({line});
    expectLines([](frmLines &dialog) { press(dialog, "cmdOK"); });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), 0);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).modem, QStringLiteral("away"));
}

TEST_F(DiallerDialogsTest, LinesThatCannotBeSavedAreShownAgain)
{
    const QString file = TelephoneSettings::fileName();
    ASSERT_TRUE(QDir().mkpath(file));
    expectLines([](frmLines &dialog) {
        enterAccount(dialog);
        press(dialog, "cmdOK");
    });
    driver
        .expectBox(QStringLiteral("Telephone Lines"),
                   QStringLiteral("The telephone settings could not be saved: Path/File access error.\n") +
                       file)
        .icon(QMessageBox::Warning);
    expectLines([&](frmLines &dialog) {
        EXPECT_EQ(control<QLineEdit>(dialog, "txtLabel").text(), QStringLiteral("Home"));
        EXPECT_EQ(control<QLineEdit>(dialog, "txtPassword").text(), QStringLiteral("secret"));
        ASSERT_TRUE(QDir().rmdir(file));
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editLines(nullptr, 0), LineError::None);
    EXPECT_EQ(TelephoneSettings::read().lines.value(0).label, QStringLiteral("Home"));
}

TEST_F(DiallerDialogsTest, EachMnemonicLeadsToAField)
{
    expectLines([](frmLines &dialog) {
        int count = 0;
        for (const QLabel *label : dialog.findChildren<QLabel *>()) {
            if (!label->buddy())
                continue;
            EXPECT_NE(label->buddy()->focusPolicy(), Qt::NoFocus) << qPrintable(label->text());
            ++count;
        }
        EXPECT_GT(count, 10);
        press(dialog, "cmdCancel");
    });
    dialogs.editLines(nullptr, 0);
}

TEST_F(DiallerDialogsTest, EditsTheOutsidePrefix)
{
    write({labelled("one", LineSettings::Kind::Sip)});
    driver.expectWindow<frmDialingRules>(QStringLiteral("frmDialingRules"), [](frmDialingRules &dialog) {
        EXPECT_EQ(control<QLabel>(dialog, "lblDialled").text(), QStringLiteral("12,3"));
        type(dialog, "txtPrefix", "0;9");
        EXPECT_EQ(control<QLabel>(dialog, "lblDialled").text(), QStringLiteral("0912,3"));
        press(dialog, "cmdOK");
    });
    EXPECT_EQ(dialogs.editDialingRules(nullptr, QStringLiteral("1 2,3")), 0);
    EXPECT_EQ(TelephoneSettings::read().outsidePrefix, QStringLiteral("09"));
    EXPECT_EQ(TelephoneSettings::read().lines.size(), 1);
}
