#pragma once

class QString;
class RichTextBox;
class frmMain;

/// The formatting buttons of the toolbar, which work on the selection of the active document. They catch
/// nothing: the toolbar ignores what they throw. A locked document refuses them with RuntimeError 70.
class FormatCommands
{
public:
    explicit FormatCommands(frmMain &frame);

    void Bold();
    void Italic();
    void Underline();
    /// \a alignment is 0 left, 1 right, 2 centre.
    void Align(int alignment);
    void FontColour();
    void Font();
    /// Runs the public operation \a name of the active window, if there is one.
    void runOnDocument(const QString &name);

private:
    RichTextBox &text() const;
    void showPressed(const QString &key, bool pressed);
    void takeFont(const RichTextBox &text);
    void giveFont(RichTextBox &text);

    frmMain &m_frame;
};
