// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/scene/AccessibleView.h"

class TimeEditorCurveItem;
class TimeEditorKeyframeItem;

namespace ui {

/// A row of the dope sheet as assistive tools see it: a list of keys.
class AccessibleKeyRow : public AccessibleSceneItem
{
public:
    explicit AccessibleKeyRow(TimeEditorCurveItem* row);

protected:
    QString name() const override;
    QObjectList items() const override;

private:
    TimeEditorCurveItem* m_row;
};

/// A key in its row.
class AccessibleKey : public AccessibleSceneItem
{
public:
    explicit AccessibleKey(TimeEditorKeyframeItem* key);

protected:
    QString name() const override;
    QObject* list() const override;

private:
    TimeEditorKeyframeItem* m_key;
};

} // namespace ui
