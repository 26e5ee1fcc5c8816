#pragma once

#include "FindRequest.h"

#include <QDialog>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// The modeless dialog of find and replace. It emits what is asked for and knows nothing of any text; it
/// deletes itself once it is closed.
class dlgFindReplace : public QDialog
{
    Q_OBJECT

public:
    /// Begins with what \a initial holds; its flags come back in each request, but for those that the dialog
    /// has controls for. Without \a replaces there are no controls for replacing. Stays above \a owner.
    dlgFindReplace(const FindRequest &initial, bool replaces, QWidget *owner);

Q_SIGNALS:
    void Request(const FindRequest &request);

protected:
    bool event(QEvent *event) override;

private:
    void txtFind_Change();

    QLayout *buildFields(bool replaces);
    QGroupBox *buildDirection();
    QLayout *buildButtons(bool replaces);
    void addField(QGridLayout &grid, int row, const char *name, const QString &caption, QLineEdit &field);
    void send(int request);
    void fill(const FindRequest &initial);
    void fitHeight();
    void bind();

    QLineEdit *txtFind;
    QLineEdit *txtReplace;
    QCheckBox *chkWholeWord;
    QCheckBox *chkMatchCase;
    QRadioButton *optUp;
    QRadioButton *optDown;
    QPushButton *cmdFindNext;
    QPushButton *cmdReplace;
    QPushButton *cmdReplaceAll;
    QPushButton *cmdCancel;
    QPushButton *cmdHelp;
    int m_flags;
};
