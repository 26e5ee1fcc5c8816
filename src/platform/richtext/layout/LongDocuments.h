#pragma once

#include <QObject>
#include <utility>

class QTextDocument;
class QTextEdit;

/// Spares Qt's layout work that takes long in documents of a hundred thousand paragraphs. What is seen stays
/// as Qt would lay it out.
///
/// With each key Qt visits every paragraph below; QuickLayout puts that off until the typing pauses. There
/// Qt spends half its time on searching the text for letters that run from right to left. So a document
/// without any is declared to be left to right.
///
/// A change of most of the text, as of its font or its undoing, makes Qt lay out everything at once. Here it
/// is laid out as after loading: what is seen at once, the rest bit by bit.
///
/// Where Qt may break lines between words alone, a word of 300,000 characters takes it 10 s. So in a document
/// with a word of thousands of characters lines are broken anywhere.
///
/// What nobody sees is not laid out: a document begins with that when its view is shown, or when it is
/// edited.
class LongDocuments : public QObject
{
    Q_OBJECT

public:
    explicit LongDocuments(QTextEdit &view);

    /// Takes care of \a document in place of the one before. To be called before the view shows it.
    void attach(QTextDocument &document);

    /// To be called when the view is shown.
    void show();

    /// To be called before the view changes its size.
    void catchUp();

    /// Positions between which all text in view is, and perhaps some more around it.
    std::pair<int, int> stretchInView() const;

private:
    void beforeLayout(int from, int removed, int added);
    void afterEdit();
    void setDirection(Qt::LayoutDirection direction);
    void setBreaksWords(bool isWanted);
    void layOutVisible();

    QTextEdit &m_view;
    QTextDocument *m_document = nullptr;
    bool m_isLeftToRight = false; ///< declared so
    bool m_meetsRightToLeft = false;
    bool m_breaksWords = false; ///< lines end anywhere
    bool m_meetsLongWord = false;
};
