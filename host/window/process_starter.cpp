// Processes, and the lists on their standard input.
#include "window/process_starter.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <stdexcept>

#include "window/direction.h"

namespace host {

namespace {

constexpr int kStartMilliseconds = 5000;
constexpr int kLastWriteMilliseconds = 1000;

QString nameOf(const QProcess& process) {
    return isolated(QFileInfo(process.program()).fileName());
}

}  // namespace

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
        const std::string why = process->errorString().toStdString();
        delete process;
        throw std::runtime_error("The program " + step.command.program +
                                 " can't be started: " + why + ".");
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
    emit told(tr("%1 got the list.").arg(nameOf(*process)), false);
}

void ProcessStarter::ended(QProcess* process, int code) {
    if (m_waiting.erase(process) > 0)
        emit told(tr("%1 ended before it got the list.").arg(nameOf(*process)), true);
    else if (process->exitStatus() == QProcess::CrashExit)
        emit told(tr("%1 crashed.").arg(nameOf(*process)), true);
    else
        emit told(tr("%1 ended with code %2.").arg(nameOf(*process)).arg(code), code != 0);
}

}  // namespace host
