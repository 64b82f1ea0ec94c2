// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/keywalk.h"

#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorLayoutContainer.h>

#include <QGraphicsLinearLayout>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace ui {

namespace {

/// The rows that keys can be in, from the top.
std::vector<TimeEditorBaseItem*> rowsOf(const TimeEditorLayoutContainer& stack)
{
    std::vector<TimeEditorBaseItem*> rows;
    for (int i = 0; i < stack.linearLayout()->count(); ++i) {
        QGraphicsItem* const item = stack.linearLayout()->itemAt(i)->graphicsItem();
        auto* const row = dynamic_cast<TimeEditorBaseItem*>(item);
        if (row && row->isVisible()) {
            rows.push_back(row);
        }
    }
    return rows;
}

TimeEditorKeyframeItem* nearestKey(const TimeEditorBaseItem& row, double x)
{
    const std::vector<TimeEditorKeyframeItem*> keys = keysIn(row);
    const auto nearest = std::min_element(keys.begin(), keys.end(), [x](auto* a, auto* b) {
        return std::abs(a->x() - x) < std::abs(b->x() - x);
    });
    return nearest == keys.end() ? nullptr : *nearest;
}

TimeEditorKeyframeItem* keyInRow(TimeEditorKeyframeItem* from, int key)
{
    const std::vector<TimeEditorKeyframeItem*> keys = keysIn(*rowOf(*from));
    const auto here = std::find(keys.begin(), keys.end(), from);
    if (key == Qt::Key_Home) {
        return keys.front();
    }
    if (key == Qt::Key_End) {
        return keys.back();
    }
    if (key == Qt::Key_Left) {
        return here == keys.begin() ? from : *std::prev(here);
    }
    return std::next(here) == keys.end() ? from : *std::next(here);
}

template <typename Rows>
TimeEditorKeyframeItem* keyBeyond(const Rows& rows, TimeEditorKeyframeItem* from)
{
    auto row = std::find(rows.begin(), rows.end(), rowOf(*from));
    while (row != rows.end() && ++row != rows.end()) {
        if (TimeEditorKeyframeItem* const key = nearestKey(**row, from->x())) {
            return key;
        }
    }
    return from;
}

} // namespace

std::vector<TimeEditorKeyframeItem*> keysIn(const TimeEditorBaseItem& row)
{
    if (const auto* const curve = dynamic_cast<const TimeEditorCurveItem*>(&row)) {
        return curve->keyframes(); // which it has in order
    }
    std::vector<TimeEditorKeyframeItem*> keys;
    for (QGraphicsItem* const child : row.childItems()) {
        if (auto* const key = dynamic_cast<TimeEditorKeyframeItem*>(child)) {
            keys.push_back(key);
        }
    }
    std::stable_sort(keys.begin(), keys.end(), [](auto* a, auto* b) { return a->x() < b->x(); });
    return keys;
}

TimeEditorBaseItem* rowOf(const TimeEditorKeyframeItem& key)
{
    return dynamic_cast<TimeEditorBaseItem*>(key.parentItem());
}

QString rowName(const TimeEditorBaseItem& row)
{
    const auto* const curve = dynamic_cast<const TimeEditorCurveItem*>(&row);
    const QString name = row.data(kRowName).toString();
    return name.isEmpty() && curve ? curve->text() : name;
}

TimeEditorKeyframeItem* walkedKey(
    const TimeEditorLayoutContainer& rows, TimeEditorKeyframeItem* from, int key)
{
    if (!rowOf(*from)) {
        return from;
    }
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: return keyInRow(from, key);
    case Qt::Key_Down: return keyBeyond(rowsOf(rows), from);
    case Qt::Key_Up: {
        std::vector<TimeEditorBaseItem*> upwards = rowsOf(rows);
        std::reverse(upwards.begin(), upwards.end());
        return keyBeyond(upwards, from);
    }
    default: return from;
    }
}

TimeEditorKeyframeItem* firstWalkedKey(
    const TimeEditorLayoutContainer& rows, const QRectF& visible, int frame)
{
    for (const TimeEditorBaseItem* const row : rowsOf(rows)) {
        TimeEditorKeyframeItem* const key = nearestKey(*row, frame);
        if (key && row->scenePos().y() + row->rect().bottom() > visible.top()) {
            return key;
        }
    }
    return nullptr;
}

} // namespace ui
