#pragma once

#include "ChildForm.h"
#include "ComputerSearch.h"
#include "NetworkList.h"
#include "RemoteShutdown.h"

class ListBox;
class QPushButton;

/// The computers of the network, and the commands that shut the selected one down. What becomes of a command
/// is not known here, nor who got one: abort goes to whatever is selected.
class frmCompsOnNetwork : public ChildForm
{
    Q_OBJECT

public:
    /// Tests give a \a search of their own.
    explicit frmCompsOnNetwork(NetworkList::Search search = [] { return ComputerSearch::computers(); });

    QList<QMenu *> menus() const override { return m_menus; }

protected:
    void Form_Load() override;

private:
    void cmdShutIt_Click();
    void cmdRestart_Click();
    void cmdAbort_Click();
    void OKButton_Click();

    struct Command
    {
        RemoteShutdown::Order order;
        const char *question; ///< before the row
        const char *refusal;  ///< of this computer
        const char *comment;  ///< before this computer's name
        const char *sent;     ///< before the row
        const char *advice;   ///< behind it
    };
    static const Command shutDown;
    static const Command restart;
    static const Command abort;

    bool send(const Command &command);
    void sendAndArm(const Command &command);
    void layOut();

    ListBox *List1;
    QPushButton *cmdShutIt;
    QPushButton *cmdRestart;
    QPushButton *cmdAbort;
    QPushButton *OKButton;
    QList<QMenu *> m_menus;
    NetworkList m_network;
};
