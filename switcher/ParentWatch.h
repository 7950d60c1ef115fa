#pragma once

#include <sys/types.h>

// Follows whether a process, which need not be a child or a parent of this one, is there.
class ParentWatch {
public:
    explicit ParentWatch(pid_t process);
    ~ParentWatch();
    ParentWatch(const ParentWatch&) = delete;
    ParentWatch& operator=(const ParentWatch&) = delete;

    pid_t process() const { return processId; }
    bool isGone() const;

    // Becomes readable when the process ends; -1 where the kernel has no such descriptor.
    int descriptor() const { return processDescriptor; }

    // How long to wait before isGone() is asked again, in milliseconds; -1 when the descriptor
    // shows the end.
    int intervalMs() const;

private:
    pid_t processId;
    int processDescriptor;
};
