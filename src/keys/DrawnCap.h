#pragma once

#include "keys/CapPictures.h"
#include "keys/KeyShape.h"

// A cap as it has been drawn on the screen, for a key of the next picture that looks like it.
struct DrawnCap {
    KeyShape shape;
    CapPictures pictures;
};
