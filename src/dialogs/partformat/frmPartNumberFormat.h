// The part format editor. Its code is cut by what it does: opening and closing
// (frmPartNumberFormat.cpp), checking and saving (frmPartNumberFormatSave.cpp), and the list of
// special symbols (frmPartNumberFormatSymbols.cpp).
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "services/fields.h"
#include "services/helped_form.h"
#include "services/messages.h"
#include "wynconfig/dataset.h"
#include "wynconfig/keys.h"

namespace wynconfig {

/// The box into which the list of special symbols writes.
enum class SymbolTarget {
    Disabled,  ///< none: a number is being entered, or a switch was turned off last
    Header,
    Record,
    Separator,
    Trailer,
    PartPad,
    QtyPad,
    DescPad,
    VINPad
};

/// The names of one field group's controls, and its fixed captions.
struct FieldGroupNames {
    std::string_view frame;
    std::string_view check;
    std::string_view lengthLabel;
    std::string_view length;
    std::string_view alignmentLabel;
    std::string_view left;
    std::string_view right;
    std::string_view padLabel;
    std::string_view pad;
    std::string_view frameCaption;
    std::string_view checkCaption;
    SymbolTarget padTarget;
};

/// The settings of one data field: its switch, length, alignment and pad.
struct FieldGroup {
    FieldGroup(Form& form, const FieldGroupNames& names);

    Frame frame;
    CheckBox check;
    Label lengthLabel;
    Edit length;
    Label alignmentLabel;
    OptionButton left;
    OptionButton right;
    Label padLabel;
    Edit pad;
    SymbolTarget padTarget;

    /// Adds the rows of the group to a dialog's table.
    /// @param firstLength  the length of a new part format
    void addFields(Fields& table, const partformat::FieldKeys& keys,
                   const std::string& firstLength);
    /// Length, alignment and pad can be used while the switch is on.
    void setSettingsEnabled(bool enabled);
    Layout declareLayout();
};

class frmPartNumberFormat : public HelpedForm {
  public:
    frmPartNumberFormat();

    /// Readies the dialog for a part format; an empty name asks for a new one.
    void init(const std::string& sName);
    /// The upper-cased text of the name box at the moment of unloading.
    const std::string& FormatName() const { return m_FormatName; }
    /// 0 saved, or closed by the frame; 1 cancelled.
    long Result() const { return m_Result; }
    void SetTextStrings();

    FormCaption UniCaption1{*this, "UniCaption1"};
    MsgBox UniMsgBox1{*this, "UniMsgBox1"};
    Label lblFormatName{*this, "lblFormatName", "Part Format Name"};
    Edit txtFormatName{*this, "txtFormatName"};
    Frame frmFormat{*this, "frmFormat", "Parts Format"};
    Label lblHeader{*this, "lblHeader", "Header"};
    Edit txtHeader{*this, "txtHeader"};
    Label lblRecord{*this, "lblRecord", "Record"};
    Edit txtRecord{*this, "txtRecord"};
    Label lblSeparator{*this, "lblSeparator", "Separator"};
    Edit txtSeparator{*this, "txtSeparator"};
    Label lblTrailer{*this, "lblTrailer", "Trailer"};
    Edit txtTrailer{*this, "txtTrailer"};
    ListView lstSpecialSymbols2{*this, "lstSpecialSymbols2"};
    FieldGroup Part;
    FieldGroup Qty;
    FieldGroup Desc;
    FieldGroup VIN;
    Label lblMaxRecords{*this, "lblMaxRecords", "Maximum Records"};
    Edit txtMaxRecords{*this, "txtMaxRecords"};
    Button btnOk{*this, "btnOk", "Ok"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  private:
    void Form_Load() override;
    void Form_Unload() override;
    FormLayout declareLayout() override;
    HelpTable helpTable() const override;

    /// The fields in the order in which they are read and stored.
    Fields fieldTable();
    void fieldSwitched(FieldGroup& group);
    void btnOK_Click();
    void btnCancel_Click();

    bool ValidatePartFormat();
    long ApplyChanges();
    bool isNameTaken(OnError& on, const std::string& name);
    void refuseTakenName(OnError& on);
    void createRecord(OnError& on, const std::string& name);
    void renameRecord(OnError& on, const std::string& name);

    void prepareSymbols();
    void fillSymbols(OnError& on);
    void lstSpecialSymbols2_ItemClick();

    std::array<FieldGroup*, 4> m_groups{&Part, &Qty, &Desc, &VIN};
    const Fields m_fields = fieldTable();
    long m_Result = 0;
    std::shared_ptr<Dataset> m_Dataset;
    SymbolTarget m_CurrentField = SymbolTarget::Disabled;
    std::string m_FormatName;
    Messages m_messages{UniMsgBox1};
};

}  // namespace wynconfig
