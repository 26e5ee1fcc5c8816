#include "AddressDatabase.h"
#include "FileNames.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"
#include "ScratchVariable.h"

#include <QFileInfo>
#include <QProcess>
#include <QTcpServer>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct ContactsTool : testing::Test
{
    ContactsTool() { AddressConnection.close(); }

    /// Runs the program and waits for its end.
    void run(const QStringList &arguments) { start(QStringLiteral(QUILL_CONTACTS_TOOL), arguments); }
    /// The same by way of a shell, in which the program is $2, between \a arguments.
    void runShell(const QString &commands, QStringList arguments)
    {
        arguments.insert(1, QStringLiteral(QUILL_CONTACTS_TOOL));
        start(QStringLiteral("/bin/sh"),
              QStringList({QStringLiteral("-c"), commands, QStringLiteral("sh")}) + arguments);
    }
    void start(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        code = process.exitCode();
        out = process.readAllStandardOutput();
        complaint = process.readAllStandardError();
    }
    void import(const QString &file) { run({QStringLiteral("import"), file, book.path()}); }
    void exportTo(const QString &file, const QStringList &options = {})
    {
        run(QStringList(QStringLiteral("export")) + options + QStringList({book.path(), file}));
    }

    QString file(const char *name) const { return book.home().file(QLatin1String(name)); }
    QString file(const char *name, const QByteArray &bytes) const
    {
        Files::write(file(name), bytes);
        return file(name);
    }
    static QString sample(const char *name)
    {
        return QStringLiteral(QUILL_TEST_DATA "/contacts/") + QLatin1String(name);
    }
    QStringList names() const { return book.rows(QStringLiteral("select Name from Names order by Name")); }

    ScratchAddressBook book;
    int code = -1;
    QByteArray out;
    QByteArray complaint;
};

} // namespace

TEST_F(ContactsTool, ImportsVCards)
{
    import(sample("phone-3.0.vcf"));
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("2 contacts added\n"));
    EXPECT_EQ(complaint, QByteArray());
    EXPECT_EQ(names().join(u','), QString::fromUtf8("Jörg Brück,Nur Name"));
}

TEST_F(ContactsTool, ImportsCommaSeparatedValuesAndSaysWhatIsLeftOut)
{
    import(sample("office.csv"));
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("3 contacts added\n"));
    EXPECT_EQ(complaint, QByteArray("contacts: Sue Fox: \"5/9/1980\" is no clear birth date.\n"));
    EXPECT_EQ(names().size(), 3);
}

TEST_F(ContactsTool, WhatIsExportedIsImportedAsItWas)
{
    for (const char *name : {"phone-3.0.vcf", "old-phone-2.1.vcf", "mail-program.csv", "web-mail.csv"})
        import(sample(name));
    const QString tables[] = {QStringLiteral("Groups"), QStringLiteral("State"), QStringLiteral("City")};
    exportTo(file("all.vcf"));
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("8 contacts written\n"));
    exportTo(file("all.csv"));
    const QByteArray vCards = Files::read(file("all.vcf"));
    const QByteArray values = Files::read(file("all.csv"));
    for (const char *name : {"all.vcf", "all.csv"}) {
        const ScratchAddressBook other;
        AddressConnection.close();
        run({QStringLiteral("import"), file(name), other.path()});
        EXPECT_EQ(complaint, QByteArray());
        run({QStringLiteral("export"), other.path(), file("again.vcf")});
        EXPECT_EQ(Files::read(file("again.vcf")), vCards) << name;
        run({QStringLiteral("export"), other.path(), file("again.csv")});
        EXPECT_EQ(Files::read(file("again.csv")), values) << name;
        for (const QString &table : tables)
            EXPECT_EQ(other.rows(QStringLiteral("select count(*) from ") + table),
                      book.rows(QStringLiteral("select count(*) from ") + table));
    }
}

