#include "frmAddress.h"

#include "AddressDatabase.h"
#include "Ask.h"
#include "AskAgain.h"
#include "BusinessPage.h"
#include "CityBoxes.h"
#include "ContactRows.h"
#include "DataEntryError.h"
#include "DataError.h"
#include "EventGate.h"
#include "HomePage.h"
#include "NamePage.h"
#include "Named.h"
#include "TabStrip.h"
#include "Transaction.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "mMain.h"
#include "modGetFunctions.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int firstWidth = 124; // characters

struct DialButton
{
    const char *name;
    const char *box; ///< has the number
};

constexpr DialButton dialButtons[] = {
    {"Command1", "txtHPhone1"}, {"Command2", "txtHPhone2"}, {"Command3", "txtMobile"},
    {"Command4", "txtBPhone1"}, {"Command5", "txtBPhone2"}, {"Command6", "txtPager"},
};

} // namespace

frmAddress::frmAddress()
    : Form(QStringLiteral("frmAddress"))
    , m_icons(new WindowIcons(*this))
    , SSTab1(named<TabStrip>("SSTab1"))
    , cmdOK(named<QPushButton>("cmdOK", QStringLiteral("&Ok")))
    , cmdCancel(named<QPushButton>("cmdCancel", QStringLiteral("&Cancel")))
{
    setCaption(QStringLiteral("Contacts"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("x-office-contact")));
    m_name = addPage(QStringLiteral("Name"), new NamePage);
    m_home = addPage(QStringLiteral("Home Details"), new HomePage(*m_icons));
    m_business = addPage(QStringLiteral(" Business Details"), new BusinessPage(*m_icons));
    auto *column = new QVBoxLayout(this);
    column->addWidget(SSTab1);
    column->addWidget(buildButtons());
    bind();
}

template<class Page>
Page *frmAddress::addPage(const QString &caption, Page *page)
{
    auto *column = new QVBoxLayout(SSTab1->addPage(caption));
    column->setContentsMargins({});
    column->addWidget(page);
    return page;
}

QWidget *frmAddress::buildButtons()
{
    auto *panel = new QWidget(this);
    auto *row = new QHBoxLayout(panel);
    row->setContentsMargins({});
    row->addStretch();
    row->addWidget(cmdOK);
    row->addWidget(cmdCancel);
    setCancelButton(*cmdCancel);
    return panel;
}

/// Wider than it has to be, so that most names and addresses are seen whole.
QSize frmAddress::sizeHint() const
{
    const QSize least = Form::sizeHint();
    return {qMax(least.width(), firstWidth * fontMetrics().averageCharWidth()), least.height()};
}

void frmAddress::bind()
{
    WindowCommands::bind(*this, {
                                    {"cmdOK", &frmAddress::cmdOK_Click},
                                    {"cmdCancel", &frmAddress::cmdCancel_Click},
                                });
    for (const DialButton &button : dialButtons) {
        const auto &box = member<QLineEdit>(QString::fromLatin1(button.box));
        WindowCommands::bindCommand(*this, button.name, [this, &box] { dial(box); });
    }
}

void frmAddress::Form_Load()
{
    m_name->fill();
    m_home->city().fill();
    m_business->city().fill();
    m_name->nameBox().setFocus();
}

void frmAddress::configureEdit(qint32 srNo)
{
    EditMode = QStringLiteral("Modify");
    CurrentSrNo = srNo;
    m_name->setRow(ContactRows::name(srNo));
    m_name->setEMails(ContactRows::eMails(srNo));
    m_home->setRow(ContactRows::home(srNo));
    m_business->setRow(ContactRows::business(srNo));
    m_home->city().showState();
    m_business->city().showState();
}

void frmAddress::cmdOK_Click()
{
    try {
        if (!hasName())
            return;
        m_name->requireGroup();
        m_home->city().requireCity();
        m_business->city().requireCity();
        save();
        finish();
    } catch (const RuntimeError &error) {
        Ask(DataEntryError::text(error), MsgBoxStyle::Critical, QStringLiteral("Data Entry Error..."));
        if (!DataError::isLocked(error))  // which stores nothing
            cmdCancel->setEnabled(false); // Intended: the contact may be stored in part, so only Ok leads on
    }
}

bool frmAddress::hasName()
{
    if (m_name->hasName())
        return true;
    SSTab1->setTab(0);
    AskAgain(m_name->nameBox(), QStringLiteral("Enter Name..."));
    return false;
}

/// Intended: what was written before a step failed stays.
void frmAddress::save()
{
    Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
    if (EditMode == u"New")
        CurrentSrNo = NextSrNo();
    if (EditMode == u"Modify")
        ContactRows::remove(CurrentSrNo);
    ContactRows::addName(CurrentSrNo, m_name->row());
    ContactRows::addEMails(CurrentSrNo, m_name->eMails());
    ContactRows::addHome(CurrentSrNo, m_home->row());
    ContactRows::addBusiness(CurrentSrNo, m_business->row());
    transaction.commit();
}

void frmAddress::finish()
{
    CurrentSrNo = 0;
    EditMode.clear();
    unload();
}

void frmAddress::cmdCancel_Click()
{
    finish();
}

/// Intended: the number is dialled as it is in the box, saved or not, and what was not saved is lost.
void frmAddress::dial(const QLineEdit &box)
{
    const QString number = box.text();
    unload();
    AutoDial(number);
}
