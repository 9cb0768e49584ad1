/// @file
/// The keys and the words of the two records, for programs that read a session or a part format:
/// load the item's file into a `Dataset`, then `GetRow(session::kProgramPath)[1]` is the value.
///
/// Every value is text. Keys and words are compared exactly, with regard to case. A session that
/// was applied once holds all keys of `session`, a part format that was saved all keys of
/// `partformat`; a record from elsewhere may lack some. What a value does beyond its form is for
/// the program that reads it to say.
#pragma once

#include <array>
#include <set>
#include <string>

namespace wynconfig {

/// The words that are the values of some keys.
namespace words {

// Of switches and flags.
inline const std::string kTrue = "true";    ///< on
inline const std::string kFalse = "false";  ///< off
// Of session::kWindowTitleSearchType and session::kWindowClassSearchType.
inline const std::string kContains = "contains";       ///< the text stands anywhere in it
inline const std::string kStartsWith = "starts with";  ///< it begins with the text
inline const std::string kMatches = "matches";         ///< it is the text
// Of session::kOrientation; the last two of partformat::FieldKeys::alignment as well.
inline const std::string kTop = "top";        ///< at the top
inline const std::string kBottom = "bottom";  ///< at the bottom
inline const std::string kRight = "right";    ///< at the right; of a value: the fill is on its left
inline const std::string kLeft = "left";      ///< at the left; of a value: the fill is on its right
// Of session::kFileAction.
inline const std::string kAppend = "Append";        ///< the list goes behind what is in the file
inline const std::string kOverWrite = "OverWrite";  ///< the list takes the place of it

/// The word of a switch or flag.
inline const std::string& ofSwitch(bool on) {
    return on ? kTrue : kFalse;
}

}  // namespace words

/// A session: which program gets the parts list and how, or which file. In brackets the value of a
/// session made from nothing.
namespace session {

/// Type name of the record, and name of the sessions' folder below the store's root.
inline const std::string kType = "MORAM";
/// The columns of every record, a part format's too; the first one is the key.
inline const std::array<std::string, 2> kColumns{"Element", "Data"};

// Written by the session dialog, frmMORAMConfig.

/// The program to launch: its path as typed, double quotes around it kept. [empty]
inline const std::string kProgramPath = "ProgramPath";
/// The program's command line, as typed. [empty]
inline const std::string kCommandLineArgs = "CommandLineArgs";
/// Whether the list goes over in reverse order: words::kTrue or words::kFalse. [true]
inline const std::string kReverseList = "ReverseList";
/// Automatic resize: words::kTrue or words::kFalse. [true]
inline const std::string kAutoResize = "AutoResize";
/// The orientation: words::kTop, kBottom, kRight or kLeft. [top]
inline const std::string kOrientation = "Orientation";
/// How many part formats the session uses: a whole number in decimal digits, 1 or more in a session
/// that was applied. [none]
inline const std::string kFormatCount = "FormatCount";
/// What the keys of `formatKey` begin with.
inline const std::string kFormatPrefix = "FORMAT";
/// Key of one of the session's part formats; the value is the part format's name, in upper case.
/// @param number  from 1 to the number of kFormatCount, without gaps
inline std::string formatKey(long number) {
    return kFormatPrefix + std::to_string(number);
}

// Written by the advanced dialog, dlgAdvConfig.

/// How the title of the program's window is compared with kWindowTitle: words::kContains,
/// kStartsWith or kMatches. [contains]
inline const std::string kWindowTitleSearchType = "WindowTitleSearchType";
/// The same for the window's class. [contains]
inline const std::string kWindowClassSearchType = "WindowClassSearchType";
/// The window title to look for, as typed; it may be empty. [empty]
inline const std::string kWindowTitle = "WindowTitle";
/// The window class to look for, as typed; it may be empty. [empty]
inline const std::string kWindowClass = "WindowClass";
/// Whether no program is launched: words::kTrue or words::kFalse. [false]
inline const std::string kDisableProgramLaunch = "DisableProgramLaunch";
/// How long to wait for the window: text that reads as a number in the locale of the user who typed
/// it, in a unit of the reading program's choice. [0]
inline const std::string kWindowTitleClassDelay = "WindowTitleClassDelay";
/// How long to wait after the launch: the same form; unchecked while no program is launched. [0]
inline const std::string kProgramLaunchDelay = "ProgramLaunchDelay";
/// Whether case counts in a title: always words::kTrue.
inline const std::string kWindowTitleCaseSensitive = "WindowTitleCaseSensitive";
/// Whether case counts in a class: always words::kFalse.
inline const std::string kWindowClassCaseSensitive = "WindowClassCaseSensitive";

// Written by the file-writer dialog, frmTallyvaneConfig.

/// The part format of the file: its name, or for none a text in "<" and ">", whose words depend on
/// the language. The name may be that of a part format that is gone. [none]
inline const std::string kPartFormat = "PartFormat";
/// The file's name, without blanks at its ends. [empty]
inline const std::string kFileName = "FileName";
/// The file's folder, without blanks at its ends, with or without a separator behind. [empty]
inline const std::string kFileFolder = "FileFolder";
/// What becomes of a file that is there: words::kAppend or words::kOverWrite. [OverWrite]
inline const std::string kFileAction = "FileAction";
/// Whether the file is all that is done: words::kTrue or words::kFalse. [false]
inline const std::string kWriteFileOnly = "WriteFileOnly";

/// All keys of a session but those of `formatKey`.
inline const std::set<std::string> kKeys{kProgramPath,
                                         kCommandLineArgs,
                                         kReverseList,
                                         kAutoResize,
                                         kOrientation,
                                         kFormatCount,
                                         kWindowTitleSearchType,
                                         kWindowClassSearchType,
                                         kWindowTitle,
                                         kWindowClass,
                                         kDisableProgramLaunch,
                                         kWindowTitleClassDelay,
                                         kProgramLaunchDelay,
                                         kWindowTitleCaseSensitive,
                                         kWindowClassCaseSensitive,
                                         kPartFormat,
                                         kFileName,
                                         kFileFolder,
                                         kFileAction,
                                         kWriteFileOnly};

}  // namespace session

/// A part format: templates that lay the list out as text, and how the values of four fields are
/// brought to a length. All of it is written by the part format editor, frmPartNumberFormat, in the
/// order of this list. In brackets the value of a new part format.
namespace partformat {

/// Type name of the record, and name of the part formats' folder below the store's root.
inline const std::string kType = "PARTFORMAT";

// Templates: any text, with tokens such as "<Part #>" and "<TAB>", stored as typed. [empty]
inline const std::string kHeader = "Header";        ///< before the parts
inline const std::string kRecord = "Record";        ///< one part
inline const std::string kSeparator = "Separator";  ///< between two parts
inline const std::string kTrailer = "Trailer";      ///< behind the parts

/// The keys of one field's settings.
struct FieldKeys {
    /// Whether the other three hold: words::kTrue or words::kFalse. [false]
    std::string flag;
    /// The field's length: text that reads as a number in the locale of the user who typed it,
    /// whatever number; unchecked while the flag is off. [20; description 34, VIN 17]
    std::string length;
    /// How a shorter value is aligned: words::kRight or words::kLeft. [right]
    std::string alignment;
    /// What fills the rest: any text or a token; empty only while the flag is off. [empty]
    std::string pad;
};
/// The settings of the part number.
inline const FieldKeys kPart{"FormatPartNumber", "PartFieldLength", "PartAlignment",
                             "PartPadCharacter"};
/// Those of the quantity.
inline const FieldKeys kQty{"FormatQty", "QtyFieldLength", "QtyAlignment", "QtyPadCharacter"};
/// Those of the description.
inline const FieldKeys kDesc{"FormatDesc", "DescFieldLength", "DescAlignment", "DescPadCharacter"};
/// Those of the vehicle's number.
inline const FieldKeys kVin{"FormatVIN", "VINFieldLength", "VINAlignment", "VINPadCharacter"};

/// The greatest number of records: text that reads as a number above 0 in the locale of the user
/// who typed it; it may have a fraction. [empty, and asked for]
inline const std::string kMaxRecords = "MaxRecords";

/// All keys of a part format.
inline const std::set<std::string> kKeys{
    kHeader,      kRecord,         kSeparator,   kTrailer,        kMaxRecords, kPart.flag,
    kPart.length, kPart.alignment, kPart.pad,    kQty.flag,       kQty.length, kQty.alignment,
    kQty.pad,     kDesc.flag,      kDesc.length, kDesc.alignment, kDesc.pad,   kVin.flag,
    kVin.length,  kVin.alignment,  kVin.pad};

}  // namespace partformat

}  // namespace wynconfig
