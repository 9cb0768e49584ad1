// What sending a parts list by a session does, decided first and then carried out.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sending/command_line.h"
#include "sending/expansion.h"
#include "sending/list_file.h"
#include "sending/session.h"

namespace host {

/// The file that is written, and the list for it.
struct FileStep {
    ListFile file;
    std::string formatName;
    Expansion list;
    std::optional<ListPlace> place = {};  ///< what lies there, as `foresee` found it
};

/// The program that is started, and the list that it gets on its standard input.
struct ProgramStep {
    CommandLine command;
    std::string formatName;
    Expansion list;
    std::chrono::milliseconds delay{0};  ///< between its start and the handing over
};

/// Everything that sending would do.
struct Plan {
    std::optional<FileStep> file;        ///< comes first
    std::optional<ProgramStep> program;  ///< comes second, once the file is there
    std::vector<std::string> problems;   ///< why nothing can be sent, a sentence each
    std::vector<std::string> remarks;    ///< what one should know besides, a sentence each
};

/// Gives the part format of a name. Raises `std::exception` when it can't.
using FormatSource = std::function<PartFormat(const std::string& name)>;

/// Decides what to do. Touches no file but through the source.
/// @param formatName  which of the session's part formats the program gets; one that is not among
///                    them, such as the empty string, means the first
Plan planSending(const Session& session, const std::string& formatName, const PartsList& list,
                 const FormatSource& formats);

/// The part of sending that needs a system.
class ProgramStarter {
  public:
    virtual ~ProgramStarter() = default;
    /// Why a program could not be started now, and what to do about it, a sentence for the user
    /// each; empty: nothing that can be seen beforehand is in its way.
    virtual std::string obstacleTo(const CommandLine& command) const = 0;
    /// Whether this user may change a file, or make files in a folder, that is there.
    virtual bool mayWrite(const std::filesystem::path& path) const = 0;
    /// Starts a program, and hands it the list after its delay. Returns once it runs.
    /// Raises `std::runtime_error` with a sentence for the user when it can't be started.
    virtual void start(const ProgramStep& step) = 0;
};

/// Looks at what a plan meets: at the place of its file, and at its program. What would make it
/// fail becomes a problem, so that nothing is done by halves. Changes nothing on the disk.
void foresee(Plan& plan, const ProgramStarter& starter);

/// How long a list is, such as "40 bytes".
std::string bytesText(const Expansion& list);
/// A time in seconds, without their name.
std::string secondsText(std::chrono::milliseconds time);

/// What came of it.
struct SendingReport {
    std::vector<std::string> done;  ///< what was done, a sentence each
    std::string failure;            ///< why it ended early; empty: it did not
};

/// Carries a plan out: the file first, then the program. The first failure ends it; a plan with
/// problems does nothing.
SendingReport carryOut(const Plan& plan, ProgramStarter& starter);

}  // namespace host
