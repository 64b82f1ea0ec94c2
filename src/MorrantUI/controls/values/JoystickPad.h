// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/ValueControl.h>
#include <MorrantUI/controls/values/padmath.h>
#include <MorrantUI/morrantui_export.h>

#include <QRectF>

class QPainter;
class QVariantAnimation;

namespace ui::style {
struct WidgetState;
}

/// Two numbers as a point in a square: x grows to the right, y upwards. A press beside the handle
/// takes it there, dragging follows the pointer, with Control a tenth as fast. Shift keeps to the
/// axis of which the drag has gone further.
///
/// The arrow keys step (Control a tenth, Shift ten times), Home and End go to the limits of x, Page
/// Down and Page Up to those of y; a double click and Backspace return to the default. With
/// spring-back the handle returns there whenever it is let go, by the pointer or by a key.
class MORRANT_UI_EXPORT JoystickPad : public ValueControl
{
    Q_OBJECT
    Q_PROPERTY(QRectF range READ range WRITE setRange)
    Q_PROPERTY(QPointF defaultPoint READ defaultPoint WRITE setDefaultPoint)
    Q_PROPERTY(double step READ step WRITE setStep)
    Q_PROPERTY(bool springBack READ springBack WRITE setSpringBack)
    Q_PROPERTY(bool yDownwards READ isYDownwards WRITE setYDownwards)
    Q_PROPERTY(QPointF point READ point WRITE setPoint NOTIFY changed USER true)

public:
    /// From -1 to 1 on both axes, in steps of 0.01.
    explicit JoystickPad(QWidget* parent = nullptr);
    ~JoystickPad() override;

    num2<double> value() const { return current(); }
    /// Limits each number to its range; only changed() follows. A pair with a NaN is ignored.
    void setValue(const num2<double>& value);
    /// The same as a point of the plane in which y grows upwards.
    QPointF point() const { return {value().x, value().y}; }
    void setPoint(const QPointF& point) { setValue({point.x(), point.y()}); }

    /// The least and the greatest of each number. Limits that are not finite or where one is not
    /// below the other are ignored.
    void setRange(const num2<double>& minimum, const num2<double>& maximum);
    num2<double> minimum() const { return m_minimum; }
    num2<double> maximum() const { return m_maximum; }
    /// The same as a rectangle from the least to the greatest.
    void setRange(const QRectF& range);
    QRectF range() const;

    /// The step of the arrow keys. Not finite, 0 or less is ignored.
    void setStep(double step);
    double step() const { return m_step; }

    /// What a double click, Backspace and spring-back return to: 0, 0 or what is nearest to it
    /// unless set. A pair with a NaN is ignored.
    void setDefaultValue(const num2<double>& value);
    num2<double> defaultValue() const { return limited(m_default); }
    /// The same as a point.
    void setDefaultPoint(const QPointF& point) { setDefaultValue({point.x(), point.y()}); }
    QPointF defaultPoint() const { return {defaultValue().x, defaultValue().y}; }

    /// Whether the handle returns to the default when it is let go; off by default. The return is
    /// the last step of the drag, so a drag from the default is never committed. The picture
    /// glides, the value is there at once.
    void setSpringBack(bool springBack);
    bool springBack() const { return m_springBack; }

    /// Whether y grows downwards, as on screen; off by default.
    void setYDownwards(bool downwards);
    bool isYDownwards() const { return m_yDownwards; }

    /// Commits a pair as the user would, with the signal; ends a drag. For assistive tools.
    void enterValue(const num2<double>& value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// What valueChanged() tells, with the value.
    void edited(const QPointF& point, bool committed);

protected:
    Value limited(const Value& value) const override;
    Value resetValue() const override;
    bool springsBack() const override { return m_springBack; }
    void pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    void dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    void letGo() override;
    std::optional<Value> keyTarget(int key, Qt::KeyboardModifiers modifiers) const override;
    void valueAssigned(const Value& before) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveHandle(Qt::KeyboardModifiers modifiers);
    void paintGround(QPainter& painter, const ui::style::WidgetState& state) const;
    void paintGrid(
        QPainter& painter, const QRectF& reach, const ui::style::WidgetState& state) const;
    void paintCross(
        QPainter& painter, const QPointF& handle, const ui::style::WidgetState& state) const;
    int handleSize() const;
    QRectF square() const;
    ui::PadArea area() const;

    num2<double> m_minimum{-1.0, -1.0};
    num2<double> m_maximum{1.0, 1.0};
    num2<double> m_default;
    double m_step = 0.01;
    bool m_springBack = false;
    bool m_yDownwards = false;
    num2<double> m_start;       ///< the value when the drag began
    QPointF m_origin;           ///< the handle then
    QPointF m_handle;           ///< where the drag has taken it, before axis lock and limits
    QPointF m_placed;           ///< where it was put last, after the axis lock
    QPointF m_pointer;          ///< the pointer at the last step
    QVariantAnimation* m_glide; ///< of the picture, back to the default
};