TEST_F(ContactsTool, OrdersNamesByTheUsersLanguage)
{
    import(file("a.csv", "Name\n\xC3\x96"
                         "berg\nZorn\n"));
    const auto firstName = [&](const char *language) {
        const ScratchVariable variable("LC_ALL", language);
        exportTo(file("b.vcf"));
        return Files::read(file("b.vcf")).contains("FN:Zorn\r\nN:Zorn;;;;\r\nEND:VCARD\r\nBEGIN")
                   ? "Zorn"
                   : "\u00D6berg";
    };
    EXPECT_STREQ(firstName("sv_SE.UTF-8"), "Zorn");
    EXPECT_STREQ(firstName("de_DE.UTF-8"), "\u00D6berg");
    EXPECT_STREQ(firstName("C"), "\u00D6berg");
}

TEST_F(ContactsTool, ExportsAsItsOptionsSay)
{
    import(file("a.csv", "Name,Home Phone 1\n=1+1,+44\n"));
    exportTo(file("b.vcf"), {QStringLiteral("--vcard3")});
    EXPECT_TRUE(Files::read(file("b.vcf")).contains("VERSION:3.0\r\n"));
    exportTo(file("b.VCF"));
    EXPECT_TRUE(Files::read(file("b.VCF")).contains("VERSION:4.0\r\n"));
    exportTo(file("b.csv"), {QStringLiteral("--guard-formulas")});
    EXPECT_TRUE(Files::read(file("b.csv")).contains("\"'=1+1\""));
    EXPECT_TRUE(Files::read(file("b.csv")).contains("\"+44\""));
    exportTo(file("b.csv"));
    EXPECT_TRUE(Files::read(file("b.csv")).contains("\"=1+1\""));
}

TEST_F(ContactsTool, FetchesNothing)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const QByteArray url = "http://127.0.0.1:" + QByteArray::number(server.serverPort()) + "/x";
    import(file("a.vcf", "BEGIN:VCARD\nVERSION:4.0\nFN:x\nPHOTO:" + url + "\nPHOTO;VALUE=uri:" + url +
                             "\nLOGO:" + url + "\nSOUND:" + url + "\nKEY:" + url + "\nURL:" + url +
                             "\nSOURCE:" + url + "\nNOTE:<img src=\"" + url + "\">\nEND:VCARD\n"));
    EXPECT_EQ(code, 0);
    EXPECT_FALSE(server.waitForNewConnection(0));
}

TEST_F(ContactsTool, RemarksShowNoControlCharacters)
{
    import(file("a.vcf", "BEGIN:VCARD\nFN:a\x1b[2J\nBDAY:x\x1b\\ny\nEND:VCARD\n"));
    EXPECT_EQ(complaint.count('\x1b'), 0);
    EXPECT_EQ(complaint.count('\n'), 1);
}

TEST_F(ContactsTool, ComplainsOfFilesThatCannotBeRead)
{
    const QPair<QString, const char *> wrong[] = {
        {file("none.vcf"), "File not found"},
        {file("a.txt", "x"), "The name has to end in .vcf or .csv"},
        {file("empty.vcf", ""), "There are no contacts in the file"},
        {file("wrong.csv", "a,b\n1,2\n"),
         "The first line has none of the captions that contacts are known by"},
    };
    for (const auto &[path, about] : wrong) {
        import(path);
        EXPECT_EQ(code, 1);
        EXPECT_EQ(complaint, "contacts: " + path.toUtf8() + ": " + about + "\n");
        EXPECT_EQ(out, QByteArray());
    }
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ContactsTool, ComplainsOfADatabaseThatIsNone)
{
    const QString garbage = file("garbage.mdb", QByteArray(5000, 'x'));
    run({QStringLiteral("import"), sample("phone-3.0.vcf"), garbage});
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(complaint.contains("cannot be opened: file is not a database.")) << complaint.constData();
    run({QStringLiteral("export"), file("none.mdb"), file("b.vcf")});
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(complaint.contains("does not exist.")) << complaint.constData();
    EXPECT_FALSE(QFile::exists(file("none.mdb")));
    EXPECT_FALSE(QFile::exists(file("b.vcf")));
}

