#include "Files.h"
#include "Forms.h"
#include "HelpError.h"
#include "HelpSource.h"
#include "HelpTable.h"
#include "Paths.h"
#include "Pause.h"
#include "RichTextFile.h"
#include "RunningSuite.h"
#include "WindowCaptions.h"
#include "dlgFindReplace.h"

#include <QDir>
#include <QTextDocument>
#include <gtest/gtest.h>
#include <map>

namespace {

QString documentPath(const char *file)
{
    return Paths::native(Paths::appPath() + QStringLiteral("\\help\\") + QLatin1String(file));
}

/// The captions of the suite's windows by name, each window opened once.
class OpenedWindows
{
public:
    explicit OpenedWindows(RunningSuite &suite)
        : m_suite(suite)
    {
        m_captions.insert({QStringLiteral("frmMain"), WindowCaptions(suite.frame())});
    }

    /// Throws RuntimeError 424 for a name that no window has.
    const WindowCaptions &captionsOf(const QString &name)
    {
        const auto known = m_captions.find(name);
        return known != m_captions.end() ? known->second
                                         : m_captions.insert({name, open(name)}).first->second;
    }

private:
    WindowCaptions open(const QString &name)
    {
        if (name == QLatin1String("frmdialler"))
            return openDialler();
        if (name == QLatin1String("frmAddress"))
            return openContactEditor();
        if (name == QLatin1String("dlgFindReplace"))
            return WindowCaptions(dlgFindReplace({}, true, nullptr));
        return load(name);
    }
    static WindowCaptions load(const QString &name)
    {
        Form &form = Forms::refer(name);
        form.load();
        const WindowCaptions captions(form);
        form.unload();
        return captions;
    }
    /// It reads the database that the address book has open.
    static WindowCaptions openContactEditor()
    {
        Form &book = Forms::refer(QStringLiteral("frmAddressBook"));
        book.load();
        const WindowCaptions captions = load(QStringLiteral("frmAddress"));
        book.unload();
        return captions;
    }
    /// Its menus and captions differ by its mode.
    WindowCaptions openDialler()
    {
        setPause([](int) {});
        m_suite.choose("diallersetup");
        WindowCaptions captions(m_suite.active());
        m_suite.choose("dialleruse");
        captions.unite(WindowCaptions(m_suite.active()));
        m_suite.active().unload();
        setPause({});
        return captions;
    }

    RunningSuite &m_suite;
    std::map<QString, WindowCaptions> m_captions;
};

} // namespace

TEST(HelpDocuments, EveryTopicIsInstalled)
{
    for (const HelpTable::Row &row : HelpTable::rows) {
        QTextDocument document;
        ASSERT_NO_THROW(RichTextFile::load(documentPath(row.file), document)) << row.file;
        EXPECT_GT(document.characterCount(), 100) << row.file;
    }
}

TEST(HelpDocuments, TheHelpMenuIsInstalledAndItsSourcesAreNot)
{
    QTextDocument document;
    ASSERT_NO_THROW(RichTextFile::load(documentPath("quillofficehelpmenu.rtf"), document));
    EXPECT_GT(document.characterCount(), 100);
    const QDir folder(QFileInfo(documentPath("x")).path());
    for (const QString &name : folder.entryList(QDir::NoDotAndDotDot | QDir::AllEntries))
        EXPECT_TRUE(name.endsWith(QStringLiteral(".rtf"))) << qPrintable(name);
}

TEST(HelpDocuments, EveryCaptionThatTheyNameIsInTheWindowsThatTheyName)
{
    RunningSuite suite;
    OpenedWindows windows(suite);
    const QDir sources(QStringLiteral(QUILL_HELP_SOURCES));
    for (const QString &file : sources.entryList({QStringLiteral("*.md")})) {
        const HelpSource source = HelpSource::read(QString::fromUtf8(Files::read(sources.filePath(file))));
        for (const HelpBlock &block : source.blocks) {
            for (const HelpSpan &span : block.spans) {
                const bool isThere = span.kind != HelpSpan::Kind::Bold ||
                                     std::ranges::any_of(source.windows, [&](const QString &window) {
                                         return windows.captionsOf(window).has(span.text);
                                     });
                EXPECT_TRUE(isThere) << qPrintable(sources.filePath(file)) << ':' << block.line << ": \""
                                     << qPrintable(span.text) << "\" is not in "
                                     << qPrintable(source.windows.join(u' '));
            }
        }
    }
}
