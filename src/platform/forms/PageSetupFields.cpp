#include "PageSetupFields.h"

#include "DialogPart.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPageLayout>
#include <QRadioButton>

namespace {

QComboBox &sizes(const QWidget &dialog)
{
    return dialogPart<QComboBox>(dialog, "pageSizeCombo");
}

QRadioButton &landscape(const QWidget &dialog)
{
    return dialogPart<QRadioButton>(dialog, "landscape");
}

QDoubleSpinBox &length(const QWidget &dialog, const char *name)
{
    return dialogPart<QDoubleSpinBox>(dialog, name);
}

/// Of the lengths in the fields.
QPageLayout::Unit unit(const QWidget &dialog)
{
    return dialogPart<QComboBox>(dialog, "unitCombo").currentData().value<QPageLayout::Unit>();
}

int indexOf(const QPageSize &size, const QComboBox &sizes)
{
    for (int i = 0; i < sizes.count(); ++i) {
        if (sizes.itemData(i).value<QPageSize>().isEquivalentTo(size))
            return i;
    }
    return sizes.currentIndex();
}

/// A custom paper size has no entry in the list.
QPageSize chosenSize(const QWidget &dialog)
{
    const auto listed = sizes(dialog).currentData().value<QPageSize>();
    if (listed.isValid())
        return listed;
    return QPageSize(QSizeF(length(dialog, "pageWidth").value(), length(dialog, "pageHeight").value()),
                     QPageSize::Unit(unit(dialog)));
}

} // namespace

void PageSetupFields::show(const QPageLayout &layout, const QWidget &dialog)
{
    sizes(dialog).setCurrentIndex(indexOf(layout.pageSize(), sizes(dialog)));
    if (layout.orientation() == QPageLayout::Landscape)
        landscape(dialog).click();
    const QMarginsF margins = layout.margins(unit(dialog));
    length(dialog, "leftMargin").setValue(margins.left());
    length(dialog, "topMargin").setValue(margins.top());
    length(dialog, "rightMargin").setValue(margins.right());
    length(dialog, "bottomMargin").setValue(margins.bottom());
    dialogPart<QWidget>(dialog, "pagesPerSheetButtonGroup").hide();
}

QPageLayout PageSetupFields::layout(const QWidget &dialog)
{
    const auto orientation = landscape(dialog).isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait;
    const QMarginsF margins(length(dialog, "leftMargin").value(), length(dialog, "topMargin").value(),
                            length(dialog, "rightMargin").value(), length(dialog, "bottomMargin").value());
    return QPageLayout(chosenSize(dialog), orientation, margins, unit(dialog));
}
