// The settings, a line each.
#include "sending/summary.h"

#include "texts/phrase.h"

namespace host {

namespace {

std::string yesOrNo(bool value) {
    return phrase(value ? "FACT_YES" : "FACT_NO");
}

std::string orNone(const std::string& text) {
    return text.empty() ? phrase("FACT_NONE") : text;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text = text.empty() ? name : phrase("JOIN_COMMA", {text, name});
    return orNone(text);
}

std::string fileOf(const Session& session) {
    if (session.fileFormat.empty()) return phrase("FACT_NONE");
    return phrase(session.append ? "SUMMARY_FILE_APPENDED" : "SUMMARY_FILE_OVERWRITTEN",
                  {session.fileName, session.fileFolder, session.fileFormat});
}

std::string fieldOf(const FieldLayout& layout) {
    if (!layout.on) return phrase("SUMMARY_AS_IT_IS");
    return phrase(layout.right ? "SUMMARY_FIELD_RIGHT" : "SUMMARY_FIELD_LEFT",
                  {layout.length, layout.pad.empty() ? phrase("SUMMARY_BLANKS") : layout.pad});
}

/// A setting below the name of what it belongs to.
std::string lineOf(const std::string& label, const std::string& value, const ValueMark& mark) {
    return "  " + phrase("JOIN_COLON", {label, mark ? mark(value) : value});
}

}  // namespace

std::vector<std::string> summaryOf(const Session& session, const ValueMark& mark) {
    const auto line = [&](const std::string& label, const std::string& value) {
        return lineOf(label, value, mark);
    };
    std::vector<std::string> lines = {
        phrase("SUMMARY_SESSION", {session.name}),
        line(phrase("SUMMARY_PROGRAM"), orNone(session.programPath)),
        line(phrase("SUMMARY_COMMAND_LINE"), orNone(session.commandLineArgs)),
        line(phrase("SUMMARY_STARTED"), yesOrNo(!session.launchDisabled && !session.writeFileOnly)),
        line(phrase("SUMMARY_LAUNCH_DELAY"), orNone(session.launchDelay)),
        line(phrase("SUMMARY_FORMATS"), joined(session.formats)),
        line(phrase("SUMMARY_REVERSED"), yesOrNo(session.reverseList)),
        line(phrase("SUMMARY_FILE"), fileOf(session)),
    };
    for (const auto& [label, value] : furtherFacts(session)) lines.push_back(line(label, value));
    return lines;
}

std::vector<std::string> summaryOf(const PartFormat& format, const ValueMark& mark) {
    const auto line = [&](const std::string& label, const std::string& value) {
        return lineOf(label, value, mark);
    };
    return {
        phrase("SUMMARY_FORMAT", {format.name}),
        line(phrase("SUMMARY_HEADER"), orNone(format.header)),
        line(phrase("SUMMARY_RECORD"), orNone(format.record)),
        line(phrase("SUMMARY_SEPARATOR"), orNone(format.separator)),
        line(phrase("SUMMARY_TRAILER"), orNone(format.trailer)),
        line(phrase("SUMMARY_PART"), fieldOf(format.part)),
        line(phrase("SUMMARY_QUANTITY"), fieldOf(format.quantity)),
        line(phrase("SUMMARY_DESCRIPTION"), fieldOf(format.description)),
        line(phrase("SUMMARY_VIN"), fieldOf(format.vin)),
        line(phrase("SUMMARY_MAXIMUM"), orNone(format.maxRecords)),
    };
}

}  // namespace host
