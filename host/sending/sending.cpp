// The decisions of sending, and their order.
#include "sending/sending.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "texts/phrase.h"

namespace host {

namespace {

void append(std::vector<std::string>& sentences, std::vector<std::string> more) {
    for (std::string& sentence : more) {
        if (std::find(sentences.begin(), sentences.end(), sentence) == sentences.end())
            sentences.push_back(std::move(sentence));
    }
}

std::string number(std::size_t count) {
    return wholeText(static_cast<long long>(count));
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
        if (m_list.parts.empty()) problem(phrase("SEND_LIST_EMPTY"));
        if (!m_plan.file && !m_plan.program && m_plan.problems.empty())
            problem(phrase("SEND_NOTHING_TO_DO", {m_session.name}));
        return std::move(m_plan);
    }

  private:
    void problem(std::string sentence) { m_plan.problems.push_back(std::move(sentence)); }

    void planFile() {
        if (m_session.fileFormat.empty()) {
            if (m_session.writeFileOnly) problem(phrase("SEND_FILE_NO_FORMAT"));
            return;
        }
        if (m_session.fileName.empty() || m_session.fileFolder.empty()) {
            problem(phrase("SEND_FILE_NO_NAME"));
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
            m_plan.remarks.push_back(phrase("SEND_NO_PROGRAM"));
            return;
        }
        const std::vector<std::string>& names = m_session.formats;
        if (names.empty()) {
            problem(phrase("SEND_NO_FORMAT"));
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
            append(m_plan.remarks, {phrase("SEND_CUT", {formatName, number(expansion.cutValues)})});
        if (expansion.pages > 1)
            append(m_plan.remarks, {phrase("SEND_PAGES", {formatName, number(expansion.pages)})});
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
    const auto refuse = [&](const char* why) {
        throw std::runtime_error(phrase("FILE_CANT_WRITE", {file.path.string(), phrase(why)}));
    };
    // The whole file is written anew beside the old one.
    if (!starter.mayWrite(place.file.parent_path())) refuse("REASON_NO_RIGHT_IN_FOLDER");
    if (place.isThere && !starter.mayWrite(place.file)) refuse("REASON_NO_RIGHT_TO_CHANGE");
    return place;
}

std::string adviceOn(const ListFile& file) {
    std::error_code failure;
    return phrase(std::filesystem::exists(file.path.parent_path(), failure) ? "ADVICE_OTHER_FILE"
                                                                            : "ADVICE_FOLDER");
}

std::string told(const FileStep& step) {
    return phrase(step.file.append ? "SENT_APPENDED" : "SENT_WRITTEN",
                  {step.file.path.string(), bytesText(step.list)});
}

std::string told(const ProgramStep& step) {
    if (step.delay.count() == 0)
        return phrase("SENT_STARTED_AT_ONCE", {step.command.program, bytesText(step.list)});
    return phrase("SENT_STARTED_AFTER",
                  {step.command.program, secondsText(step.delay), bytesText(step.list)});
}

}  // namespace

std::string bytesText(const Expansion& list) {
    return countedPhrase("BYTES", static_cast<long long>(list.text.size()));
}

std::string secondsText(std::chrono::milliseconds time) {
    constexpr double kMillisecondsPerSecond = 1000;
    return decimalText(static_cast<double>(time.count()) / kMillisecondsPerSecond);
}

Plan planSending(const Session& session, const std::string& formatName, const PartsList& list,
                 const FormatSource& formats) {
    return Planner(session, list, formats).plan(formatName);
}

void foresee(Plan& plan, const ProgramStarter& starter) {
    if (plan.file) {
        try {
            plan.file->place = foreseen(plan.file->file, starter);
        } catch (const std::runtime_error& failure) {
            plan.problems.push_back(std::string(failure.what()) + " " + adviceOn(plan.file->file));
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
