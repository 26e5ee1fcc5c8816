#include "DialButtons.h"
#include "EditorWindow.h"
#include "PrintQt.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct FrmAddressWithoutDialler : testing::TestWithParam<DialButtonRow>
{
    EditorWindow editor;
};

} // namespace

TEST_P(FrmAddressWithoutDialler, SaysSoAndLosesNothing)
{
    editor.openNew();
    editor.type(GetParam().box, QStringLiteral("123"));
    editor.frame.dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QStringLiteral("This command is not in this version yet."))
        .icon(QMessageBox::Information);
    editor.click(GetParam().name);
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.text(GetParam().box), QStringLiteral("123"));
}

INSTANTIATE_TEST_SUITE_P(Buttons, FrmAddressWithoutDialler, dialButtonRows, RowName());
