// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <Core/num2.h>

#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <optional>

/// Base of the controls whose value is dragged in place: slider, angle pad, joystick pad. It owns
/// the gesture and the value, one number or two; the derived class maps points and keys to values.
///
/// A drag ends with the release of the left button, or as by one with any other of GestureDoors.
/// Escape ends it with the value it began with. A control deleted in mid-drag reports nothing more.
///
/// A double click and Backspace return to the default value. A key's step is committed at once.
class MORRANT_UI_EXPORT ValueControl : public QWidget
{
    Q_OBJECT

public:
    explicit ValueControl(QWidget* parent = nullptr);
    ~ValueControl() override;

    /// Whether the pointer, or a key of a control that springs back, holds the value.
    bool isDragging() const { return m_gesture.has_value(); }

    /// Ends a drag with the value reached, as a release does. Without a drag nothing happens.
    void endDrag();

    /// Ends a drag with the value it began with: a last valueChanged(false) where that is another.
    void cancelDrag();

Q_SIGNALS:
    /// The user has changed the value: false at every step of a drag, true once when it ends with
    /// another value than it began with, and for every step by key. Not when the value is set.
    /// A slot that takes a number is connected to this without a complaint, and gets 0 or 1: it
    /// wants edited().
    void valueChanged(bool committed);

    /// The value is another, by the user or by being set. Comes before the other signals.
    void changed();

    /// True before the first change of a drag, false after its end; a press that changes nothing
    /// is not reported.
    void dragStateChanged(bool dragging);

protected:
    using Value = num2<double>; ///< controls of one number leave y at 0

    const Value& current() const { return m_value; }

    /// Stores a value and emits changed() alone, if that. What is not a number is ignored, the rest
    /// is limited. May delete the control, in a slot: the last thing a setter does.
    void assign(const Value& value);

    /// A step of the drag. May delete the control, in a slot: the last thing a handler does.
    void dragValue(const Value& value);

    /// A change that is complete in itself. May delete the control, too.
    void commitValue(const Value& value);

    /// The value nearest to `value` that the control can have.
    virtual Value limited(const Value& value) const = 0;
    virtual Value resetValue() const = 0;

    /// The left button went down at a point of the widget.
    virtual void pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers) = 0;
    /// The pointer moved, or Shift or Control changed where it is.
    virtual void dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers) = 0;
    /// Where a key leads to; nothing for keys that the control has no use for.
    virtual std::optional<Value> keyTarget(int key, Qt::KeyboardModifiers modifiers) const = 0;
    /// Whether drags and key steps end at the reset value.
    virtual bool springsBack() const { return false; }
    /// The end of a drag, before a control that springs back does so.
    virtual void letGo() {}
    /// After a change from anywhere, before the signals; tells assistive tools about x.
    virtual void valueAssigned(const Value& before);

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    /// What lasts from the press to whichever end.
    struct Gesture
    {
        Value start;                ///< what cancelDrag() returns to
        QPointF point;              ///< where the pointer was last, in the widget
        std::optional<int> heldKey; ///< the key that began it, which is held instead of the button
    };

    void begin(std::optional<int> heldKey, const QPointF& point);
    void finish(const Value& value);
    void followModifiers(QKeyEvent* event, bool pressed);
    void stepByKey(int key, const Value& target);
    bool wantsKey(const QKeyEvent& event) const;

    Value m_value;
    std::optional<Gesture> m_gesture;
    GestureDoors m_doors;    ///< watched during a gesture
    bool m_reported = false; ///< the last state sent with dragStateChanged()
};
