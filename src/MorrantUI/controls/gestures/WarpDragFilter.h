// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/pointermath.h>

#include <QRect>

/// A drag by mouse moves, with the pointer hidden and warped away from the screen's edges.
class WarpDragFilter final : public MouseWrapDragFilter
{
    Q_OBJECT

public:
    explicit WarpDragFilter(QWidget* target);
    ~WarpDragFilter() override;

protected:
    void dragBegins(const QPointF& position) override;
    void pointerMoved(const QPointF& position) override;
    void dragEnds() override;

private:
    void warpFromEdges(QPointF position);

    ui::WarpedPath m_path;
    QRect m_rect; ///< logical pixels; empty while the pointer is left alone
};
