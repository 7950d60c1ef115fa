#pragma once

// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a descriptor, so that
// the switcher can put the keyboard back first. To be made before anything that must be undone.
// A signalfd, and no handler as in the keyboard program: the switcher waits in poll anyway, starts
// no other programs, and a second signal must not keep it from putting the keyboard back.
class StopSignals {
public:
    // Throws std::runtime_error when the system gives no descriptor.
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    // Becomes readable when one has come.
    int descriptor() const { return signalDescriptor; }
    bool haveCome() const;

private:
    int signalDescriptor;
};
