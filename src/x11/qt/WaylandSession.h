#pragma once

// Whether the X server is that of a Wayland session (Xwayland), where XTest reaches the windows of
// X programs only. The first call waits for up to one round trip.
bool isWaylandsServer();
