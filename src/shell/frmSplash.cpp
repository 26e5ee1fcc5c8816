#include "frmSplash.h"

#include "ErrorReports.h"
#include "EventGate.h"
#include "Named.h"
#include "Version.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTimer>

namespace {

constexpr int shownFor = 3500; // milliseconds
const QSize pictureSize(480, 288);

} // namespace

frmSplash::frmSplash()
    : Form(QStringLiteral("frmSplash"))
    , lblVersion(named<QLabel>("lblVersion", QString(), QStringLiteral("Version")))
    , Timer1(named("Timer1", new QTimer(this)))
{
    setWindowFlags(Qt::FramelessWindowHint);
    setFixedSize(pictureSize);
    lblVersion->setParent(this);
    lblVersion->setStyleSheet(QStringLiteral("color: #dfe7ef;"));
    lblVersion->setAttribute(Qt::WA_TransparentForMouseEvents);
    Timer1->setInterval(shownFor);
    on(Timer1, &QTimer::timeout, this, &frmSplash::Timer1_Timer);
}

void frmSplash::Form_Load()
{
    try {
        lblVersion->setText(QStringLiteral("Version : ") + Version::text());
        lblVersion->adjustSize();
        lblVersion->move(36, height() - 36 - lblVersion->height());
        move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
        setFocusPolicy(Qt::StrongFocus);
        Timer1->start();
    } catch (const RuntimeError &error) {
        ReportFatalError(error.number(), error.description());
    }
}

void frmSplash::paintEvent(QPaintEvent *)
{
    runPainting([&] {
        QPainter painter(this);
        QSvgRenderer(QStringLiteral(":/splash.svg")).render(&painter, rect());
    });
}

void frmSplash::mousePressEvent(QMouseEvent *)
{
    run([&] { unload(); });
}

void frmSplash::keyPressEvent(QKeyEvent *)
{
    run([&] { unload(); });
}

void frmSplash::Timer1_Timer()
{
    unload();
}
