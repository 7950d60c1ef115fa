#include "switcher/ParentWatch.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int lookAgainMs = 500;

} // namespace

ParentWatch::ParentWatch(pid_t process)
    : processId(process)
    , processDescriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)))
{
}

ParentWatch::~ParentWatch()
{
    if (processDescriptor >= 0)
        close(processDescriptor);
}

bool ParentWatch::isGone() const
{
    if (processDescriptor < 0)
        return kill(processId, 0) != 0 && errno == ESRCH;
    pollfd process{processDescriptor, POLLIN, 0};
    return poll(&process, 1, 0) == 1;
}

int ParentWatch::intervalMs() const
{
    return processDescriptor < 0 ? lookAgainMs : -1;
}
