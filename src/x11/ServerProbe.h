#pragma once

namespace x11 {

// Whether there is an X server behind this display name, and such a screen of it. Opens a
// connection for the moment.
bool serverAnswers(const char* display);

} // namespace x11
