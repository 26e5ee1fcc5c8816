#include "FormatCommands.h"

#include "ColorNumber.h"
#include "DocumentText.h"
#include "ErrorReports.h"
#include "Form.h"
#include "RichTextBox.h"
#include "Toolbar.h"
#include "frmMain.h"

#include <QTextCharFormat>

namespace {

constexpr int fullColorDialog = 3;     // start with the current colour, show the full dialog
constexpr int fullFontDialog = 164099; // screen and printer fonts, effects, scalable ones

/// A mixed state has no value to pass on; the step then fails.
template<class Value>
Value valueOf(const std::optional<Value> &state)
{
    if (!state)
        throw RuntimeError(ErrorNumber::InvalidUseOfNull);
    return *state;
}

} // namespace

FormatCommands::FormatCommands(frmMain &frame)
    : m_frame(frame)
{}

RichTextBox &FormatCommands::text() const
{
    RichTextBox &text = DocumentText::ofActiveForm();
    DocumentText::requireUnlocked(text);
    return text;
}

void FormatCommands::showPressed(const QString &key, bool pressed)
{
    m_frame.tbToolBar().setPressed(key, pressed);
}

// The inverse of a mixed state is true.

void FormatCommands::Bold()
{
    const bool on = text().SelBold() != true;
    text().setSelBold(on);
    showPressed(QStringLiteral("Bold"), on);
}

void FormatCommands::Italic()
{
    const bool on = text().SelItalic() != true;
    text().setSelItalic(on);
    showPressed(QStringLiteral("Italic"), on);
}

void FormatCommands::Underline()
{
    const bool on = text().SelUnderline() != true;
    text().setSelUnderline(on);
    showPressed(QStringLiteral("Underline"), on);
}

void FormatCommands::Align(int alignment)
{
    text().setSelAlignment(alignment);
}

// The dialogs open on a locked document too; what was chosen is then ignored.

void FormatCommands::FontColour()
{
    RichTextBox &document = DocumentText::ofActiveForm();
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Colour Picker");
    dialog.CancelError = false;
    dialog.Flags = fullColorDialog;
    ignoreErrors([&] { dialog.Color = ColorNumber::of(valueOf(document.SelColor())); });
    dialog.ShowColor();
    DocumentText::requireUnlocked(document);
    document.setSelColor(ColorNumber::toColor(dialog.Color));
}

void FormatCommands::Font()
{
    RichTextBox &document = DocumentText::ofActiveForm();
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    dialog.DialogTitle = QStringLiteral("Font Chooser");
    dialog.CancelError = false;
    dialog.Flags = fullFontDialog;
    takeFont(document);
    dialog.ShowFont();
    DocumentText::requireUnlocked(document);
    giveFont(document);
}

void FormatCommands::takeFont(const RichTextBox &text)
{
    CommonDialog &dialog = m_frame.dlgCommonDialog();
    ignoreErrors([&] { dialog.FontSize = valueOf(text.SelFontSize()); });
    ignoreErrors([&] { dialog.FontName = valueOf(text.SelFontName()); });
    dialog.FontBold = text.SelBold() == true;
    dialog.FontItalic = text.SelItalic() == true;
    dialog.FontStrikethru = text.SelStrikeThru() == true;
    dialog.FontUnderline = text.SelUnderline() == true;
    ignoreErrors([&] { dialog.Color = ColorNumber::of(valueOf(text.SelColor())); });
}

/// All seven at once are one undo step and one walk over the selection.
void FormatCommands::giveFont(RichTextBox &text)
{
    const CommonDialog &dialog = m_frame.dlgCommonDialog();
    QTextCharFormat font;
    if (!dialog.FontName.isEmpty())
        font.setFontFamilies({dialog.FontName});
    if (dialog.FontSize > 0)
        font.setFontPointSize(dialog.FontSize);
    font.setFontWeight(dialog.FontBold ? QFont::Bold : QFont::Normal);
    font.setFontItalic(dialog.FontItalic);
    font.setFontStrikeOut(dialog.FontStrikethru);
    font.setFontUnderline(dialog.FontUnderline);
    font.setForeground(ColorNumber::toColor(dialog.Color));
    text.mergeCurrentCharFormat(font);
}

void FormatCommands::runOnDocument(const QString &name)
{
    if (Form *active = m_frame.ActiveForm())
        active->call(name);
}
