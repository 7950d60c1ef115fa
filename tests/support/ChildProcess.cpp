#include "ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int patienceMs = 5000;
constexpr int commandNotFound = 127;

std::vector<char*> pointers(const QByteArrayList& strings)
{
    std::vector<char*> result;
    for (const QByteArray& string : strings)
        result.push_back(const_cast<char*>(string.constData()));
    result.push_back(nullptr);
    return result;
}

// Runs between fork and exec: nothing here may allocate.
[[noreturn]] void becomeProgram(char** arguments, char** environment, int output, int inherited)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    if (inherited >= 0)
        fcntl(inherited, F_SETFD, 0);
    execvpe(arguments[0], arguments, environment);
    _exit(commandNotFound);
}

} // namespace

ChildProcess::ChildProcess(
    const QByteArrayList& command, const QByteArrayList& environment, int inheritedDescriptor)
    : m_output(memfd_create("output of a test's program", MFD_CLOEXEC))
{
    const std::vector<char*> arguments = pointers(command);
    const std::vector<char*> variables = pointers(environment);
    m_processId = fork();
    if (m_processId < 0) {
        close(m_output);
        throw std::runtime_error(std::string("no new process: ") + std::strerror(errno));
    }
    if (m_processId == 0) {
        becomeProgram(const_cast<char**>(arguments.data()), const_cast<char**>(variables.data()),
            m_output, inheritedDescriptor);
    }
    // On both sides of the fork, so that the group exists whoever runs first.
    setpgid(m_processId, m_processId);
}

ChildProcess::~ChildProcess()
{
    stop();
    close(m_output);
}

bool ChildProcess::isRunning()
{
    if (m_processId < 0)
        return false;
    if (waitpid(m_processId, nullptr, WNOHANG) != m_processId)
        return true;
    m_processId = -1;
    return false;
}

QByteArray ChildProcess::output() const
{
    struct stat status { };
    fstat(m_output, &status);
    QByteArray text(status.st_size, '\0');
    text.truncate(std::max<ssize_t>(0, pread(m_output, text.data(), text.size(), 0)));
    return text;
}

bool ChildProcess::stop()
{
    if (!isRunning())
        return true;
    const pid_t group = m_processId;
    kill(-group, SIGTERM);
    const bool ended = waitForEnd(patienceMs);
    kill(-group, SIGKILL);
    if (!ended)
        waitpid(group, nullptr, 0);
    m_processId = -1;
    return ended;
}

bool ChildProcess::waitForEnd(int milliseconds)
{
    pollfd process{static_cast<int>(syscall(SYS_pidfd_open, m_processId, 0)), POLLIN, 0};
    if (process.fd < 0)
        return false;
    poll(&process, 1, milliseconds);
    close(process.fd);
    return !isRunning();
}

QByteArrayList currentEnvironment()
{
    QByteArrayList result;
    for (char** variable = environ; *variable != nullptr; ++variable)
        result.append(*variable);
    return result;
}
