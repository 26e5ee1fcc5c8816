#pragma once

#include "Form.h"

class BusinessPage;
class HomePage;
class NamePage;
class QLineEdit;
class QPushButton;
class TabStrip;
class WindowIcons;

/// The contact editor: adds a contact or changes one, in all four tables, and hands its telephone numbers to
/// the dialler. The fields are in the three pages.
class frmAddress : public Form
{
    Q_OBJECT

public:
    frmAddress();

    /// Reads the contact \a srNo for a change; the window is loaded already. Throws RuntimeError, also where
    /// the contact has no row in one of the tables.
    void configureEdit(qint32 srNo);

    QSize sizeHint() const override;

    QString EditMode; ///< "New", which the caller sets, or "Modify"; empty once finished

protected:
    void Form_Load() override;

private:
    void cmdOK_Click();
    void cmdCancel_Click();

    bool hasName();
    void save();
    void finish();
    void dial(const QLineEdit &box);

    template<class Page>
    Page *addPage(const QString &caption, Page *page);
    QWidget *buildButtons();
    void bind();

    WindowIcons *m_icons;
    TabStrip *SSTab1;
    NamePage *m_name;
    HomePage *m_home;
    BusinessPage *m_business;
    QPushButton *cmdOK;
    QPushButton *cmdCancel;
    qint32 CurrentSrNo = 0; ///< the contact's number; 0 when idle
};
