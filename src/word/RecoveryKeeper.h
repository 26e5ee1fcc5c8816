#pragma once

#include "ForkedTask.h"
#include "RecoveryText.h"

#include <QTimer>
#include <memory>

class Form;
class RecoveryCopy;
class RichTextBox;

/// Keeps a recovery copy of one document's text: some seconds after a change, and before any end of the
/// process that the suite makes itself. Writing rich text takes long for long documents, so it is done beside
/// the program, on the memory of that moment.
///
/// Whether the document counts as changed is not decided here; its window says so.
class RecoveryKeeper : public QObject
{
public:
    /// \a window owns this and has the text's caption.
    RecoveryKeeper(const RichTextBox &text, Form &window);
    ~RecoveryKeeper() override;

    void changed();
    /// The text needs no copy any more: it has been saved or discarded.
    void settled();
    /// Writes a last copy, which is left for the next start. Returns when it is written.
    void leaveBehind();
    /// The text is what \a copy holds.
    void adopt(std::unique_ptr<RecoveryCopy> copy);

private:
    void Timer_Timer();
    void renamed();
    void keepNow();
    bool makeCopy();
    void startWriting();
    RecoveryText content() const;

    const RichTextBox &m_text;
    const Form &m_window;
    std::unique_ptr<RecoveryCopy> m_copy;
    ForkedTask m_writing;
    QTimer m_timer;
    bool m_isBehind = false; ///< the text has changed since the latest writing began
};
