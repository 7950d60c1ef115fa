#include "model/CaptionRow.h"

#include <algorithm>
#include <numeric>

namespace {

// Makes the longest shorter, all to the same length, until their sum is at most `room`.
void cutLongest(QList<int>& widths, int room)
{
    QList<int> ascending = widths;
    std::sort(ascending.begin(), ascending.end());
    int longest = ascending.last();
    for (qsizetype i = 0; i < ascending.size(); ++i) {
        const int share = room / static_cast<int>(ascending.size() - i);
        if (ascending.at(i) > share) {
            longest = share;
            break;
        }
        room -= ascending.at(i);
    }
    for (int& width : widths)
        width = std::min(width, longest);
}

} // namespace

QList<CaptionPlace> placesInRow(const CaptionRow& row, QList<int> widths)
{
    const int count = static_cast<int>(widths.size());
    if (count == 0)
        return {};
    cutLongest(widths, row.end - row.left - (count - 1) * row.gap);

    QList<CaptionPlace> places;
    int free = row.left;
    for (int i = 0; i < count; ++i) {
        const int x = std::max(row.left + i * row.width / count, free);
        places << CaptionPlace{x, widths.at(i)};
        free = x + widths.at(i) + row.gap;
    }
    int end = row.end;
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        place->x = std::min(place->x, end - place->room);
        end = place->x - row.gap;
    }
    return places;
}
