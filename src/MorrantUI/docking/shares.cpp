// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/shares.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace ui::docking {

QList<int> scaledTo(const QList<int>& sizes, int total)
{
    const qint64 sum = std::accumulate(sizes.begin(), sizes.end(), qint64(0));
    const qint64 length = std::max(total, 0);
    QList<int> scaled;
    scaled.reserve(sizes.size());
    // Rounding the borders between the windows, not their sizes, keeps the total exact.
    qint64 border = 0;
    qint64 scaledBorder = 0;
    for (const int size : sizes) {
        border += sum > 0 ? size : 1;
        const qint64 all = sum > 0 ? sum : sizes.size();
        const qint64 next = (border * length + all / 2) / all;
        scaled.append(static_cast<int>(next - scaledBorder));
        scaledBorder = next;
    }
    return scaled;
}

int newcomerShare(int room, int wanted)
{
    return std::clamp(wanted, 0, std::max(room / 2, 0));
}

QList<int> withNewcomer(const QList<int>& sizes, int index, int wanted, int handle)
{
    const int room = std::accumulate(sizes.begin(), sizes.end(), 0) - handle;
    const int share = newcomerShare(room, wanted);
    QList<int> shared = scaledTo(sizes, room - share);
    shared.insert(index, share);
    return shared;
}

QList<int> withReplaced(const QList<int>& sizes, int index, const QList<int>& parts, int handle)
{
    const int handles = handle * static_cast<int>(parts.size() - 1);
    const QList<int> scaledParts = scaledTo(parts, sizes.at(index) - handles);
    QList<int> replaced = sizes;
    replaced.removeAt(index);
    for (qsizetype i = 0; i < scaledParts.size(); ++i) {
        replaced.insert(index + i, scaledParts.at(i));
    }
    return replaced;
}

std::vector<bool> yielding(const std::vector<Cell>& cells, int room)
{
    std::vector<bool> yields(cells.size(), false);
    qint64 reach = 0;
    std::pair most(-1, -1);
    for (const Cell& cell : cells) {
        if (cell.seen) {
            reach += cell.most;
            most = std::max(most, std::pair(cell.stretch, cell.most));
        }
    }
    for (std::size_t i = 0; reach < room && i < cells.size(); ++i) {
        yields[i] = cells[i].seen && std::pair(cells[i].stretch, cells[i].most) == most;
    }
    return yields;
}

QList<int> filled(const QList<int>& sizes, const std::vector<Cell>& cells, int room)
{
    const std::vector<bool> yields = yielding(cells, room);
    QList<int> grown = sizes;
    for (const bool beyond : {false, true}) {
        for (;;) { // each time all of it is given out, or one has reached its most
            const int missing = room - std::accumulate(grown.begin(), grown.end(), 0);
            QList<int> takers(grown.size(), 0);
            for (qsizetype i = 0; i < grown.size(); ++i) {
                const auto cell = static_cast<std::size_t>(i);
                const bool takes =
                    beyond ? yields[cell] : cells[cell].seen && grown[i] < cells[cell].most;
                takers[i] = takes ? std::max(grown[i], 1) : 0;
            }
            if (missing <= 0 || std::count(takers.begin(), takers.end(), 0) == takers.size()) {
                break;
            }
            const QList<int> gains = scaledTo(takers, missing);
            for (qsizetype i = 0; i < grown.size(); ++i) {
                const int most = cells[static_cast<std::size_t>(i)].most;
                const qint64 wanted = qint64(grown[i]) + gains[i];
                grown[i] =
                    beyond ? static_cast<int>(wanted)
                           : static_cast<int>(std::min<qint64>(wanted, std::max(most, grown[i])));
            }
        }
    }
    return grown;
}

} // namespace ui::docking
