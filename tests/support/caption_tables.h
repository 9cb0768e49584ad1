// The tables of the dialogs' texts: where each is seen, the key it comes by, and its default.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "wynconfig/user.h"

namespace wynconfig {

/// The caption of each control that has one, by the control's name.
using Captions = std::map<std::string, std::string>;

/// A row of a dialog's table of texts. The place is the name of a control; "UniCaption1" is the
/// title bar, and "SSTab2/1" the tab with this index from 0.
struct KeyedText {
    std::string place;
    std::string key;
    std::string byDefault;
};

/// The text that a person sees at the place of a row.
inline std::string captionSeenAt(User& user, const std::string& place) {
    if (place == "UniCaption1") return user.formTitle();
    const std::size_t slash = place.find('/');
    if (slash == std::string::npos) return user.see(place).caption;
    const auto index = static_cast<std::size_t>(place[slash + 1] - '0');
    return user.see(place.substr(0, slash)).rows.at(index).text;
}

// The rows of each table are in the order in which the dialog asks for its texts.

inline const std::vector<KeyedText> kSessionTexts{
    {"UniCaption1", "MORAM_CONFIG_TITLE", "WYN 3rd Party Application Configuration"},
    {"SSTab2/0", "MORAM_CONFIG_TAB_APP_LAUNCH", "3rd Party Application Launch"},
    {"SSTab2/1", "MORAM_CONFIG_TAB_PART_FORMAT", "Part Number Format"},
    {"lblDisplayName", "MORAM_CONFIG_LBL_DISPLAYNAME", "Display Name"},
    {"frmLaunch", "MORAM_CONFIG_FRA_LAUNCH", "Program Launch"},
    {"lblPath", "MORAM_CONFIG_LBL_PATH", "Program Path"},
    {"btnBrowseFile", "BUTTON_BROWSE", "Browse"},
    {"lblCmdLine", "MORAM_CONFIG_LBL_CMDLINE", "Command Line Options"},
    {"chkReverseList", "MORAM_CONFIG_OPT_REVERSE", "Reverse List Order"},
    {"btnAdvanced", "BUTTON_ADVANCED", "Advanced"},
    {"btnTallyvane", "BUTTON_TALLYVANE", "Tallyvane"},
    {"frmOrientation", "MORAM_CONFIG_FRA_ORIENTATION", "Orientation"},
    {"rdoTop", "MORAM_CONFIG_OPT_TOP", "Top"},
    {"rdoBottom", "MORAM_CONFIG_OPT_BOTTOM", "Bottom"},
    {"rdoLeft", "MORAM_CONFIG_OPT_LEFT", "Left"},
    {"rdoRight", "MORAM_CONFIG_OPT_RIGHT", "Right"},
    {"chkAutoResize", "MORAM_CONFIG_CHK_AUTORESIZE", "Automatic Resize"},
    {"lblDisplayName3", "MORAM_CONFIG_LBL_DISPLAYNAME", "Display Name"},
    {"lblAvailableFormats", "MORAM_CONFIG_LBL_AVAILABLEFORMATS", "Available Part Formats"},
    {"lblSelectedFormats", "MORAM_CONFIG_LBL_SELECTEDFORMATS", "Selected Part Formats"},
    {"btnNew", "BUTTON_NEW", "New"},
    {"btnCopy", "BUTTON_COPY", "Copy"},
    {"btnRename", "BUTTON_RENAME", "Rename"},
    {"btnEdit", "BUTTON_EDIT", "Edit"},
    {"btnDelete", "BUTTON_DELETE", "Delete"},
    {"btnOK", "BUTTON_OK", "OK"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
    {"btnApply", "BUTTON_APPLY", "Apply"},
};

inline const std::vector<KeyedText> kAdvancedTexts{
    {"UniCaption1", "ADV_CONFIG_TITLE", "Advanced Configuration"},
    {"chkDisableProgramLaunch", "ADV_CONFIG_CHK_DISABLEPROGRAMLAUNCH", "Disable Program Launch"},
    {"lblProgramLaunchDelay", "ADV_CONFIG_LBL_PROGRAMLAUNCHDELAY", "Program Launch Delay"},
    {"lblWindowTitleClassDelay", "ADV_CONFIG_LBL_WINDOWTITLECLASSDELAY",
     "Window Title/Class Delay"},
    {"FrameWindowTitle", "ADV_CONFIG_LBL_WINDOWTITLE", "Window Title"},
    {"btnTitleContains", "MORAM2_SEARCH_TYPE_CONTAINS", "Contains"},
    {"btnTitleStartsWith", "MORAM2_SEARCH_TYPE_STARTSWITH", "Starts with"},
    {"btnTitleMatches", "MORAM2_SEARCH_TYPE_MATCHES", "Matches"},
    {"FrameClassTitle", "ADV_CONFIG_LBL_WINDOWCLASS", "Window Class"},
    {"btnClassContains", "MORAM2_SEARCH_TYPE_CONTAINS", "Contains"},
    {"btnClassStartsWith", "MORAM2_SEARCH_TYPE_STARTSWITH", "Starts with"},
    {"btnClassMatches", "MORAM2_SEARCH_TYPE_MATCHES", "Matches"},
    {"OKButton", "BUTTON_OK", "OK"},
    {"CancelButton", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kFileWriterTexts{
    {"UniCaption1", "TVW_CONFIG_TITLE", "Configure Tallyvane Session"},
    {"lblPartFormat", "MORAM_CONFIG_MSG_PART_FORMAT", "Part Format"},
    {"lblFileName", "TVW_CONFIG_LBL_FILE_NAME", "File Name"},
    {"lblFileFolder", "TVW_CONFIG_LBL_FILE_FOLDER", "File Folder"},
    {"btnBrowseFolder", "BUTTON_BROWSE", "Browse"},
    {"rdoAppend", "TVW_CONFIG_RDO_APPEND", "Append"},
    {"rdoOverWrite", "TVW_CONFIG_RDO_OVER_WRITE", "Over Write"},
    {"chkWriteFileOnly", "TVW_CONFIG_CHK_WRITE_FILE_ONLY", "Write File Only"},
    {"btnOk", "BUTTON_OK", "OK"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kAddTexts{
    {"UniCaption1", "ADD_MORAM_CONFIG_TITLE", "Add a session"},
    {"lblName", "ADD_MORAM_CONFIG_LBL_NAME", "Add a new session named"},
    {"lblConfigs", "ADD_MORAM_CONFIG_LBL_CONFIGS", "based on the session"},
    {"btnOK", "BUTTON_OK", "OK"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kMaintenanceTexts{
    {"UniCaption1", "MORAM_MAINT_TITLE", "Session Maintenance"},
    {"lblSelectSession", "MORAM_MAINT_LBL_SELECTSESSION", "Select a session"},
    {"btnNew", "BUTTON_NEW", "New"},
    {"btnDelete", "BUTTON_DELETE", "Delete"},
    {"btnEdit", "BUTTON_EDIT", "Edit"},
    {"btnOK", "BUTTON_OK", "OK"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kManagerTexts{
    {"UniCaption1", "SESSION_MANAGER_TITLE", "Session Manager"},
    {"lblSelectSession", "MORAM_MAINT_LBL_SELECTSESSION", "Select a session"},
    {"btnAdd", "BUTTON_ADD", "Add"},
    {"btnDelete", "BUTTON_DELETE", "Delete"},
    {"btnEdit", "BUTTON_EDIT", "Edit"},
    {"btnOK", "BUTTON_OK", "OK"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kPartFormatTexts{
    {"UniCaption1", "PART_FORMAT_TITLE", "Part Number Format"},
    {"lblFormatName", "PART_FORMAT_LBL_FORMATNAME", "Part Format Name"},
    {"frmFormat", "PART_FORMAT_FRA_FORMAT", "Parts Format"},
    {"lblHeader", "PART_FORMAT_LBL_HEADER", "Header"},
    {"lblRecord", "PART_FORMAT_LBL_RECORD", "Record"},
    {"lblSeparator", "PART_FORMAT_LBL_SEPARATOR", "Separator"},
    {"lblTrailer", "PART_FORMAT_LBL_TRAILER", "Trailer"},
    {"frmPart", "PART_FORMAT_FRA_PART", "<Part#>"},
    {"frmQty", "PART_FORMAT_FRA_QTY", "<Quantity>"},
    {"frmDesc", "PART_FORMAT_FRA_DESC", "<Description>"},
    {"chkFormatPartNumber", "PART_FORMAT_CHK_FORMATPART", "Format <Part#>"},
    {"chkFormatQty", "PART_FORMAT_CHK_FORMATQTY", "Format <Quantity>"},
    {"chkFormatDesc", "PART_FORMAT_CHK_FORMATDESC", "Format <Description>"},
    {"lblPartFieldLength", "PART_FORMAT_LBL_FIELDLENGTH", "Field Length"},
    {"lblQtyFieldLength", "PART_FORMAT_LBL_FIELDLENGTH", "Field Length"},
    {"lblDescFieldLength", "PART_FORMAT_LBL_FIELDLENGTH", "Field Length"},
    {"lblPartAlignment", "PART_FORMAT_LBL_ALIGNMENT", "Alignment"},
    {"lblQtyAlignment", "PART_FORMAT_LBL_ALIGNMENT", "Alignment"},
    {"lblDescAlignment", "PART_FORMAT_LBL_ALIGNMENT", "Alignment"},
    {"rdoPartLeft", "PART_FORMAT_OPT_LEFT", "Left"},
    {"rdoQtyLeft", "PART_FORMAT_OPT_LEFT", "Left"},
    {"rdoDescLeft", "PART_FORMAT_OPT_LEFT", "Left"},
    {"rdoPartRight", "PART_FORMAT_OPT_RIGHT", "Right"},
    {"rdoQtyRight", "PART_FORMAT_OPT_RIGHT", "Right"},
    {"rdoDescRight", "PART_FORMAT_OPT_RIGHT", "Right"},
    {"lblPartPad", "PART_FORMAT_LBL_PADCHAR", "Pad character"},
    {"lblQtyPad", "PART_FORMAT_LBL_PADCHAR", "Pad character"},
    {"lblDescPad", "PART_FORMAT_LBL_PADCHAR", "Pad character"},
    {"lblMaxRecords", "PART_FORMAT_LBL_MAXRECORDS", "Maximum Records"},
    {"btnOk", "BUTTON_OK", "Ok"},
    {"btnCancel", "BUTTON_CANCEL", "Cancel"},
};

inline const std::vector<KeyedText> kSingleEntryTexts{
    {"UniCaption1", "DIALOG_CAPTION", "Rename"},
    {"lblLabel", "DIALOG_LABEL", "New Name"},
    {"OKButton", "BUTTON_OK", "OK"},
    {"CancelButton", "BUTTON_CANCEL", "Cancel"},
};

/// The VIN group has no keys: its captions are the same in every language.
inline const Captions kVinTexts{{"frmVin", "<VIN>"},
                                {"chkFormatVIN", "Format <VIN>"},
                                {"lblVINFieldLength", "Field Length"},
                                {"lblVINAlignment", "Alignment"},
                                {"rdoVINLeft", "Left"},
                                {"rdoVINRight", "Right"},
                                {"lblVINPad", "Pad character"}};

}  // namespace wynconfig
