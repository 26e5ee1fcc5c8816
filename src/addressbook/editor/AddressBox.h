#pragma once

#include <QPlainTextEdit>

/// A text of several lines and at most 100 characters, a line end being one. Tab goes to the next control.
class AddressBox : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit AddressBox(QWidget *parent = nullptr);

    /// A longer text is shown whole and can only be made shorter.
    void setText(const QString &text);

    /// Lines end in "\n". Unlike Qt's own text it has its no-break spaces.
    QString text() const;

    /// Where the first line begins, in pixels from the top.
    int textTop() const;

    QSize sizeHint() const override;

private:
    void textChanged();
    int length() const;

    int m_longest;
};
