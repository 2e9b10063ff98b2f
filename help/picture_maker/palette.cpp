// SPDX-FileCopyrightText: 2026 The Ostrand Datasheets authors
// SPDX-License-Identifier: MIT
#include "palette.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace ostrand::help {
namespace {

constexpr std::size_t mostColours = 256;

struct Colour
{
    QRgb rgb;
    qint64 count;
};
using Colours = std::vector<Colour>;

int channel(QRgb rgb, int number)
{
    return static_cast<int>(rgb >> (8 * number) & 0xffU);
}

/// The channel in which the colours differ most, and by how much.
std::pair<int, int> widest(const Colours& colours)
{
    std::pair<int, int> found{0, -1};
    for (int number = 0; number < 3; ++number) {
        const auto [low, high] =
            std::minmax_element(colours.begin(), colours.end(), [number](Colour a, Colour b) {
                return channel(a.rgb, number) < channel(b.rgb, number);
            });
        const int width = channel(high->rgb, number) - channel(low->rgb, number);
        if (width > found.second)
            found = {number, width};
    }
    return found;
}

/// Parts the colours in their widest channel, with about as many points on each side.
Colours splitOff(Colours& colours)
{
    const int number = widest(colours).first;
    std::sort(colours.begin(), colours.end(), [number](Colour a, Colour b) {
        return channel(a.rgb, number) < channel(b.rgb, number);
    });
    qint64 all = 0;
    for (const Colour& colour : colours)
        all += colour.count;
    std::size_t at = 0;
    for (qint64 seen = 0; at + 2 < colours.size() && seen + colours[at].count <= all / 2; ++at)
        seen += colours[at].count;
    const auto middle = colours.begin() + static_cast<Colours::difference_type>(at) + 1;
    Colours rest(middle, colours.end());
    colours.erase(middle, colours.end());
    return rest;
}

QRgb mean(const Colours& colours)
{
    std::array<qint64, 3> sums{};
    qint64 all = 0;
    for (const Colour& colour : colours) {
        for (int number = 0; number < 3; ++number)
            sums.at(static_cast<std::size_t>(number)) += channel(colour.rgb, number) * colour.count;
        all += colour.count;
    }
    return qRgb(static_cast<int>(sums[2] / all),
                static_cast<int>(sums[1] / all),
                static_cast<int>(sums[0] / all));
}

/// How much is gained by parting a box: large boxes of many points first.
qint64 gain(const Colours& box)
{
    qint64 all = 0;
    for (const Colour& colour : box)
        all += colour.count;
    return box.size() < 2 ? 0 : all * widest(box).second;
}

std::vector<Colours> boxesOf(Colours colours)
{
    std::vector<Colours> boxes{std::move(colours)};
    std::vector<qint64> gains{gain(boxes.front())};
    while (boxes.size() < mostColours) {
        const auto best = std::max_element(gains.begin(), gains.end());
        if (*best == 0)
            break;
        const auto at = static_cast<std::size_t>(best - gains.begin());
        Colours rest = splitOff(boxes[at]);
        gains[at] = gain(boxes[at]);
        gains.push_back(gain(rest));
        boxes.push_back(std::move(rest));
    }
    return boxes;
}

} // namespace

QImage withPalette(const QImage& picture)
{
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, qint64> counts;
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            ++counts[source.pixel(x, y)];
    }
    Colours colours;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        colours.push_back({it.key(), it.value()});
    // Equal pictures give equal files.
    std::sort(colours.begin(), colours.end(), [](Colour a, Colour b) { return a.rgb < b.rgb; });

    QList<QRgb> table;
    QHash<QRgb, uint> indexes;
    for (const Colours& box : boxesOf(std::move(colours))) {
        for (const Colour& colour : box)
            indexes.insert(colour.rgb, static_cast<uint>(table.size()));
        table << mean(box);
    }
    QImage result(source.size(), QImage::Format_Indexed8);
    result.setColorTable(table);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            result.setPixel(x, y, indexes.value(source.pixel(x, y)));
    }
    return result;
}

} // namespace ostrand::help
