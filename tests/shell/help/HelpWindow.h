#pragma once

#include "Form.h"
#include "RunningSuite.h"
#include "ScratchProgramFolder.h"
#include "TabStrip.h"

#include <QPushButton>

/// The help window in the running suite. Its program folder has the documents of all topics, each with the
/// text "This is ", its own file's name, and a second line.
class HelpWindow
{
public:
    HelpWindow();

    /// Chooses the frame's menu item.
    void open() { suite.choose("mnuHelpContents"); }

    Form &form() const { return suite.active(); }
    RichTextBox &pane() const { return form().member<RichTextBox>(QStringLiteral("RichTextBox1")); }
    TabStrip &tabs() const { return form().member<TabStrip>(QStringLiteral("SSTab1")); }
    QPushButton &topic(int index) const
    {
        return form().member<QPushButton>(QStringLiteral("cmdWordHelp_%1").arg(index));
    }
    /// The file whose document the pane shows.
    QString shown() const;
    /// Brings the topic's tab to the front and clicks its button.
    void show(int index) const;
    void clickTab(int tab) const;
    /// Chooses an item of the window's own menus.
    void choose(const char *item) const;
    void removeDocument(const char *file) const;
    void writeDocument(const QString &file, const QByteArray &rtf) const;

    RunningSuite suite;
    ScratchProgramFolder folder;
};
