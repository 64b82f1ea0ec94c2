// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/placing.h"

#include <algorithm>

namespace ui::docking {

QPoint placeWithin(const QRect& frame, const QRect& room)
{
    const QPoint last(
        room.x() + room.width() - frame.width(), room.y() + room.height() - frame.height());
    return {
        std::max(std::min(frame.x(), last.x()), room.x()),
        std::max(std::min(frame.y(), last.y()), room.y())};
}

QPoint gripAfter(QPoint grip, QSize before, QSize after)
{
    const qint64 along = qint64(grip.x()) * after.width() / std::max(before.width(), 1);
    const auto inside = [](qint64 value, int length) {
        return static_cast<int>(std::clamp<qint64>(value, 0, std::max(length - 1, 0)));
    };
    return {inside(along, after.width()), inside(grip.y(), after.height())};
}

} // namespace ui::docking
