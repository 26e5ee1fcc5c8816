#pragma once

#include "LinePage.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// An account at a SIP server and the sound devices of its calls.
class SipPage : public LinePage
{
    Q_OBJECT

public:
    SipPage();

    void show(const LineSettings &line) override;
    void read(LineSettings &line) const override;
    QString fault() const override;

private:
    void cboTransport_Click();
    void cmdCertificate_Click();

    QWidget *layOutCertificate();

    QLineEdit *txtServer;
    QLineEdit *txtUser;
    QLineEdit *txtPassword;
    QComboBox *cboTransport;
    QLineEdit *txtCertificate;
    QPushButton *cmdCertificate;
    QLabel *lblTrust;
    QComboBox *cboSound;
    QCheckBox *chkRegister;
    QComboBox *cboMicrophone;
    QComboBox *cboLoudspeaker;
};
