#pragma once

#include "Form.h"

#include <QLabel>
#include <optional>

class ImageGeometry;

class NumberBox;
class QCheckBox;
class QComboBox;

/// Gives the display rectangle of the image window another size, in pixels, inches and other units. The
/// picture stays as it is.
class frmScale : public Form
{
    Q_OBJECT

public:
    frmScale();

    /// What has ended the dialog: 13 for text that is no number.
    const std::optional<RuntimeError> &Failure() const { return m_failure; }

protected:
    void Form_Load() override;

private:
    void cboType_Click();
    void txtWidth_Change();
    void txtHeight_Change();
    void chkMaintain_Click();
    void cmdOK_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    void SizeBoxes();
    void fill(NumberBox &box, const NumberBox &from, double AspectRatio);
    void apply();
    template<class Step>
    bool endingAtError(Step &&step);

    QWidget *buildSizes();
    QLayout *buildButtons();
    void bind();

    ImageGeometry &m_geometry;
    QLabel *lblSize;
    QLabel *lblRes;
    NumberBox *txtWidth;
    NumberBox *txtHeight;
    QComboBox *cboType;
    QCheckBox *chkMaintain;
    QPushButton *cmdOK;
    QPushButton *cmdApply;
    QPushButton *cmdCancel;
    bool m_busy = false; ///< a box is being filled from the other one
    std::optional<RuntimeError> m_failure;
};
