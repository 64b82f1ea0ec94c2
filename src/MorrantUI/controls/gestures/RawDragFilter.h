// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/NativeMouseTracker.h>

#include <QRect>

#include <memory>
#include <optional>

namespace morrant::native {
class PointerConfinement;
}

/// A drag by raw mouse input, with the pointer hidden, confined to the window and wrapped in it.
class RawDragFilter final : public MouseWrapDragFilter
{
    Q_OBJECT

public:
    explicit RawDragFilter(QWidget* target);
    ~RawDragFilter() override;

protected:
    void dragBegins(const QPointF& position) override;
    void pointerMoved(const QPointF& position) override;
    void dragEnds() override;

private:
    void confine();
    void addMotion(QPointF delta, bool absolute);
    void wrap(QPointF delta);

    NativeMouseTracker m_tracker;
    QRect m_rect; ///< physical pixels, up to the last column and row; empty in a very small window

    std::unique_ptr<morrant::native::PointerConfinement> m_confinement;
    std::optional<QPoint> m_home; ///< where the pointer was pressed, in physical pixels
    QPointF m_pixels;             ///< physical, moved since
    double m_ratio = 1.0;         ///< physical pixels in a logical one
    bool m_holdsPointer = false;
    bool m_byMoves = false;   ///< raw input is not to be had
    bool m_hasFailed = false; ///< in this drag the log has the pointer's refusal already
};
