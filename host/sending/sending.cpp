// The decisions of sending, and their order.
#include "sending/sending.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace host {

namespace {

void append(std::vector<std::string>& sentences, std::vector<std::string> more) {
    for (std::string& sentence : more) {
        if (std::find(sentences.begin(), sentences.end(), sentence) == sentences.end())
            sentences.push_back(std::move(sentence));
    }
}

/// Makes the plan of one sending.
class Planner {
  public:
    Planner(const Session& session, const PartsList& list, const FormatSource& formats)
        : m_session(session), m_list(list), m_formats(formats) {}

    Plan plan(const std::string& formatName) {
        planFile();
        planProgram(formatName);
        append(m_plan.remarks, remarksOn(m_session));
        if (m_list.parts.empty()) problem("The parts list is empty.");
        if (!m_plan.file && !m_plan.program && m_plan.problems.empty())
            problem("The session " + m_session.name +
                    " neither writes a file nor starts a program.");
        return std::move(m_plan);
    }

  private:
    void problem(std::string sentence) { m_plan.problems.push_back(std::move(sentence)); }

    void planFile() {
        if (m_session.fileFormat.empty()) {
            if (m_session.writeFileOnly)
                problem("The session writes a file only, but has no part format for it.");
            return;
        }
        if (m_session.fileName.empty() || m_session.fileFolder.empty()) {
            problem(
                "The session has a part format for a file, but not the file's name and folder.");
            return;
        }
        try {
            const auto path = listFilePath(m_session.fileFolder, m_session.fileName);
            m_plan.file = FileStep{
                {path, m_session.append}, m_session.fileFormat, laidOut(m_session.fileFormat)};
        } catch (const std::exception& failure) {
            problem(failure.what());
        }
    }

    void planProgram(const std::string& formatName) {
        if (m_session.writeFileOnly || m_session.launchDisabled) return;
        CommandLine command = readCommandLine(m_session.programPath, m_session.commandLineArgs);
        if (command.program.empty()) {
            m_plan.remarks.push_back("The session names no program, so none is started.");
            return;
        }
        const std::vector<std::string>& names = m_session.formats;
        if (names.empty()) {
            problem("The session has no part format for its program.");
            return;
        }
        const auto chosen = std::find(names.begin(), names.end(), formatName);
        const std::string& name = chosen == names.end() ? names.front() : *chosen;
        try {
            m_plan.program =
                ProgramStep{std::move(command), name, laidOut(name), launchDelay(m_session)};
        } catch (const std::exception& failure) {
            problem(failure.what());
        }
    }

    Expansion laidOut(const std::string& formatName) {
        const PartFormat format = m_formats(formatName);
        Expansion expansion = expand(format, m_list, m_session.reverseList);
        append(m_plan.remarks, remarksOn(format));
        if (expansion.cutValues > 0)
            append(m_plan.remarks, {formatName + ": " + std::to_string(expansion.cutValues) +
                                    " value(s) are cut to their field length."});
        if (expansion.pages > 1)
            append(m_plan.remarks, {formatName + ": the list goes over in " +
                                    std::to_string(expansion.pages) + " pages."});
        return expansion;
    }

    const Session& m_session;
    const PartsList& m_list;
    const FormatSource& m_formats;
    Plan m_plan;
};

/// Raises `std::runtime_error` for a file that can't be written there.
ListPlace foreseen(const ListFile& file, const ProgramStarter& starter) {
    ListPlace place = placeOf(file);
    const auto refuse = [&](const std::string& why) {
        throw std::runtime_error("The file " + file.path.string() + " can't be written: " + why);
    };
    // The whole file is written anew beside the old one.
    if (!starter.mayWrite(place.file.parent_path()))
        refuse("you have no right to make files in its folder.");
    if (place.isThere && !starter.mayWrite(place.file)) refuse("you have no right to change it.");
    return place;
}

std::string adviceOn(const ListFile& file) {
    std::error_code failure;
    return std::filesystem::exists(file.path.parent_path(), failure)
               ? " Give the session another file."
               : " Make the folder, or give the session another one.";
}

std::string seconds(std::chrono::milliseconds time) {
    std::string text = std::to_string(static_cast<double>(time.count()) / 1000.0);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

std::string told(const FileStep& step) {
    return "The list was " + std::string(step.file.append ? "appended to " : "written to ") +
           step.file.path.string() + " (" + std::to_string(step.list.text.size()) + " bytes).";
}

std::string told(const ProgramStep& step) {
    const std::string handing = step.delay.count() == 0
                                    ? "it gets the list at once"
                                    : "it gets the list after " + seconds(step.delay) + " s";
    return "Started " + step.command.program + "; " + handing + " (" +
           std::to_string(step.list.text.size()) + " bytes).";
}

}  // namespace

Plan planSending(const Session& session, const std::string& formatName, const PartsList& list,
                 const FormatSource& formats) {
    return Planner(session, list, formats).plan(formatName);
}

void foresee(Plan& plan, const ProgramStarter& starter) {
    if (plan.file) {
        try {
            plan.file->place = foreseen(plan.file->file, starter);
        } catch (const std::runtime_error& failure) {
            plan.problems.push_back(failure.what() + adviceOn(plan.file->file));
        }
    }
    if (plan.program) append(plan.problems, {starter.obstacleTo(plan.program->command)});
    std::erase(plan.problems, std::string());
}

SendingReport carryOut(const Plan& plan, ProgramStarter& starter) {
    SendingReport report;
    for (const std::string& problem : plan.problems)
        report.failure += (report.failure.empty() ? "" : " ") + problem;
    if (!report.failure.empty()) return report;
    try {
        if (plan.file) {
            writeListFile(plan.file->file, plan.file->list.text);
            report.done.push_back(told(*plan.file));
        }
        if (plan.program) {
            starter.start(*plan.program);
            report.done.push_back(told(*plan.program));
        }
    } catch (const std::exception& failure) {
        report.failure = failure.what();
    }
    return report;
}

}  // namespace host
