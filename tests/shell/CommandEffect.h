#pragma once

#include "BareDesktop.h"
#include "RunningSuite.h"
#include "UrlCatcher.h"

#include <QMap>
#include <cstdlib>

/// What a command of the frame does, in words. It is run in a suite with three documents, in which every tool
/// opens as an empty window.
class CommandEffect
{
public:
    CommandEffect();

    /// What is different after the menu item or the toolbar's key \a name: "bold: 1 | tools: frmFTP".
    QString of(const QString &name);
    /// The desktop's tool that \a name starts where \a tool alone is installed.
    QString toolStartedBy(const QString &name, const QString &tool);
    /// The command may end the suite.
    void expectEnd() { m_suite.fatal.expectEnd(EXIT_SUCCESS); }

private:
    using State = QMap<QString, QString>;

    void makeTools() const;
    void makeDocuments();
    void arrangeFreely() const;
    State state() const;
    QString arrangement() const;
    QString dialogs() const;
    void choose(const QString &name) const;
    static QString difference(const State &before, const State &after);

    RunningSuite m_suite;
    BareDesktop m_desktop{m_suite.home};
    UrlCatcher m_urls;
};
