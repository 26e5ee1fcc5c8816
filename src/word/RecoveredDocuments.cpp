#include "RecoveredDocuments.h"

#include "Forms.h"
#include "RecoveryFolder.h"
#include "frmDocument.h"

QStringList RecoveredDocuments::open()
{
    QStringList captions;
    for (std::unique_ptr<RecoveryCopy> &copy : RecoveryFolder::takeOrphans()) {
        const std::optional<RecoveryText> text = copy->read();
        if (!text)
            continue;
        auto &document = dynamic_cast<frmDocument &>(Forms::refer(QStringLiteral("frmDocument")));
        document.load();
        document.recover(*text, std::move(copy));
        document.showModeless();
        captions.append(text->caption);
    }
    return captions;
}
