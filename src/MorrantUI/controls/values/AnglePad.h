// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/ValueControl.h>
#include <MorrantUI/controls/values/padmath.h>
#include <MorrantUI/morrantui_export.h>

namespace ui {

// Not in the class: constants of an exported class are not in a Windows library of mingw's.
inline constexpr double kDialLimit = 3'600'000.0; ///< degrees; ten thousand turns
inline constexpr double kDialSnap = 15.0;         ///< degrees

} // namespace ui

/// A dial for an angle in degrees: 0 points up, clockwise is greater. Dragging turns the needle by
/// as much as the pointer turns round the centre, whole turns included, wherever the press was; a
/// click alone changes nothing. Shift keeps to multiples of 15 degrees, Control turns by a tenth.
///
/// Up and Right step forward and Down and Left back, by a degree (Control a tenth, Shift 15); Page
/// Up and Page Down by a quarter turn, Home goes to 0. A double click and Backspace return to the
/// default. The wheel does nothing, so that the dial does not change while a panel scrolls.
class MORRANT_UI_EXPORT AnglePad : public ValueControl
{
    Q_OBJECT
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double defaultValue READ defaultValue WRITE setDefaultValue)
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed USER true)

public:
    explicit AnglePad(QWidget* parent = nullptr);
    ~AnglePad() override;

    /// Degrees, whole turns included.
    double value() const { return current().x; }
    /// Limits to the range; only changed() follows. NaN is ignored.
    void setValue(double degrees);

    /// The least and the greatest angle, `ui::kDialLimit` to either side unless set. Limits that
    /// are not finite or in the wrong order are ignored, wider ones are cut.
    void setRange(double minimum, double maximum);
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }
    /// setRange() with the other end as it is, or the same where that would be beyond it.
    void setMinimum(double minimum);
    void setMaximum(double maximum); ///< see setMinimum()

    /// What a double click and Backspace return to, 0 unless set. NaN is ignored.
    void setDefaultValue(double degrees);
    double defaultValue() const { return limited({m_default, 0.0}).x; }

    /// Commits an angle as the user would, with the signal; ends a drag. For assistive tools.
    void enterValue(double degrees);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// What valueChanged() tells, with the value.
    void edited(double degrees, bool committed);

protected:
    Value limited(const Value& value) const override;
    Value resetValue() const override;
    void pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    void dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    std::optional<Value> keyTarget(int key, Qt::KeyboardModifiers modifiers) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF fromCenter(const QPointF& point) const;

    double m_minimum = -ui::kDialLimit;
    double m_maximum = ui::kDialLimit;
    double m_default = 0.0;
    ui::TurnTracker m_tracker;
    double m_turned = 0.0;    ///< degrees the drag has come to, before snapping and limits
    bool m_hasTurned = false; ///< a press alone snaps nothing
};
