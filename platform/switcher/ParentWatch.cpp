#include "ParentWatch.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int lookAgainMs = 500;

} // namespace

ParentWatch::ParentWatch(pid_t process)
    : m_process(process)
    , m_descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0)))
{
}

ParentWatch::~ParentWatch()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool ParentWatch::isGone() const
{
    if (m_descriptor < 0)
        return kill(m_process, 0) != 0 && errno == ESRCH;
    pollfd process{m_descriptor, POLLIN, 0};
    return poll(&process, 1, 0) == 1;
}

int ParentWatch::intervalMs() const
{
    return m_descriptor < 0 ? lookAgainMs : -1;
}
