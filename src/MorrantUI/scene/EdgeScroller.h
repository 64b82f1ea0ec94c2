// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractAnimation>
#include <QPointF>

class QAbstractScrollArea;

/// Scrolls an area while something is dragged at its edge or beyond, by time and not by events, and
/// sends the viewport a movement after each step, so that the drag follows. Stops where there is
/// nothing more to scroll.
class EdgeScroller : public QAbstractAnimation
{
    Q_OBJECT

public:
    explicit EdgeScroller(QAbstractScrollArea* area);

    /// The drag is there; starts or stops by it.
    /// @param pointer in the viewport @param buttons for the movements that are sent
    void follow(QPointF pointer, Qt::MouseButtons buttons, Qt::Orientations directions);

    int duration() const override { return -1; }

protected:
    void updateCurrentTime(int milliseconds) override;
    void updateState(State now, State before) override;

private:
    QPointF speed() const;
    bool scrollBy(QPointF distance);

    QAbstractScrollArea* m_area; ///< the parent
    QPointF m_pointer;
    Qt::MouseButtons m_buttons;
    Qt::Orientations m_directions;
    QPointF m_rest; ///< of a pixel, not yet scrolled
    int m_last = 0; ///< milliseconds since the start
};
