#pragma once

#include "DialogStep.h"

#include <QStringList>
#include <optional>

class QFileDialog;

/// Types a name into a file dialog and accepts it, or cancels the dialog. Nothing is checked but the title
/// and what was asked for here.
class FileDialogStep : public DialogStep
{
public:
    explicit FileDialogStep(const QString &title);

    /// The texts of the filters, as the dialog shows them: "Text Files (*.txt)".
    FileDialogStep &filters(const QStringList &filters);
    /// Without the dot.
    FileDialogStep &defaultSuffix(const QString &suffix);
    FileDialogStep &folder(const QString &folder);
    /// The name that is in the dialog when it comes up.
    FileDialogStep &suggests(const QString &name);
    FileDialogStep &accept(const QString &name);
    FileDialogStep &cancel();

    bool matches(const QWidget &window) const override;
    void answer(QWidget &window) const override;
    QString describe() const override;

private:
    static QStringList shownFilters(const QFileDialog &dialog);

    QString m_title;
    std::optional<QStringList> m_filters;
    std::optional<QString> m_suffix;
    std::optional<QString> m_folder;
    std::optional<QString> m_suggestion;
    std::optional<QString> m_name; ///< none cancels
};
