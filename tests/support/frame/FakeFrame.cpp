#include "FakeFrame.h"

#include "ChildForm.h"
#include "Globals.h"
#include "MdiArea.h"
#include "Toolbar.h"

#include <QMdiSubWindow>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr QSize windowSize(1000, 700);

} // namespace

FakeFrame::FakeFrame()
    : m_area(new MdiArea)
    , m_toolBar(new Toolbar)
{
    mainFrame = this;
    m_window.addToolBar(m_toolBar);
    m_window.setCentralWidget(m_area);
    m_window.resize(windowSize);
    m_window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
}

FakeFrame::~FakeFrame() = default;

Form *FakeFrame::ActiveForm() const
{
    const QMdiSubWindow *active = m_area->activeChild();
    return active ? dynamic_cast<Form *>(active->widget()) : nullptr;
}

void FakeFrame::adopt(ChildForm &child)
{
    m_area->adopt(child);
}

void FakeFrame::bringForward(ChildForm &child)
{
    m_area->bringForward(child);
}
