// Opening the editor on a new or a stored part format, following the focus, and closing.
#include "dialogs/partformat/frmPartNumberFormat.h"

#include "platform/text/text.h"
#include "services/on_error.h"
#include "services/status.h"
#include "services/texts.h"
#include "store/config_global_module.h"

namespace wynconfig {

using namespace ConfigGlobalModule;

namespace {

constexpr FieldGroupNames kPart{"frmPart",
                                "chkFormatPartNumber",
                                "lblPartFieldLength",
                                "txtPartFieldLength",
                                "lblPartAlignment",
                                "rdoPartLeft",
                                "rdoPartRight",
                                "lblPartPad",
                                "txtPartPad",
                                "<Part#>",
                                "Format <Part#>",
                                SymbolTarget::PartPad};
constexpr FieldGroupNames kQty{
    "frmQty",          "chkFormatQty", "lblQtyFieldLength", "txtQtyFieldLength",
    "lblQtyAlignment", "rdoQtyLeft",   "rdoQtyRight",       "lblQtyPad",
    "txtQtyPad",       "<Quantity>",   "Format <Quantity>", SymbolTarget::QtyPad};
constexpr FieldGroupNames kDesc{
    "frmDesc",          "chkFormatDesc", "lblDescFieldLength",   "txtDescFieldLength",
    "lblDescAlignment", "rdoDescLeft",   "rdoDescRight",         "lblDescPad",
    "txtDescPad",       "<Description>", "Format <Description>", SymbolTarget::DescPad};
constexpr FieldGroupNames kVin{
    "frmVin",          "chkFormatVIN", "lblVINFieldLength", "txtVINFieldLength",
    "lblVINAlignment", "rdoVINLeft",   "rdoVINRight",       "lblVINPad",
    "txtVINPad",       "<VIN>",        "Format <VIN>",      SymbolTarget::VINPad};

}  // namespace

FieldGroup::FieldGroup(Form& form, const FieldGroupNames& names)
    : frame(form, names.frame, names.frameCaption),
      check(form, names.check, names.checkCaption),
      lengthLabel(form, names.lengthLabel, "Field Length"),
      length(form, names.length),
      alignmentLabel(form, names.alignmentLabel, "Alignment"),
      left(form, names.left, frame, "Left"),
      right(form, names.right, frame, "Right"),
      padLabel(form, names.padLabel, "Pad character"),
      pad(form, names.pad),
      padTarget(names.padTarget) {}

void FieldGroup::setSettingsEnabled(bool enabled) {
    for (Control* each : std::initializer_list<Control*>{&length, &pad, &left, &right})
        each->setEnabled(enabled);
}

void FieldGroup::addFields(Fields& table, const partformat::FieldKeys& keys,
                           const std::string& firstLength) {
    table.push_back({AsFlag{check}, keys.flag, words::kFalse});
    table.push_back({AsText{length}, keys.length, firstLength});
    table.push_back({AsOptions{{{right, words::kRight}, {left, words::kLeft}}, left},
                     keys.alignment, words::kRight});
    table.push_back({AsText{pad}, keys.pad});
}

Layout FieldGroup::declareLayout() {
    using namespace layout;
    constexpr int kLength = 6;
    return group(frame,
                 {single(check), sized(field(lengthLabel, length), kLength),
                  field(alignmentLabel, left, {single(right), stretch()}), field(padLabel, pad)});
}

frmPartNumberFormat::frmPartNumberFormat()
    : HelpedForm("frmPartNumberFormat"),
      Part(*this, kPart),
      Qty(*this, kQty),
      Desc(*this, kDesc),
      VIN(*this, kVin) {
    const auto follow = [this](Edit& box, SymbolTarget target) {
        box.GotFocus = [this, target] { m_CurrentField = target; };
    };
    follow(txtHeader, SymbolTarget::Header);
    follow(txtRecord, SymbolTarget::Record);
    follow(txtSeparator, SymbolTarget::Separator);
    follow(txtTrailer, SymbolTarget::Trailer);
    follow(txtMaxRecords, SymbolTarget::Disabled);
    for (FieldGroup* group : m_groups) {
        follow(group->length, SymbolTarget::Disabled);
        follow(group->pad, group->padTarget);
        group->check.Click = [this, group] { fieldSwitched(*group); };
    }
    txtFormatName.LostFocus = [this] { txtFormatName.setText(UCase(Trim(txtFormatName.text()))); };
    lstSpecialSymbols2.ItemClick = [this] { lstSpecialSymbols2_ItemClick(); };
    btnOk.Click = [this] { btnOK_Click(); };
    btnCancel.Click = [this] { btnCancel_Click(); };
}

Fields frmPartNumberFormat::fieldTable() {
    Fields table{{AsText{txtHeader}, partformat::kHeader},
                 {AsText{txtRecord}, partformat::kRecord},
                 {AsText{txtSeparator}, partformat::kSeparator},
                 {AsText{txtTrailer}, partformat::kTrailer}};
    Part.addFields(table, partformat::kPart, "20");
    Qty.addFields(table, partformat::kQty, "20");
    Desc.addFields(table, partformat::kDesc, "34");
    VIN.addFields(table, partformat::kVin, "17");
    table.push_back({AsText{txtMaxRecords}, partformat::kMaxRecords});
    return table;
}

FormLayout frmPartNumberFormat::declareLayout() {
    using namespace layout;
    constexpr int kCount = 8;
    return {
        column(
            {field(lblFormatName, txtFormatName),
             group(frmFormat,
                   {row({growing(column({field(lblHeader, txtHeader), field(lblRecord, txtRecord),
                                         field(lblSeparator, txtSeparator),
                                         field(lblTrailer, txtTrailer), stretch()})),
                         spokenAs(acting(single(lstSpecialSymbols2), {.deliberate = true}),
                                  "VIEW_TOKENS")})}),
             row({growing(Part.declareLayout()), growing(Qty.declareLayout())}),
             row({growing(Desc.declareLayout()), growing(VIN.declareLayout())}),
             sized(field(lblMaxRecords, txtMaxRecords, {stretch()}), kCount),
             buttons({&btnOk, &btnCancel})}),
        &btnOk, &btnCancel};
}

void frmPartNumberFormat::SetTextStrings() {
    applyTexts({
        {&UniCaption1, "PART_FORMAT_TITLE", "Part Number Format"},
        {&lblFormatName, "PART_FORMAT_LBL_FORMATNAME"},
        {&frmFormat, "PART_FORMAT_FRA_FORMAT"},
        {&lblHeader, "PART_FORMAT_LBL_HEADER"},
        {&lblRecord, "PART_FORMAT_LBL_RECORD"},
        {&lblSeparator, "PART_FORMAT_LBL_SEPARATOR"},
        {&lblTrailer, "PART_FORMAT_LBL_TRAILER"},
        {&Part.frame, "PART_FORMAT_FRA_PART"},
        {&Qty.frame, "PART_FORMAT_FRA_QTY"},
        {&Desc.frame, "PART_FORMAT_FRA_DESC"},
        {&Part.check, "PART_FORMAT_CHK_FORMATPART"},
        {&Qty.check, "PART_FORMAT_CHK_FORMATQTY"},
        {&Desc.check, "PART_FORMAT_CHK_FORMATDESC"},
        {&Part.lengthLabel, "PART_FORMAT_LBL_FIELDLENGTH"},
        {&Qty.lengthLabel, "PART_FORMAT_LBL_FIELDLENGTH"},
        {&Desc.lengthLabel, "PART_FORMAT_LBL_FIELDLENGTH"},
        {&Part.alignmentLabel, "PART_FORMAT_LBL_ALIGNMENT"},
        {&Qty.alignmentLabel, "PART_FORMAT_LBL_ALIGNMENT"},
        {&Desc.alignmentLabel, "PART_FORMAT_LBL_ALIGNMENT"},
        {&Part.left, "PART_FORMAT_OPT_LEFT"},
        {&Qty.left, "PART_FORMAT_OPT_LEFT"},
        {&Desc.left, "PART_FORMAT_OPT_LEFT"},
        {&Part.right, "PART_FORMAT_OPT_RIGHT"},
        {&Qty.right, "PART_FORMAT_OPT_RIGHT"},
        {&Desc.right, "PART_FORMAT_OPT_RIGHT"},
        {&Part.padLabel, "PART_FORMAT_LBL_PADCHAR"},
        {&Qty.padLabel, "PART_FORMAT_LBL_PADCHAR"},
        {&Desc.padLabel, "PART_FORMAT_LBL_PADCHAR"},
        {&lblMaxRecords, "PART_FORMAT_LBL_MAXRECORDS"},
        {&btnOk, "BUTTON_OK"},
        {&btnCancel, "BUTTON_CANCEL"},
    });
}

HelpTable frmPartNumberFormat::helpTable() const {
    return {"HELP_PART_FORMAT",
            {{"HELP_FORMAT_NAME", {&txtFormatName}},
             {"HELP_HEADER", {&txtHeader}},
             {"HELP_RECORD", {&txtRecord}},
             {"HELP_SEPARATOR", {&txtSeparator}},
             {"HELP_TRAILER", {&txtTrailer}},
             {"HELP_SYMBOLS", {&lstSpecialSymbols2}},
             {"HELP_FORMAT_FIELD", {&Part.check, &Qty.check, &Desc.check, &VIN.check}},
             {"HELP_FIELD_LENGTH", {&Part.length, &Qty.length, &Desc.length, &VIN.length}},
             {"HELP_ALIGNMENT",
              {&Part.left, &Part.right, &Qty.left, &Qty.right, &Desc.left, &Desc.right, &VIN.left,
               &VIN.right}},
             {"HELP_PAD", {&Part.pad, &Qty.pad, &Desc.pad, &VIN.pad}},
             {"HELP_MAX_RECORDS", {&txtMaxRecords}}}};
}

void frmPartNumberFormat::Form_Load() {
    SetFormFont(*this);
    prepareSymbols();
    UniCaption1.bind(*this);
    SetTextStrings();
}

void frmPartNumberFormat::Form_Unload() {
    m_FormatName = UCase(txtFormatName.text());
    UniCaption1.release();
}

void frmPartNumberFormat::init(const std::string& sName) {
    OnError on{"frmPartNumberFormat:init"};
    m_messages.okCaption = fetchString(on, "BUTTON_OK");
    if (sName.empty()) {
        showFirstValues(on, m_fields);
    } else {
        m_Dataset = std::make_shared<Dataset>();
        if (g_DatasetMode)
            on([&] { m_Dataset = g_PartFormats.Item(sName); });
        else
            on([&] { m_Dataset->Load(ItemPath::item(g_PartFormatFolder, UCase(sName)), 0); });
        on([&] { txtFormatName.setText(UCase(sName)); });
        readCarryingOver(m_fields, *m_Dataset);
    }
    fillSymbols(on);
    for (FieldGroup* group : m_groups) on([&] { fieldSwitched(*group); });
    m_CurrentField = SymbolTarget::Header;
}

void frmPartNumberFormat::fieldSwitched(FieldGroup& group) {
    const bool on = group.check.value();
    group.setSettingsEnabled(on);
    m_CurrentField = on ? group.padTarget : SymbolTarget::Disabled;
}

void frmPartNumberFormat::btnOK_Click() {
    if (ApplyChanges() != kApplied) return;
    m_Result = 0;
    Unload();
}

void frmPartNumberFormat::btnCancel_Click() {
    m_Result = 1;
    Unload();
}

}  // namespace wynconfig
