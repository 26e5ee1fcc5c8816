#include "TestLine.h"

#include "EventGate.h"
#include "TelephoneSettings.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr int eventPatience = 60000; // milliseconds; a loaded computer is slow

} // namespace

TestLine::TestLine(const QList<LineSettings> &lines, const LineLimits &limits)
    : m_service(m_dialogs, limits)
    , m_line(std::make_unique<CvbTAPILine>(m_service))
{
    TelephoneSettings settings;
    settings.lines = lines;
    settings.write();
    const auto record = [this](const char *event, qint32 error) {
        m_events.append(error == 0 ? QString::fromLatin1(event)
                                   : QString::fromLatin1(event) + u':' + m_line->ErrorString(error));
    };
    on(m_line.get(), &CvbTAPILine::MakeCallResult, m_line.get(),
       [=](qint32 error) { record("made", error); });
    on(m_line.get(), &CvbTAPILine::DropCallResult, m_line.get(),
       [=](qint32 error) { record("dropped", error); });
    on(m_line.get(), &CvbTAPILine::Connected, m_line.get(), [=] { record("connected", 0); });
    on(m_line.get(), &CvbTAPILine::Disconnected, m_line.get(), [=] { record("disconnected", 0); });
    on(m_line.get(), &CvbTAPILine::Idle, m_line.get(), [=] { record("idle", 0); });
}

TestLine::~TestLine() = default;

bool TestLine::call(const QString &number)
{
    m_events.clear();
    return m_line->Create() && m_line->OpenLine(1, 4) && m_line->MakeCallAsynch(number);
}

void TestLine::waitFor(const char *event)
{
    const auto last = [this] { return m_events.isEmpty() ? QString() : m_events.constLast(); };
    const QString awaited = QString::fromLatin1(event);
    const auto isOver = [&] {
        return last() == QStringLiteral("idle") || last().startsWith(QStringLiteral("made:"));
    };
    (void)QTest::qWaitFor([&] { return last() == awaited || isOver(); }, eventPatience);
    EXPECT_EQ(last(), awaited) << qPrintable(events());
}

QString TestLine::allEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    return events();
}