TEST_F(ContactsTool, AFullDiskLeavesTheOldFileWhole)
{
    import(sample("phone-3.0.vcf"));
    const QString to = file("b.vcf", "old");
    {
        const FullDisk disk(100); // the program inherits it
        exportTo(to);
    }
    EXPECT_EQ(code, 1);
    EXPECT_EQ(Files::read(to), QByteArray("old"));
}

TEST_F(ContactsTool, AFileThatIsTooLargeIsRefused)
{
    const QString path = file("a.vcf", "x");
    ASSERT_TRUE(QFile::resize(path, 300 * 1024 * 1024)); // sparse
    import(path);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(complaint, "contacts: " + path.toUtf8() + ": The file is too large\n");
}

TEST_F(ContactsTool, PrintsItsUsage)
{
    const QStringList wrong[] = {
        {},
        {QStringLiteral("import")},
        {QStringLiteral("export"), QStringLiteral("a")},
        {QStringLiteral("import"), QStringLiteral("--vcard3"), QStringLiteral("a"), QStringLiteral("b")},
        {QStringLiteral("print"), QStringLiteral("a"), QStringLiteral("b")}};
    for (const QStringList &arguments : wrong) {
        run(arguments);
        EXPECT_EQ(code, 2);
        EXPECT_TRUE(complaint.startsWith("contacts: usage: "));
    }
}

TEST_F(ContactsTool, ANameMayHaveAnyBytes)
{
    const QByteArray folder = book.home().file(QStringLiteral("caf")).toUtf8() + "\xE9";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    Files::write(FileNames::fromBytes(folder + "/b.mdb"), Files::read(book.path()));
    const QString shell = QStringLiteral("cd \"$(printf '%s/caf\\351' \"$1\")\" && "
                                         "n=$(printf 'a\\351.vcf') && "
                                         "printf 'BEGIN:VCARD\\nFN:x\\nEND:VCARD\\n' >\"$n\" && "
                                         "\"$2\" import \"$n\" \"$PWD/b.mdb\" && "
                                         "\"$2\" export \"$PWD/b.mdb\" \"$n\" && "
                                         "\"$2\" import \"$n.none.vcf\" \"$PWD/b.mdb\"");
    runShell(shell, {QFileInfo(book.home().file(QStringLiteral("caf"))).path()});
    EXPECT_EQ(out, QByteArray("1 contacts added\n1 contacts written\n"));
    EXPECT_EQ(code, 1);
    EXPECT_EQ(complaint, QByteArray("contacts: a\xEF\xBF\xBD.vcf.none.vcf: File not found\n"));
    ASSERT_EQ(::rename(folder.constData(), file("cafe").toUtf8().constData()), 0); // Qt removes it
    ASSERT_EQ(::unlink((file("cafe").toUtf8() + "/a\xE9.vcf").constData()), 0);
}

TEST_F(ContactsTool, ComplaintsShowNoControlCharacters)
{
    import(file("a\x1b[2J\n.vcf"));
    EXPECT_EQ(code, 1);
    EXPECT_EQ(complaint.count('\x1b'), 0);
    EXPECT_EQ(complaint.count('\n'), 1);
}

TEST_F(ContactsTool, SaysThatThereIsNotEnoughMemory)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer itself takes more memory than the test leaves";
#endif
    const QString path = file("a.vcf", "BEGIN:VCARD\nFN:x\nNOTE:");
    ASSERT_TRUE(QFile::resize(path, 200 * 1024 * 1024));
    runShell(QStringLiteral("ulimit -v 400000 && \"$2\" import \"$1\" \"$3\""), {path, book.path()});
    EXPECT_EQ(code, 1);
    EXPECT_EQ(complaint, QByteArray("contacts: there is not enough memory\n"));
}

TEST_F(ContactsTool, NothingOfAFileWithAnOpenQuoteIsImported)
{
    const QString path = file("a.csv", "Name,Notes\nAnn,\"x\nBen,y\n");
    import(path);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(complaint, "contacts: " + path.toUtf8() + ": The quote that begins in line 2 has no end\n");
    EXPECT_EQ(names(), QStringList());
}
