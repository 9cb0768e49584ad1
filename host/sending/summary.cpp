// The settings, a line each.
#include "sending/summary.h"

namespace host {

namespace {

std::string yesOrNo(bool value) {
    return value ? "yes" : "no";
}

std::string orNone(const std::string& text) {
    return text.empty() ? "none" : text;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
    return orNone(text);
}

std::string fileOf(const Session& session) {
    if (session.fileFormat.empty()) return "none";
    return session.fileName + " in " + session.fileFolder + ", " +
           (session.append ? "appended to" : "overwritten") + ", laid out by " + session.fileFormat;
}

std::string fieldOf(const FieldLayout& layout) {
    if (!layout.on) return "as it is";
    return layout.length + " characters, at the " + (layout.right ? "right" : "left") +
           ", filled with " + (layout.pad.empty() ? "blanks" : layout.pad);
}

}  // namespace

std::vector<std::string> summaryOf(const Session& session) {
    std::vector<std::string> lines = {
        "Session " + session.name,
        "  Program: " + orNone(session.programPath),
        "  Command line: " + orNone(session.commandLineArgs),
        "  Program is started: " + yesOrNo(!session.launchDisabled && !session.writeFileOnly),
        "  Program launch delay: " + orNone(session.launchDelay),
        "  Part formats: " + joined(session.formats),
        "  Reversed list: " + yesOrNo(session.reverseList),
        "  File: " + fileOf(session),
    };
    for (const auto& [label, value] : furtherFacts(session))
        lines.push_back("  " + label + ": " + value);
    return lines;
}

std::vector<std::string> summaryOf(const PartFormat& format) {
    return {
        "Part format " + format.name,
        "  Header: " + orNone(format.header),
        "  Record: " + orNone(format.record),
        "  Separator: " + orNone(format.separator),
        "  Trailer: " + orNone(format.trailer),
        "  Part number: " + fieldOf(format.part),
        "  Quantity: " + fieldOf(format.quantity),
        "  Description: " + fieldOf(format.description),
        "  VIN: " + fieldOf(format.vin),
        "  Most records of a page: " + orNone(format.maxRecords),
    };
}

}  // namespace host
