#include "TelephoneSettings.h"

#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ScratchHome.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

struct TelephoneSettingsTest : testing::Test
{
    ScratchHome home;

    static TelephoneSettings example()
    {
        TelephoneSettings settings;
        settings.outsidePrefix = QStringLiteral("0");
        LineSettings sip;
        sip.label = QStringLiteral("B\u00FCro %1 \"x\"\n");
        sip.user = QStringLiteral("user");
        sip.password = QStringLiteral("\u20AC; ");
        sip.server = QStringLiteral("host:5061");
        sip.transport = LineSettings::Transport::Tls;
        sip.certificate = QStringLiteral("/c.pem");
        sip.soundEncryption = LineSettings::SoundEncryption::Required;
        sip.registers = false;
        sip.microphone = QStringLiteral("a,b");
        sip.loudspeaker = QStringLiteral("c,d");
        LineSettings mobile;
        mobile.kind = LineSettings::Kind::Mobile;
        mobile.modem = QStringLiteral("id");
        LineSettings serial;
        serial.kind = LineSettings::Kind::Serial;
        serial.port = QStringLiteral("/dev/x");
        serial.speed = 9600;
        serial.mode = LineSettings::SerialMode::Voice;
        serial.dialsByPulses = true;
        serial.initialisation = QStringLiteral("L1");
        settings.lines = {sip, mobile, serial};
        return settings;
    }
};

/// All fields of a line in one text.
QString text(const LineSettings &line)
{
    return QStringList{QString::number(int(line.kind)),
                       line.label,
                       line.user,
                       line.password,
                       line.server,
                       QString::number(int(line.transport)),
                       line.certificate,
                       QString::number(int(line.soundEncryption)),
                       QString::number(line.registers),
                       line.microphone,
                       line.loudspeaker,
                       line.modem,
                       line.port,
                       QString::number(line.speed),
                       QString::number(int(line.mode)),
                       QString::number(line.dialsByPulses),
                       line.initialisation}
        .join(u'|');
}

} // namespace

TEST_F(TelephoneSettingsTest, ComeBackAsTheyWere)
{
    const TelephoneSettings written = example();
    written.write();
    const TelephoneSettings read = TelephoneSettings::read();
    EXPECT_EQ(read.outsidePrefix, QStringLiteral("0"));
    ASSERT_EQ(read.lines.size(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(text(read.lines[i]), text(written.lines[i]));
}

TEST_F(TelephoneSettingsTest, AreForTheirUserAlone)
{
    example().write();
    EXPECT_EQ(QFile::permissions(TelephoneSettings::fileName()) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
}

TEST_F(TelephoneSettingsTest, NoFileIsNoLine)
{
    EXPECT_TRUE(TelephoneSettings::read().lines.isEmpty());
}

TEST_F(TelephoneSettingsTest, ADamagedFileIsNoLineAndIsKept)
{
    QDir().mkpath(QFileInfo(TelephoneSettings::fileName()).path());
    for (const char *bytes : {"{\"lines\":", "[]", "\xff\xfe", "x"}) {
        Files::write(TelephoneSettings::fileName(), bytes);
        EXPECT_TRUE(TelephoneSettings::read().lines.isEmpty()) << bytes;
        example().write();
        EXPECT_EQ(Files::read(TelephoneSettings::fileName() + QStringLiteral(".damaged")), bytes);
        EXPECT_EQ(TelephoneSettings::read().lines.size(), 3);
    }
}

TEST_F(TelephoneSettingsTest, ValuesOfOtherKindsAreTheUsualOnes)
{
    QDir().mkpath(QFileInfo(TelephoneSettings::fileName()).path());
    Files::write(TelephoneSettings::fileName(),
                 R"({"lines": [{"kind": 7, "speed": "fast", "transport": 1, "registers": 1}, 5]})");
    const TelephoneSettings read = TelephoneSettings::read();
    ASSERT_EQ(read.lines.size(), 2);
    for (const LineSettings &line : read.lines)
        EXPECT_EQ(text(line), text(LineSettings()));
}

TEST_F(TelephoneSettingsTest, UnknownNamesAreNeverLessEncrypted)
{
    QDir().mkpath(QFileInfo(TelephoneSettings::fileName()).path());
    Files::write(TelephoneSettings::fileName(),
                 R"({"lines": [{"transport": "TLS", "soundEncryption": "pigeon"}]})");
    const LineSettings line = TelephoneSettings::read().lines.value(0);
    EXPECT_EQ(line.transport, LineSettings::Transport::Tls);
    EXPECT_EQ(line.soundEncryption, LineSettings::SoundEncryption::Required);
}

TEST_F(TelephoneSettingsTest, AFileThatCannotBeReadIsNotReplaced)
{
    example().write();
    const QByteArray before = Files::read(TelephoneSettings::fileName());
    QFile::setPermissions(TelephoneSettings::fileName(), {});
    {
        const AsUser user(home.path());
        EXPECT_TRUE(TelephoneSettings::read().lines.isEmpty());
        EXPECT_EQ(errorNumberOf([] { TelephoneSettings().write(); }), ErrorNumber::PermissionDenied);
    }
    QFile::setPermissions(TelephoneSettings::fileName(), QFile::ReadOwner);
    EXPECT_EQ(Files::read(TelephoneSettings::fileName()), before);
}

TEST_F(TelephoneSettingsTest, AFailedWriteLeavesTheOldFile)
{
    example().write();
    const QByteArray before = Files::read(TelephoneSettings::fileName());
    TelephoneSettings more = example();
    more.lines += more.lines;
    {
        const FullDisk disk(100);
        EXPECT_EQ(errorNumberOf([&] { more.write(); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(Files::read(TelephoneSettings::fileName()), before);
}
