#include "MorrantUI/docking/shares.h"

#include <algorithm>
#include <numeric>

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

} // namespace ui::docking
