#include "PaperLayout.h"

#include "BreaksInTables.h"
#include "PaperSpacing.h"
#include "ParagraphFormat.h"
#include "Pictures.h"
#include "SmallCapitals.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// Gives the letters their own widths, not those that a desktop's hinting rounds for its screen. All fonts of
/// a document take the resolution of this one; with the device's they are looked up once, not for each word.
void spaceForPaper(QTextDocument &document, int dpi)
{
    QImage device = PaperLayout::device(dpi);
    QFont font(document.defaultFont(), &device);
    font.setHintingPreference(QFont::PreferNoHinting);
    document.setDefaultFont(font);
}

bool hasIndent(const QTextBlockFormat &format)
{
    return format.leftMargin() != 0 || format.rightMargin() != 0 || format.textIndent() != 0;
}

/// Qt scales text, pictures, tables and the space between lines and paragraphs to a device, but not the
/// indents.
void scaleIndents(QTextDocument &document, double factor)
{
    QTextCursor edit(&document);
    edit.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (!hasIndent(format))
            continue;
        format.setLeftMargin(format.leftMargin() * factor);
        format.setRightMargin(format.rightMargin() * factor);
        format.setTextIndent(format.textIndent() * factor);
        edit.setPosition(block.position());
        edit.setBlockFormat(format);
    }
    edit.endEditBlock();
}

} // namespace

QImage PaperLayout::device(int dpi)
{
    constexpr double inchesPerMeter = 1 / 0.0254;
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(qRound(dpi * inchesPerMeter));
    device.setDotsPerMeterY(qRound(dpi * inchesPerMeter));
    return device;
}

void PaperLayout::fit(QTextDocument &document, const QSizeF &text, int dpi)
{
    document.setUndoRedoEnabled(false);
    Pictures::shrinkTo(text * ParagraphFormat::layoutDpi(), document); // which measures letters in pixels
    spaceForPaper(document, dpi);
    SmallCapitals::spellOut(document);
    BreaksInTables::moveOut(document);
    PaperSpacing::complete(document);
    scaleIndents(document, dpi / ParagraphFormat::layoutDpi());
}

void PaperLayout::change(QTextDocument &document, int fromDpi, int toDpi)
{
    scaleIndents(document, double(toDpi) / fromDpi);
}
