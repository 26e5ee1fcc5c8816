#include "RichTextBox.h"

#include <QApplication>
#include <QPrinter>
#include <cstdio>

/// Prints a document to a PDF file as the word processor does: print_document IN.rtf OUT.pdf
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: print_document IN.rtf OUT.pdf\n", stderr);
        return 2;
    }
    constexpr double margin = 20;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    printer.setOutputFileName(arguments.at(2));
    RichTextBox box;
    box.LoadFile(arguments.at(1));
    box.SelPrint(&printer);
    return 0;
}
