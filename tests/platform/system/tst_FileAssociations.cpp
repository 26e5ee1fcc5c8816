#include "FileAssociations.h"
#include "Files.h"
#include "PrintQt.h"
#include "RegistryStore.h"
#include "ScratchHome.h"
#include "ScratchVariable.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// The classes of a scratch home, and the desktop's own tools asked what they made of them.
struct FileAssociationsTest : testing::Test
{
    ScratchHome home;
    ScratchVariable desktop{"XDG_CURRENT_DESKTOP", "GNOME"};
    RegistryStore store;

    void set(const QString &section, const QString &text)
    {
        ASSERT_EQ(store.setValue(RegistryStore::Root::Classes, section, {}, {RegistryType::String, text}),
                  RegistryResult::Ok);
    }
    void associate(const QString &className, const QString &extension, const QString &command)
    {
        set(u'.' + extension, className);
        set(className, QStringLiteral("Probe <document>"));
        set(className + QStringLiteral("\\shell\\open\\command"), command);
        FileAssociations::materialise(store, className);
    }
    /// A program that records its arguments.
    QString program(const QString &name) const
    {
        const QString path = home.file(name);
        Files::write(path, "#!/bin/sh\nprintf '%s|' \"$@\" >'" + log().toUtf8() + ".part'\nmv '" +
                               log().toUtf8() + ".part' '" + log().toUtf8() + "'\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }
    QString log() const { return home.file(QStringLiteral("log")); }
    static QString answer(const QString &tool, const QStringList &arguments)
    {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished());
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    QString document(const QString &name) const
    {
        Files::write(home.file(name), "some words\n");
        return home.file(name);
    }
    QString typeOf(const QString &path) const
    {
        return answer(QStringLiteral("xdg-mime"),
                      {QStringLiteral("query"), QStringLiteral("filetype"), path});
    }
    QByteArray entry(const char *name) const
    {
        return Files::read(home.file(QStringLiteral(".local/share/applications/") + QLatin1String(name)));
    }
    QString opened(const QString &path) const
    {
        QFile::remove(log());
        answer(QStringLiteral("gio"), {QStringLiteral("open"), path});
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(log()); }));
        return QString::fromUtf8(Files::read(log()));
    }
};

} // namespace

TEST_F(FileAssociationsTest, ADocumentHasItsTypeAndOpensWithItsProgram)
{
    const QString tool = program(QStringLiteral("probe"));
    associate(QStringLiteral("Quill.Probe"), QStringLiteral("qprobe"),
              u'"' + tool + QStringLiteral("\" \"%1\""));
    const QString path = document(QStringLiteral("a letter.qprobe"));
    const QString type = QStringLiteral("application/x-quill-quill.probe");
    EXPECT_EQ(typeOf(path), type);
    EXPECT_EQ(answer(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), type}),
              QStringLiteral("quill-quill.probe.desktop"));
    EXPECT_TRUE(Files::read(home.file(QStringLiteral(".local/share/mime/") + type + QStringLiteral(".xml")))
                    .contains("<comment>Probe &lt;document&gt;</comment>"));
    EXPECT_TRUE(Files::read(home.file(QStringLiteral(".config/mimeapps.list")))
                    .contains(type.toUtf8() + "=quill-quill.probe.desktop"));
    EXPECT_EQ(opened(path), path + u'|');
    EXPECT_TRUE(entry("quill-quill.probe.desktop").contains("Exec=" + tool.toUtf8() + " %f\n"));
}

TEST_F(FileAssociationsTest, AProgramWithABlankInItsPathIsStartedToo)
{
    const QString tool = program(QStringLiteral("my probe $1"));
    associate(QStringLiteral("Probe"), QStringLiteral("qprobe"),
              u'"' + tool + QStringLiteral("\" /x \"two words\" \"%1\""));
    const QString path = document(QStringLiteral("b.qprobe"));
    EXPECT_EQ(opened(path), QStringLiteral("/x|two words|") + path + u'|');
}

TEST_F(FileAssociationsTest, ItTakesPrecedenceOverTheSystem)
{
    associate(QStringLiteral("Words"), QStringLiteral("txt"), QStringLiteral("\"/bin/true\" \"%1\""));
    EXPECT_EQ(typeOf(document(QStringLiteral("a.txt"))), QStringLiteral("application/x-quill-words"));
}

