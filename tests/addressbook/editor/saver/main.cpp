#include "AddressDatabase.h"
#include "Forms.h"
#include "RuntimeError.h"
#include "frmAddress.h"
#include "modGetFunctions.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr qint32 contacts = 20;

void setText(const frmAddress &editor, const char *name, const QString &text)
{
    editor.member<QLineEdit>(QString::fromLatin1(name)).setText(text);
}

/// That no other process writes, and this one once.
QString ownText(int round)
{
    return QStringLiteral("%1-%2").arg(QCoreApplication::applicationPid()).arg(round);
}

/// Nobody answers a box, so it ends the process.
void endAtABox()
{
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box)
        return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(box->text()));
    std::_Exit(1);
}

/// Opens the editor for the contact \a number, or for a new one where it is 0, fills fields of all tables
/// with \a text and presses Ok.
void save(qint32 number, const QString &text)
{
    auto &editor = Forms::refer<frmAddress>();
    editor.load();
    if (number)
        editor.configureEdit(number);
    else
        editor.EditMode = QStringLiteral("New");
    setText(editor, "txtName", text);
    setText(editor, "txtEMail", text);
    setText(editor, "txtHZipCode", text);
    setText(editor, "txtCompany", text);
    editor.member<QPushButton>(QStringLiteral("cmdAdd")).click();
    std::putchar('.');
    std::fflush(stdout);
    editor.member<QPushButton>(QStringLiteral("cmdOK")).click();
}

} // namespace

/// contact-saver DATABASE: makes the contacts that are missing, then changes them for ever; a dot for each
/// save.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2)
        return 2;
    Forms::registerWindow(QStringLiteral("frmAddress"), Forms::Instances::One, [] { return new frmAddress; });
    QTimer boxes;
    QObject::connect(&boxes, &QTimer::timeout, endAtABox);
    boxes.start(0);
    try {
        AddressDatabase::open(QFile::decodeName(argv[1]));
        for (int round = 0;; ++round)
            save(NextSrNo() <= contacts ? 0 : 1 + round % contacts, ownText(round));
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error.description()));
        return 1;
    }
}
