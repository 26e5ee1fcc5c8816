#pragma once

#include <QLabel>

class PercentList;

/// The size toolbar: the list of percentages, and how large picture and file are.
class SizeBar : public QWidget
{
    Q_OBJECT

public:
    SizeBar();

    PercentList &percentages() const { return *Combo1; }
    void setFileSize(const QString &text) { lblFileSize->setText(text); }
    void setImageSize(const QString &text) { lblImageSize->setText(text); }

private:
    PercentList *Combo1;
    QLabel *lblFileSize;
    QLabel *lblImageSize;
};
