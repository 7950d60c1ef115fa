#pragma once

#include <QAbstractNativeEventFilter>
#include <QByteArray>

#include <array>
#include <cstdint>
#include <functional>

struct xcb_connection_t;

// Keeps Qt from reading a keymap again that it knows. The server announces a new keyboard each time
// that the user goes from one device to another, XTest's included, and Qt then asks for the whole
// keymap with one question after the other: far from the server that takes a second, in which no
// click is let go of and the server repeats the key.
// The announcement is held back here, the keymap is asked for without waiting, and the announcement
// sent to this program once more. When it comes back the answers are there: it goes on to Qt if
// they are others than before. To be installed before other filters, which then still see
// everything.
class KeymapGate : public QAbstractNativeEventFilter {
public:
    // While the predicate holds, a keymap that has changed has to wait: the program is going to
    // let go of a key.
    using Predicate = std::function<bool()>;

    // The server must have XKB, and the application exist.
    explicit KeymapGate(Predicate holdsKeys);
    ~KeymapGate() override;
    Q_DISABLE_COPY(KeymapGate)

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    // What Qt reads: map, names, indicators and interpretations, each a question of its own.
    using Questions = std::array<unsigned int, 4>;

    bool isKeymapEvent(const void* message) const;
    void keepBack(const void* message);
    bool comesBack(); // true: the announcement that has come back goes on to Qt
    Questions ask() const;
    QByteArray answers(const Questions& asked) const;
    void askAndSendBack();

    xcb_connection_t* connection;
    Predicate isBusy;
    int xkbEvent = -1;
    std::uint32_t window = 0; // never shown: the address of what is sent back
    std::array<char, 32> keptBack{}; // the last announcement
    Questions questions{};
    bool isFirstKnown = false; // false: `questions` are those of the beginning
    bool isAsking = false;
    bool hasMore = false; // another announcement has come since the questions
    bool isOwed = false; // a change was kept back, and Qt has still to hear of it
    QByteArray keymap; // that Qt has
};
