// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/AccessibleKeys.h"

#include "MorrantUI/scene/framemath.h"
#include <MorrantUI/timeeditor/TimeEditorCurveItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>
#include <MorrantUI/timeeditor/TimeEditorView.h>

namespace ui {

AccessibleKeyRow::AccessibleKeyRow(TimeEditorCurveItem* row)
    : AccessibleSceneItem(row, row, QAccessible::List)
    , m_row(row)
{}

QString AccessibleKeyRow::name() const
{
    return m_row->text().isEmpty() ? TimeEditorView::tr("Keys") : m_row->text();
}

QObjectList AccessibleKeyRow::items() const
{
    return objectsOf(m_row->keyframes());
}

AccessibleKey::AccessibleKey(TimeEditorKeyframeItem* key)
    : AccessibleSceneItem(key, key, QAccessible::ListItem)
    , m_key(key)
{}

QObject* AccessibleKey::list() const
{
    return m_key->curve();
}

QString AccessibleKey::name() const
{
    const QObjectList all = m_key->curve() ? objectsOf(m_key->curve()->keyframes()) : QObjectList();
    return TimeEditorView::tr("Keyframe %1: frame %2")
        .arg(
            QString::number(all.indexOf(m_key) + 1),
            QString::number(nearestFrame(m_key->scenePos().x())));
}

} // namespace ui
