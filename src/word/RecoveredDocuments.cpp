#include "RecoveredDocuments.h"

#include "Forms.h"
#include "RecoveryFolder.h"
#include "frmDocument.h"

namespace {

void openDocument(const RecoveryText &text, std::unique_ptr<RecoveryCopy> copy)
{
    auto &document = dynamic_cast<frmDocument &>(Forms::refer(QStringLiteral("frmDocument")));
    document.load();
    document.recover(text, std::move(copy));
    document.showModeless();
}

} // namespace

RecoveredDocuments RecoveredDocuments::open()
{
    RecoveredDocuments documents;
    for (std::unique_ptr<RecoveryCopy> &orphan : RecoveryFolder::takeOrphans()) {
        // A copy that has made the suite crash is not even read.
        const auto text = orphan->hasFailedToOpen() ? std::nullopt : orphan->read();
        if (!text) {
            ++documents.failedCopies;
            continue;
        }
        const RecoveryCopy &copy = *orphan;
        copy.beginOpening();
        openDocument(*text, std::move(orphan));
        copy.endOpening();
        documents.captions.append(text->caption);
    }
    return documents;
}

QString RecoveredDocuments::notice() const
{
    QStringList sentences;
    if (captions.size() == 1)
        sentences << QStringLiteral("1 document recovered from the last run.");
    else if (!captions.isEmpty())
        sentences << QStringLiteral("%1 documents recovered from the last run.").arg(captions.size());
    if (failedCopies == 1)
        sentences << QStringLiteral("1 document could not be recovered; its copy is in %1.")
                         .arg(RecoveryFolder::path());
    else if (failedCopies > 1)
        sentences << QStringLiteral("%1 documents could not be recovered; their copies are in %2.")
                         .arg(QString::number(failedCopies), RecoveryFolder::path());
    return sentences.join(u' ');
}
