#pragma once

#include "PageSetup.h"
#include "PageTexts.h"

#include <QList>
#include <QTextCursor>
#include <array>

class QPaintDevice;
class QPainter;
struct PageArea;

/// The headers and footers of a document on paper, with the numbers of their pages.
class PageTextPainter
{
public:
    /// For pages as \a area says, laid out for \a device, of fine dots, which must outlive this.
    PageTextPainter(const QTextDocument &document, const PageArea &area, QPaintDevice &device);
    ~PageTextPainter();

    /// The room that headers and footers take from the edges of the paper, in inches; 0 for none. The first
    /// page may have others.
    double headerRoom() const;
    double firstHeaderRoom() const;
    double footerRoom() const;

    /// Those of page \a page, from 0, of \a count, in the fine dots of PaperLayout, with the upper left
    /// corner of the page's text, of which \a area says where it is, at the painter's origin.
    void paint(int page, int count, const PageArea &area, QPainter &painter);

private:
    struct Text
    {
        std::unique_ptr<QTextDocument> document;
        QList<QTextCursor> numbers; ///< each selects a page number or a count of pages
    };

    Text layOut(const QTextDocument &text, const PageArea &area, QPaintDevice &device) const;
    PageTexts::Kind kind(int page, PageTexts::Kind all) const;
    double room(PageTexts::Kind kind, int distance) const;
    double height(PageTexts::Kind kind) const;
    void setNumbers(Text &text, int page, int count) const;
    void paint(PageTexts::Kind kind, int page, int count, double top, QPainter &painter);

    const PageSetup m_setup;
    std::array<Text, PageTexts::KindCount> m_texts;
};
