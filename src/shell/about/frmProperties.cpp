#include "frmProperties.h"

#include "AttributeWords.h"
#include "FileAttributes.h"
#include "FileDetails.h"
#include "FileSizeText.h"
#include "Named.h"
#include "ShownText.h"
#include "WindowCommands.h"

#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace {

constexpr int longestName = 40; // characters

} // namespace

frmProperties::frmProperties()
    : Form(QStringLiteral("frmProperties"))
    , lblFileName(named<QLabel>("lblFileName", QString()))
    , lblModified(named<QLabel>("lblModified", QString()))
    , lblSize(named<QLabel>("lblSize", QString()))
    , lblAttr(named<QLabel>("lblAttr", QString()))
{
    setCaption(QStringLiteral("Properties"));
    auto *cmdRefresh = named<QPushButton>("cmdRefresh", QStringLiteral("Refresh"));
    auto *cmdOK = named<QPushButton>("cmdOK", QStringLiteral("OK"));
    auto *details = new QFormLayout;
    details->addRow(QStringLiteral("Name:"), lblFileName);
    details->addRow(QStringLiteral("Modified:"), lblModified);
    details->addRow(QStringLiteral("Size:"), lblSize);
    details->addRow(QStringLiteral("Attributes:"), lblAttr);
    lblFileName->setWordWrap(true);
    lblFileName->setMinimumWidth(longestName * fontMetrics().averageCharWidth());
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdRefresh);
    buttons->addWidget(cmdOK);
    auto *column = new QVBoxLayout(this);
    column->addLayout(details, 1);
    column->addLayout(buttons);
    setKeyButtons(*cmdOK, *cmdOK);
    WindowCommands::bind(
        *this, {{"cmdRefresh", &frmProperties::cmdRefresh_Click}, {"cmdOK", &frmProperties::cmdOK_Click}});
}

QString frmProperties::GetFileSize(const QString &path)
{
    return FileSizeText::of(FileDetails::of(path).length);
}

void frmProperties::Form_Load()
{
    lblFileName->setText(ShownText::line(FileName));
    try {
        showFile();
    } catch (const RuntimeError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        showNoFile();
    }
}

void frmProperties::showFile()
{
    const FileDetails details = FileDetails::of(FileName);
    lblModified->setText(QLocale().toString(details.modified, QLocale::ShortFormat));
    lblSize->setText(GetFileSize(FileName));
    lblAttr->setText(AttributeWords::of(FileAttributes::of(FileName)));
}

void frmProperties::showNoFile()
{
    lblAttr->setText(QStringLiteral("No File Attributes"));
    lblModified->setText(QStringLiteral("File hasn't been saved yet"));
    lblSize->setText(QStringLiteral("0 Bytes"));
}

void frmProperties::cmdRefresh_Click()
{
    Form_Load();
}

void frmProperties::cmdOK_Click()
{
    unload();
}
