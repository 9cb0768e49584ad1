// Processes, and the lists on their standard input.
#include "window/process_starter.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTimer>
#include <stdexcept>

#include "texts/phrase.h"
#include "window/direction.h"
#include "window/wording.h"

namespace host {

namespace {

constexpr int kStartMilliseconds = 5000;
constexpr int kLastWriteMilliseconds = 1000;

QString nameOf(const QProcess& process) {
    return isolated(QFileInfo(process.program()).fileName());
}

/// Why a program can't be started, as far as that can be seen; empty: it can't.
QString obstacleSeen(const QString& program) {
    // One without a folder is looked for as the system does.
    if (!program.contains(u'/'))
        return QStandardPaths::findExecutable(program).isEmpty() ? wording("PROGRAM_NOT_HERE")
                                                                 : QString();
    const QFileInfo file(program);
    if (!file.exists()) return wording("PROGRAM_NOT_THERE");
    if (file.isDir()) return wording("PROGRAM_IS_FOLDER");
    if (!file.isExecutable()) return wording("PROGRAM_NO_RIGHT");
    return {};
}

std::string cantStart(const std::string& program, const QString& why) {
    return phrase("PROGRAM_CANT_START", {program, why.toStdString()});
}

}  // namespace

std::string ProcessStarter::obstacleTo(const CommandLine& command) const {
    const QString why = obstacleSeen(QString::fromStdString(command.program));
    return why.isEmpty() ? std::string() : cantStart(command.program, why);
}

bool ProcessStarter::mayWrite(const std::filesystem::path& path) const {
    return QFileInfo(QString::fromStdString(path.string())).isWritable();
}

ProcessStarter::~ProcessStarter() {
    blockSignals(true);
    while (!m_waiting.empty()) {
        QProcess* process = m_waiting.begin()->first;
        process->disconnect(this);
        handOver(process);
        process->waitForBytesWritten(kLastWriteMilliseconds);
    }
}

void ProcessStarter::start(const ProgramStep& step) {
    QStringList arguments;
    for (const std::string& argument : step.command.arguments)
        arguments << QString::fromStdString(argument);
    // It has no parent: the end of a QProcess would be the end of its program.
    auto* process = new QProcess;
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->start(QString::fromStdString(step.command.program), arguments);
    if (!process->waitForStarted(kStartMilliseconds)) {
        delete process;
        // The words of the system name its calls, which help nobody here.
        const std::string seen = obstacleTo(step.command);
        throw std::runtime_error(
            seen.empty() ? cantStart(step.command.program, wording("PROGRAM_CANT_RUN")) : seen);
    }
    m_waiting[process] = QByteArray::fromStdString(step.list.text);
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::finished, this,
            [this, process](int code) { ended(process, code); });
    auto* timer = new QTimer(process);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);  // any other may be early
    connect(timer, &QTimer::timeout, this, [this, process] {
        if (m_waiting.contains(process)) handOver(process);
    });
    timer->start(step.delay);
}

void ProcessStarter::handOver(QProcess* process) {
    process->write(m_waiting.at(process));
    process->closeWriteChannel();
    m_waiting.erase(process);
    emit told(wording("PROGRAM_GOT", {nameOf(*process)}), false);
}

void ProcessStarter::ended(QProcess* process, int code) {
    if (m_waiting.erase(process) > 0)
        emit told(wording("PROGRAM_ENDED_EARLY", {nameOf(*process)}), true);
    else if (process->exitStatus() == QProcess::CrashExit)
        emit told(wording("PROGRAM_CRASHED", {nameOf(*process)}), true);
    else
        emit told(code == 0 ? wording("PROGRAM_FINISHED", {nameOf(*process)})
                            : wording("PROGRAM_FAILED", {nameOf(*process), numberText(code)}),
                  code != 0);
}

}  // namespace host
