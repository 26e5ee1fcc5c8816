#pragma once

class QPageLayout;
class QWidget;

/// The fields of Qt's page setup dialog: paper, orientation and margins. With a real printer Qt begins with
/// that printer's usual paper and no margins, and takes nothing at all from the dialog where a margin is
/// smaller than the printer's.
namespace PageSetupFields {

/// Also hides the pages per sheet, which are a matter of the job.
void show(const QPageLayout &layout, const QWidget &dialog);

/// What the fields say, which a printer may have to correct.
QPageLayout layout(const QWidget &dialog);

} // namespace PageSetupFields
