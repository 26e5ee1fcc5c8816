#include "frmOptions.h"

#include "CheckValue.h"
#include "ErrorReports.h"
#include "EventGate.h"
#include "Globals.h"
#include "Named.h"
#include "Paths.h"
#include "Settings.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmOptions::frmOptions()
    : Form(QStringLiteral("frmOptions"))
    , chkSplashTime(
          named("chkSplashTime", new QCheckBox(QStringLiteral("Show Splash Screen at Start Up"), this)))
    , cmdOK(named("cmdOK", new QPushButton(QStringLiteral("&OK"), this)))
    , cmdCancel(named("cmdCancel", new QPushButton(QStringLiteral("&Cancel"), this)))
    , cmdApply(named("cmdApply", new QPushButton(QStringLiteral("&Apply"), this)))
{
    setCaption(QStringLiteral("Options"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(buildDefaults());
    column->addWidget(buildHelp());
    column->addStretch();
    column->addWidget(buildButtons());
    buildSamples();
    on(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    on(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);
    on(cmdApply, &QPushButton::clicked, this, &frmOptions::cmdApply_Click);
}

QWidget *frmOptions::buildDefaults()
{
    auto *defaults = new QGroupBox(QStringLiteral("Defaults"), this);
    auto *startUp = new QGroupBox(QStringLiteral("Start Up Options"), defaults);
    (new QVBoxLayout(defaults))->addWidget(startUp);
    (new QVBoxLayout(startUp))->addWidget(chkSplashTime);
    return defaults;
}

QWidget *frmOptions::buildHelp()
{
    auto *help = new QGroupBox(QStringLiteral("Help"), this);
    auto *text =
        new QLabel(QStringLiteral("Make your choices then click Apply or OK to apply your choices. "
                                  "Selecting OK also closes this page. Cancel closes this page without "
                                  "saving your changes."),
                   help);
    text->setObjectName(QStringLiteral("Label4"));
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
    auto *picOptions = new QWidget(this);
    picOptions->setObjectName(QStringLiteral("picOptions"));
    for (int number = 2; number <= 4; ++number) {
        auto *sample = new QGroupBox(QStringLiteral("Sample %1").arg(number), picOptions);
        sample->setObjectName(QStringLiteral("fraSample%1").arg(number));
    }
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