TEST_F(FileAssociationsTest, OtherCommandsAreActionsAndTheIconIsTheProgramsName)
{
    set(QStringLiteral("Probe\\shell\\print"), QStringLiteral("&Print"));
    set(QStringLiteral("Probe\\shell\\print\\command"), QStringLiteral("\"/opt/quill\" /p \"%1\""));
    set(QStringLiteral("Probe\\shell\\Send to"), QStringLiteral("Send"));
    set(QStringLiteral("Probe\\shell\\Send to\\command"), QStringLiteral("/opt/send \"50% off\""));
    set(QStringLiteral("Probe\\DefaultIcon"), QStringLiteral("\"/opt/quill-office.bin\",2"));
    associate(QStringLiteral("Probe"), QStringLiteral("qprobe"), QStringLiteral("\"\\opt\\quill\" \"%1\""));
    EXPECT_EQ(entry("quill-probe.desktop"), QByteArray("[Desktop Entry]\n"
                                                       "Type=Application\n"
                                                       "NoDisplay=true\n"
                                                       "Name=quill\n"
                                                       "MimeType=application/x-quill-probe;\n"
                                                       "Exec=/opt/quill %f\n"
                                                       "Icon=quill-office\n"
                                                       "Actions=print;send-20to;\n"
                                                       "\n"
                                                       "[Desktop Action print]\n"
                                                       "Name=Print\n"
                                                       "Exec=/opt/quill /p %f\n"
                                                       "\n"
                                                       "[Desktop Action send-20to]\n"
                                                       "Name=Send\n"
                                                       "Exec=/opt/send \"50%% off\"\n"));
}

TEST_F(FileAssociationsTest, OddNamesStayInsideTheirFolders)
{
    associate(QStringLiteral("../x/\u00fc"), QStringLiteral("qprobe"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_EQ(typeOf(document(QStringLiteral("a.qprobe"))),
              QStringLiteral("application/x-quill-..+2fx+2f+c3+bc"));
}

TEST_F(FileAssociationsTest, APatternIsNeverMoreThanAnExtension)
{
    associate(QStringLiteral("Probe"), QStringLiteral("*"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_FALSE(QFile::exists(home.file(QStringLiteral(".local/share/mime"))));
    associate(QStringLiteral("Probe"), QStringLiteral("qprobe"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_NE(typeOf(document(QStringLiteral("a.other"))), QStringLiteral("application/x-quill-probe"));
}

TEST_F(FileAssociationsTest, AClassWithoutExtensionOrCommandMakesNothing)
{
    set(QStringLiteral("NoExtension\\shell\\open\\command"), QStringLiteral("/bin/true"));
    set(QStringLiteral(".qprobe"), QStringLiteral("NoCommand"));
    set(QStringLiteral(".empty"), QString());
    set(QStringLiteral("shell\\open\\command"), QStringLiteral("/bin/true"));
    for (const char *name : {"NoExtension", "NoCommand", "Absent", ""})
        FileAssociations::materialise(store, QLatin1String(name));
    EXPECT_TRUE(QDir(home.file(QStringLiteral(".local/share"))).isEmpty());
}

TEST_F(FileAssociationsTest, WithoutTheToolsTheFilesAreWrittenSilently)
{
    const ScratchVariable path("PATH", home.file(QStringLiteral("none")).toUtf8());
    associate(QStringLiteral("Probe"), QStringLiteral("qprobe"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_TRUE(QFile::exists(home.file(QStringLiteral(".local/share/mime/packages/quill-probe.xml"))));
    EXPECT_TRUE(store.keyExists(RegistryStore::Root::Classes, QStringLiteral(".qprobe")));
}

TEST_F(FileAssociationsTest, AFolderThatCannotBeWrittenIsPassedOver)
{
    Files::write(home.file(QStringLiteral(".local/share/mime")), "in the way");
    associate(QStringLiteral("Probe"), QStringLiteral("qprobe"), QStringLiteral("/bin/true \"%1\""));
    EXPECT_TRUE(store.keyExists(RegistryStore::Root::Classes, QStringLiteral(".qprobe")));
}
