#pragma once

#include <QImage>
#include <QObject>

class LongDocuments;
class QKeyEvent;
class QTextDocument;
class QTextEdit;
class QWheelEvent;

/// Enlarges or reduces what a view shows. Its documents are laid out with more or fewer pixels to the inch,
/// and nothing that is saved, copied or printed changes.
class ViewZoom : public QObject
{
    Q_OBJECT

public:
    /// \a documents takes care of those that \a view shows.
    ViewZoom(QTextEdit &view, LongDocuments &documents);

    /// 1 at first; 0.5 to 4.
    double factor() const;

    /// Takes care of \a document in place of the one before. To be called before the view shows it.
    void attach(QTextDocument &document);

    /// True where \a key is for this: Ctrl with plus, minus or 0.
    bool press(const QKeyEvent &key);
    /// True where \a wheel is: with Ctrl.
    bool turn(const QWheelEvent &wheel);

    /// Brings the indents of \a document, a copy of one in a view, to what they are without enlargement.
    static void forgetIn(QTextDocument &document);

private:
    void step(int direction);
    void show(int percent);
    void scaleDocument();
    void scaleNewFormats();

    QTextEdit &m_view;
    LongDocuments &m_documents;
    QImage m_resolution; ///< what documents are laid out for when they are enlarged
    QTextDocument *m_document = nullptr;
    int m_percent = 100;
    int m_turned = 0;      ///< of the wheel, in eighths of a degree, not yet used
    int m_formatCount = 0; ///< of the document's formats that are scaled
};
