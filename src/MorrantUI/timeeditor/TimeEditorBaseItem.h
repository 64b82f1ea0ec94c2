// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QGraphicsLayoutItem>
#include <QGraphicsRectItem>
#include <QObject>
#include <QPropertyAnimation>

class ConnectionInstance;

/// The base of every item of the time editor and the graph editor: one colour with a lighter one
/// derived from it, animated changes of it, hovering, a switch that quiets position changes while
/// the host moves the item, and a place as a row in a graphics layout.
class MORRANT_UI_EXPORT TimeEditorBaseItem : public QObject,
                                             public QGraphicsLayoutItem,
                                             public QGraphicsRectItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem QGraphicsLayoutItem)
    Q_PROPERTY(QColor animatingColor READ animatingColor WRITE setAnimatingColor)

public:
    explicit TimeEditorBaseItem(QGraphicsItem* parent = nullptr);
    ~TimeEditorBaseItem() override;

    /// The base colour; the highlight colour becomes it lightened to 120 %. Repaints.
    void setColor(QColor color);
    virtual const QColor& getBaseColor() const { return m_baseColor; }
    virtual const QColor& getHighlightColor() const;
    /// The colour to paint with now: the base colour here, what subclasses choose there.
    virtual QColor getColor() const;

    /// Whether the pointer is over the item's bounding rectangle.
    bool isHovering() const { return m_hovering; }

    /// While false, subclasses pass over notifications of position changes.
    bool enableUpdates() const { return m_enableUpdates; }
    void setEnableUpdates(bool enable) { m_enableUpdates = enable; }

    /// Moves the item exactly where it is told, without rounding or other rules of its own.
    void forceMove(QPointF position);
    bool isForceMoving() const { return m_forceMoving; }

    /// Changes the base colour over 800 ms.
    void animateToColor(QColor target);
    /// Goes to a colour and back to the present base colour in 800 ms. One that is started over
    /// while it runs still ends on the colour that the first one started from.
    void animateFeedbackColor(QColor flash);
    QColor animatingColor() const { return m_animatingColor; }
    void setAnimatingColor(QColor color); ///< by the animation
    bool isAnimating() const;

    /// Subclasses compute their rectangle here, when the view's zoom has changed.
    virtual void updateRect() {}

    /// A connection being dragged is over the item, or has been let go over it.
    virtual void onConnectionEnter(ConnectionInstance* connection);
    virtual void onConnectionMove(ConnectionInstance* connection);  ///< over it
    virtual void onConnectionLeave(ConnectionInstance* connection); ///< no longer
    virtual void onConnectionDrop(ConnectionInstance* connection);  ///< let go over it

    // QGraphicsLayoutItem
    void setGeometry(const QRectF& rect) override;

protected:
    /// For the many small items that set their own flags: the base sets none but hovering.
    struct BareItem
    {};
    explicit TimeEditorBaseItem(BareItem bare);

    /// The colour has changed.
    virtual void onColorChange() {}

    QSizeF sizeHint(Qt::SizeHint which, const QSizeF& constraint = QSizeF()) const override;

    /// Tells the time editor's scene of the item's coming and going.
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

private:
    void enlist();
    void strike();
    QPropertyAnimation& colorAnimation();
    void animate(QColor end, const QEasingCurve& easing);

    bool m_hovering = false;
    bool m_enlisted = false; ///< the scene knows of the item
    QColor m_baseColor;
    mutable QColor m_highlightColor; ///< invalid until it is asked for
    bool m_enableUpdates = true;
    QColor m_animatingColor;
    QPropertyAnimation* m_colorAnimation = nullptr; ///< a child, made when first needed
    bool m_forceMoving = false;
    bool m_flashing = false; ///< the animation returns to m_restingColor
    QColor m_restingColor;
};
