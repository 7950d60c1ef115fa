#pragma once

#include "x11/X11.h"

#include <memory>

struct FreeXkbDescription {
    void operator()(XkbDescPtr description) const
    {
        freeOverlays(description->geom);
        XkbFreeKeyboard(description, XkbAllComponentsMask, x11::xTrue);
    }

private:
    // XkbFreeKeyboard leaves out the overlays of a geometry's sections.
    static void freeOverlays(XkbGeometryPtr geometry)
    {
        const int sections = geometry ? geometry->num_sections : 0;
        for (int i = 0; i < sections; ++i) {
            XkbSectionRec* const section = &geometry->sections[i];
            XkbFreeGeomOverlays(section, 0, section->num_overlays, x11::xTrue);
        }
    }
};

// A keyboard description in this process, with all its parts.
using XkbDescription = std::unique_ptr<XkbDescRec, FreeXkbDescription>;
