#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <vector>

// One direction of a connection between two stream sockets: what comes in goes out a fixed time
// later, in the same pieces. File descriptors that travel with the bytes are handed on.
class DelayLine {
public:
    using Clock = std::chrono::steady_clock;

    // The sockets are borrowed.
    DelayLine(int inputSocket, int outputSocket, Clock::duration holdBack);
    ~DelayLine();
    DelayLine(const DelayLine&) = delete;
    DelayLine& operator=(const DelayLine&) = delete;

    int input() const { return in; }

    // False after the end of the input.
    bool takesInput() const { return !inputEnded; }

    // Reads what is there. To be called when the input is readable.
    void receive();

    // Sends what has waited long enough. A receiver that has gone ends the line.
    void deliver();

    // When there will be something to deliver; nothing while the line is empty.
    std::optional<Clock::time_point> nextDelivery() const;

    // True once the input has ended and all that came before has been delivered.
    bool isOver() const { return inputEnded && waiting.empty(); }

private:
    struct Piece {
        Clock::time_point due;
        std::vector<char> bytes; // empty: the end of the input
        std::vector<int> descriptors;
    };

    void send(Piece& piece);
    void end();

    int in;
    int out;
    Clock::duration delay;
    std::deque<Piece> waiting;
    bool inputEnded = false;
};
