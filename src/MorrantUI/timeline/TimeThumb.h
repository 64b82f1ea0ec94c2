// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QGraphicsWidget>
#include <QPainterPath>
#include <QRectF>

/// The tab on the time ruler that marks the current frame: 14 by 9 pixels at any zoom, its tip
/// pointing down. It moves by whole frames along x, and keeps its y.
///
/// Whoever drags it, by the mouse or by setPos(), makes it report; a time from outside never does,
/// so that reports do not echo.
class MORRANT_UI_EXPORT TimeThumb : public QGraphicsWidget
{
    Q_OBJECT

public:
    /// @param flag the host's: kept, and looked at by nothing here
    explicit TimeThumb(bool flag = false);
    ~TimeThumb() override;

    bool flag() const { return m_flag; }

    int getCurrentFrame() const { return m_frame; }
    /// Moves the thumb without a report.
    void setCurrentFrame(int frame);
    /// Moves the thumb as a drag does: timeChangedSignal() follows if it was at another frame. The
    /// thumb is there by then, and a slot may delete it.
    void moveTo(int frame);

    /// Shapes the thumb for a zoom, in pixels a scene unit; as painting does, which may be too late
    /// where the thumb is out of sight. Scales that are 0 or not finite are ignored.
    void fitTo(double scaleX, double scaleY);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    /// The shape's bounds with a margin all around, in scene units.
    QRectF boundingRect() const override;
    /// The outline as last painted; empty before.
    QPainterPath shape() const override;

public Q_SLOTS:
    /// The time has changed elsewhere: moves to the nearest frame without a report. A time that is
    /// not finite is ignored.
    void externalTimeChangeSlot(double time);

Q_SIGNALS:
    /// The thumb was moved to another frame; once for each step, however many frames it is wide.
    void timeChangedSignal(int frame);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    bool m_flag;
    int m_boundsMargin;
    QRectF m_shapeBounds;
    QPainterPath m_path;
    int m_frame = 0;
};
