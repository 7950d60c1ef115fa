#pragma once

#include "x11/X11.h"

#include <QByteArray>
#include <QList>
#include <QPoint>

#include <cstring>
#include <deque>
#include <vector>

// A keyboard geometry made by hand, for tests that have no X server. It owns the records; what a
// function returns stays where it is, the addresses of doodads included, as long as it lives.
class FakeGeometry {
public:
    struct Outline {
        QList<QPoint> points;
        unsigned short cornerRadius = 0;
    };

    struct Key {
        const char* name = nullptr; // four characters at the most
        unsigned char shape = 0;
        short gap = 0; // before the key
    };

    struct Row {
        short left;
        short top;
        std::vector<Key> keys;
        bool vertical = false;
    };

    FakeGeometry() = default;
    ~FakeGeometry() = default;
    FakeGeometry(const FakeGeometry&) = delete;
    FakeGeometry& operator=(const FakeGeometry&) = delete;

    // All return an index of the geometry.
    int addColour(const char* name)
    {
        texts.emplace_back(name);
        colours.push_back({0, texts.back().data()});
        return connected(static_cast<int>(colours.size()) - 1);
    }

    int addShape(const XkbBoundsRec& bounds, const std::vector<Outline>& outlines = {})
    {
        std::vector<XkbOutlineRec>& records = shapeOutlines.emplace_back();
        for (const Outline& outline : outlines)
            records.push_back(recordOf(outline));
        XkbShapeRec shape{};
        shape.num_outlines = static_cast<unsigned short>(records.size());
        shape.outlines = records.data();
        shape.bounds = bounds;
        shapes.push_back(shape);
        return connected(static_cast<int>(shapes.size()) - 1);
    }

    int addShape(short width, short height) { return addShape({0, 0, width, height}); }

    int addSection(short left, short top, const std::vector<Row>& rows)
    {
        std::vector<XkbRowRec>& records = sectionRows.emplace_back();
        for (const Row& row : rows)
            records.push_back(recordOf(row));
        XkbSectionRec section{};
        section.left = left;
        section.top = top;
        section.num_rows = static_cast<unsigned short>(records.size());
        section.rows = records.data();
        sections.push_back(section);
        return connected(static_cast<int>(sections.size()) - 1);
    }

    XkbSectionRec& section(int index) { return sections.at(index); }

    // A doodad of this type whose other fields are zero.
    XkbDoodadRec& addDoodad(unsigned short type)
    {
        XkbDoodadRec& doodad = doodads.emplace_back();
        std::memset(&doodad, 0, sizeof doodad);
        doodad.any.type = type;
        return doodad;
    }

    // A text that lives as long as the geometry.
    char* keep(const char* text)
    {
        texts.emplace_back(text);
        return texts.back().data();
    }

    XkbGeometryRec& xkb() { return geometry; }

private:
    XkbOutlineRec recordOf(const Outline& outline)
    {
        std::vector<XkbPointRec>& points = outlinePoints.emplace_back();
        for (const QPoint& point : outline.points)
            points.push_back({static_cast<short>(point.x()), static_cast<short>(point.y())});
        XkbOutlineRec record{};
        record.num_points = static_cast<unsigned short>(points.size());
        record.corner_radius = outline.cornerRadius;
        record.points = points.data();
        return record;
    }

    XkbRowRec recordOf(const Row& row)
    {
        std::vector<XkbKeyRec>& keys = rowKeys.emplace_back();
        for (const Key& key : row.keys) {
            XkbKeyRec record{};
            std::strncpy(record.name.name, key.name, XkbKeyNameLength);
            record.gap = key.gap;
            record.shape_ndx = key.shape;
            keys.push_back(record);
        }
        XkbRowRec record{};
        record.left = row.left;
        record.top = row.top;
        record.num_keys = static_cast<unsigned short>(keys.size());
        record.vertical = row.vertical;
        record.keys = keys.data();
        return record;
    }

    int connected(int index)
    {
        geometry.num_colors = static_cast<unsigned short>(colours.size());
        geometry.colors = colours.data();
        geometry.num_shapes = static_cast<unsigned short>(shapes.size());
        geometry.shapes = shapes.data();
        geometry.num_sections = static_cast<unsigned short>(sections.size());
        geometry.sections = sections.data();
        return index;
    }

    std::deque<QByteArray> texts;
    std::deque<std::vector<XkbPointRec>> outlinePoints;
    std::deque<std::vector<XkbOutlineRec>> shapeOutlines;
    std::deque<std::vector<XkbKeyRec>> rowKeys;
    std::deque<std::vector<XkbRowRec>> sectionRows;
    std::deque<XkbDoodadRec> doodads;
    std::vector<XkbColorRec> colours;
    std::vector<XkbShapeRec> shapes;
    std::vector<XkbSectionRec> sections;
    XkbGeometryRec geometry{};
};
