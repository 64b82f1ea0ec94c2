// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tabreorder.h"

#include <QMimeData>

#include <algorithm>

namespace ui::tabs {

QString reorderFormat()
{
    return QStringLiteral("application/tab-reorder");
}

QByteArray reorderData(int index)
{
    return QByteArray::number(index);
}

std::optional<int> reorderIndex(const QByteArray& data)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!std::all_of(data.begin(), data.end(), isDigit)) { // toInt() takes signs and spaces too
        return std::nullopt;
    }
    bool isNumber = false;
    const int index = data.toInt(&isNumber);
    return isNumber ? std::optional(index) : std::nullopt;
}

std::optional<int> reorderIndex(const QMimeData* data)
{
    if (!data || !data->hasFormat(reorderFormat())) {
        return std::nullopt;
    }
    return reorderIndex(data->data(reorderFormat()));
}

} // namespace ui::tabs
