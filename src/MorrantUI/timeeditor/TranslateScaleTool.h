// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/TransformTool.h>

#include <QPointer>

class TimeEditorView;

/// The transform tool of the time editor: it lies over the selected keys, moves them by whole
/// frames and scales them in time. The view makes, shows and sizes it.
class MORRANT_UI_EXPORT TranslateScaleTool : public TransformTool
{
    Q_OBJECT

public:
    /// @param view whose keys are transformed; it may die before the tool
    TranslateScaleTool(TimeEditorView* view, QObject* parent);

protected:
    double horizontalScale() const override;
    QRectF selectionRect() const override;
    void startScaling(QPoint position, bool right) override;
    void scaleTo(QPoint position) override;
    void cancelScaling() override;
    double moveSelection(double distance) override;

private:
    QPointer<TimeEditorView> m_view;
};
