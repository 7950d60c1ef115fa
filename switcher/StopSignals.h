#pragma once

// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a descriptor, so that
// it can end in order. To be made before anything that must be undone.
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
