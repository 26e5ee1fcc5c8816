#include "DialButtons.h"
#include "EditorWindow.h"
#include "EventGate.h"
#include "Forms.h"
#include "Named.h"
#include "PrintQt.h"
#include "RowName.h"
#include "mMain.h"

#include <QLineEdit>
#include <gtest/gtest.h>

namespace {

/// In the place of the dialler's window.
class StandInDialler : public Form
{
public:
    explicit StandInDialler(QStringList &dialled)
        : Form(QStringLiteral("frmdialler"))
    {
        auto *txtPhoneNumber = named<QLineEdit>("txtPhoneNumber");
        txtPhoneNumber->setText(QStringLiteral("1234567"));
        txtPhoneNumber->setParent(this);
        on(txtPhoneNumber, &QLineEdit::textChanged, this, [&dialled](const QString &number) {
            dialled.append(
                Forms::named(QStringLiteral("frmAddress")).isEmpty() ? number : QStringLiteral("too early"));
        });
    }
};

struct FrmAddressDial : testing::TestWithParam<DialButtonRow>
{
    FrmAddressDial()
    {
        Forms::registerWindow(QStringLiteral("frmdialler"), Forms::Instances::One,
                              [this] { return new StandInDialler(dialled); });
    }
    ~FrmAddressDial() override
    {
        CloseFormByName(QStringLiteral("frmdialler"));
        Forms::unregisterWindow(QStringLiteral("frmdialler"));
    }

    EditorWindow editor;
    QStringList dialled;
};

} // namespace

TEST_P(FrmAddressDial, HandsOverTheNumberThatIsOnShow)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    editor.openFor(1);
    editor.type(GetParam().box, QStringLiteral(" +44 (20) 1# "));
    editor.click(GetParam().name);
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(dialled, QStringList(QStringLiteral(" +44 (20) 1# ")));
    EXPECT_EQ(editor.rows("select hPhone1,hPhone2,hMobile,bPhone1,bPhone2,bPager from Home,Business"),
              QStringList(QStringLiteral("|||||")));
}

TEST_P(FrmAddressDial, HandsOverAnEmptyNumberToo)
{
    editor.openNew();
    editor.click(GetParam().name);
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(dialled, QStringList(QString()));
}

INSTANTIATE_TEST_SUITE_P(Buttons, FrmAddressDial, dialButtonRows, RowName());
