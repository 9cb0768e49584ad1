// Starts the programs of the sessions.
#pragma once

#include <QByteArray>
#include <QObject>
#include <filesystem>
#include <map>
#include <string>

#include "sending/sending.h"

class QProcess;

namespace host {

/// Starts programs without a shell. A program goes on when the host ends; a list that still waits
/// for its delay is handed over before that.
class ProcessStarter : public QObject, public ProgramStarter {
    Q_OBJECT

  public:
    using QObject::QObject;
    ~ProcessStarter() override;

    std::string obstacleTo(const CommandLine& command) const override;
    bool mayWrite(const std::filesystem::path& path) const override;
    void start(const ProgramStep& step) override;

  signals:
    /// What became of a program that was started: a sentence for the user.
    void told(const QString& sentence, bool isFailure);

  private:
    void handOver(QProcess* process);
    void ended(QProcess* process, int code);

    std::map<QProcess*, QByteArray> m_waiting;  ///< programs that have not got their lists yet
};

}  // namespace host
