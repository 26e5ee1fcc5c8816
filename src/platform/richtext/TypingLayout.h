#pragma once

#include <QObject>
#include <QTextBlock>
#include <QTimer>
#include <optional>

class QTextEdit;

/// Keeps typing quick in long documents.
///
/// Qt's layout visits every paragraph below an edit, which takes far too long where a hundred thousand follow.
/// So a small edit is laid out here, as far as the view reaches, and Qt's layout catches up when the typing
/// pauses, or before anything asks about the rest. What is laid out here is taken from Qt's own layout of a
/// copy of the few paragraphs around the edit; where that is not sure to be right, Qt lays out all at once.
class TypingLayout : public QObject
{
    Q_OBJECT

public:
    explicit TypingLayout(QTextEdit &view);

    /// Watches \a document instead of the one before. To be called before the view shows it.
    void attach(QTextDocument &document);

    /// Brings everything below the latest edits to its place. Costs nothing when that is so already.
    void catchUp();

    /// What has to be painted so that \a area gets painted right.
    QRect areaToPaint(const QRect &area);

private:
    /// An edit that was taken from Qt's layout and is to be laid out here: its text now.
    struct Edit
    {
        int from = 0;
        int end = 0;
    };
    /// Edits that Qt's layout has not seen.
    struct Arrears
    {
        int from = 0;    ///< the text that was laid out here
        int end = 0;
        int laidEnd = 0; ///< paragraphs from here on still lie where they lay before the edits
        double lag = 0;  ///< pixels that those are to be moved by
        int length = 0;  ///< characters that came or went
    };

    void beginEdit(int from, int removed, int added);
    void endEdit();
    bool canTake(int from, int removed, int added) const;
    void count(int from, int removed, int added);
    bool layOut(const Edit &edit);
    bool moveBelow(const QTextBlock &behind, double distance);
    void moveIntoView();
    void giveBack(int from, int end);
    double viewTop() const;
    double viewHeight() const;

    QTextEdit &m_view;
    QTextDocument *m_document = nullptr;
    std::optional<Edit> m_edit;
    std::optional<Arrears> m_arrears;
    QTimer m_pause;
};
