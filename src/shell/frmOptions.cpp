#include "frmOptions.h"

#include "CheckValue.h"
#include "ErrorReports.h"
#include "Globals.h"
#include "Named.h"
#include "Paths.h"
#include "Settings.h"
#include "WindowCommands.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmOptions::frmOptions()
    : Form(QStringLiteral("frmOptions"))
    , chkSplashTime(named<QCheckBox>("chkSplashTime", QStringLiteral("Show Splash Screen at Start Up")))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("&OK")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("&Cancel")))
    , cmdApply(named<QPushButton>("cmdApply", QStringLiteral("&Apply")))
{
    setCaption(QStringLiteral("Options"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(buildDefaults());
    column->addWidget(buildHelp());
    column->addStretch();
    column->addWidget(buildButtons());
    buildSamples();
    WindowCommands::bind(*this, {
                                    {"cmdOK", &frmOptions::cmdOK_Click},
                                    {"cmdCancel", &frmOptions::cmdCancel_Click},
                                    {"cmdApply", &frmOptions::cmdApply_Click},
                                });
}

QWidget *frmOptions::buildDefaults()
{
    auto *defaults = named<QGroupBox>("fraDefaults", QStringLiteral("Defaults"));
    auto *startUp = named<QGroupBox>("fraStartUp", QStringLiteral("Start Up Options"));
    (new QVBoxLayout(defaults))->addWidget(startUp);
    (new QVBoxLayout(startUp))->addWidget(chkSplashTime);
    return defaults;
}

QWidget *frmOptions::buildHelp()
{
    auto *help = named<QGroupBox>("fraHelp", QStringLiteral("Help"));
    auto *text = named<QLabel>(
        "Label4", QStringLiteral("Make your choices then click Apply or OK to apply your choices. "
                                 "Selecting OK also closes this page. Cancel closes this page "
                                 "without saving your changes."));
    text->setWordWrap(true);
    text->setMinimumWidth(fontMetrics().averageCharWidth() * 56);
    (new QVBoxLayout(help))->addWidget(text);
    return help;
}

QWidget *frmOptions::buildButtons()
{
    auto *panel = new QWidget(this);
    auto *row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    row->addStretch();
    row->addWidget(cmdOK);
    row->addWidget(cmdCancel);
    row->addWidget(cmdApply);
    setKeyButtons(*cmdOK, *cmdCancel);
    return panel;
}

/// The empty frames of a panel that is never on show; other windows may still reach them by name.
void frmOptions::buildSamples()
{
    auto *picOptions = named("picOptions", new QWidget(this));
    auto *column = new QVBoxLayout(picOptions);
    column->addWidget(named<QGroupBox>("fraSample2", QStringLiteral("Sample 2")));
    column->addWidget(named<QGroupBox>("fraSample3", QStringLiteral("Sample 3")));
    column->addWidget(named<QGroupBox>("fraSample4", QStringLiteral("Sample 4")));
    picOptions->hide();
}

void frmOptions::Form_Load()
{
    try {
        CheckValue::set(*chkSplashTime, showSplash);
    } catch (const RuntimeError &error) {
        ReportFatalError(error.number(), error.description());
    }
}

void frmOptions::cmdApply_Click()
{
    const int value = CheckValue::of(*chkSplashTime);
    Settings::save(Paths::applicationTitle, QStringLiteral("Options"),
                   QStringLiteral("Show Splash at Startup"), QString::number(value));
    showSplash = qint16(value);
}

void frmOptions::cmdOK_Click()
{
    cmdApply_Click();
    unload();
}

void frmOptions::cmdCancel_Click()
{
    unload();
}
