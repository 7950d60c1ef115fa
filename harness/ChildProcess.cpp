#include "harness/ChildProcess.h"

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
    : outputFile(memfd_create("output of a test's program", MFD_CLOEXEC))
{
    const std::vector<char*> arguments = pointers(command);
    const std::vector<char*> variables = pointers(environment);
    process = fork();
    if (process < 0) {
        close(outputFile);
        throw std::runtime_error(std::string("no new process: ") + std::strerror(errno));
    }
    if (process == 0) {
        becomeProgram(const_cast<char**>(arguments.data()), const_cast<char**>(variables.data()),
            outputFile, inheritedDescriptor);
    }
    // On both sides of the fork, so that the group exists whoever runs first.
    setpgid(process, process);
}

ChildProcess::~ChildProcess()
{
    stop();
    close(outputFile);
}

bool ChildProcess::isRunning()
{
    if (process < 0)
        return false;
    if (waitpid(process, nullptr, WNOHANG) != process)
        return true;
    process = -1;
    return false;
}

QByteArray ChildProcess::output() const
{
    struct stat status{};
    fstat(outputFile, &status);
    QByteArray text(status.st_size, '\0');
    text.truncate(std::max<ssize_t>(0, pread(outputFile, text.data(), text.size(), 0)));
    return text;
}

bool ChildProcess::stop()
{
    if (!isRunning())
        return true;
    const pid_t group = process;
    kill(-group, SIGTERM);
    const bool ended = waitForEnd(patienceMs);
    kill(-group, SIGKILL);
    if (!ended)
        waitpid(group, nullptr, 0);
    process = -1;
    return ended;
}

bool ChildProcess::waitForEnd(int milliseconds)
{
    pollfd end{static_cast<int>(syscall(SYS_pidfd_open, process, 0)), POLLIN, 0};
    if (end.fd < 0)
        return false;
    poll(&end, 1, milliseconds);
    close(end.fd);
    return !isRunning();
}

QByteArrayList currentEnvironment()
{
    QByteArrayList result;
    for (char** variable = environ; *variable != nullptr; ++variable)
        result.append(*variable);
    return result;
}
