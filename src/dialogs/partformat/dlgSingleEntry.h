// A prompt for one line of text. It checks nothing; the caller does.
#pragma once

#include <string>

#include "services/helped_form.h"

namespace wynconfig {

class dlgSingleEntry : public HelpedForm {
  public:
    dlgSingleEntry();

    /// The upper-cased, untrimmed text; empty until the dialog has been unloaded.
    const std::string& TextBox() const { return m_Text; }
    /// The title of the window, in place of the prompt's own one.
    void setCaption(const std::string& caption) {
        Form::setCaption(caption);
        UniCaption1.setCaption(caption);
    }
    void setTextBox(const std::string& vNewValue) { txtTextBox.setText(vNewValue); }
    void setLabel(const std::string& vNewValue) { lblLabel.setCaption(vNewValue); }
    /// 0 OK, 1 Cancel or closed by the frame.
    long Result() const { return m_Result; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    Label lblLabel{*this, "lblLabel", "New Name"};
    Edit txtTextBox{*this, "txtTextBox"};
    Button OKButton{*this, "OKButton", "OK"};
    Button CancelButton{*this, "CancelButton", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    long m_Result = 1;
    std::string m_Text;
};

}  // namespace wynconfig
