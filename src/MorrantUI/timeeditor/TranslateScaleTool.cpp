// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/TranslateScaleTool.h"

#include <MorrantUI/timeeditor/TimeEditorView.h>

TranslateScaleTool::TranslateScaleTool(TimeEditorView* view, QObject* parent)
    : TransformTool(parent)
    , m_view(view)
{}

double TranslateScaleTool::horizontalScale() const
{
    return m_view ? m_view->transform().m11() : 1.0;
}

QRectF TranslateScaleTool::selectionRect() const
{
    return m_view ? m_view->getTranslateToolRect() : QRectF();
}

void TranslateScaleTool::startScaling(QPoint position, bool right)
{
    if (m_view) {
        m_view->setupKeyScaling(position, right);
    }
}

void TranslateScaleTool::scaleTo(QPoint position)
{
    if (m_view) {
        m_view->scaleKeys(position);
    }
}

void TranslateScaleTool::cancelScaling()
{
    if (m_view) {
        m_view->restoreEdit();
    }
}

double TranslateScaleTool::moveSelection(double distance)
{
    return m_view ? m_view->moveSelectedKeys(distance) : 0.0;
}
