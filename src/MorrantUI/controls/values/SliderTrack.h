// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/ValueControl.h>
#include <MorrantUI/controls/values/slidermath.h>

/// The slider of a SliderField. Keeps any value of the hard range, with the handle at the end for
/// those that the soft range does not have.
class SliderTrack : public ValueControl
{
    Q_OBJECT

public:
    explicit SliderTrack(QWidget* parent);

    void setUp(const ui::SliderSetup& setup);
    const ui::SliderSetup& setup() const { return m_setup; }

    double value() const { return current().x; }
    void setValue(double value) { assign({value, 0.0}); }
    /// As the user would, for assistive tools.
    void enterValue(double value);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    Value limited(const Value& value) const override;
    Value resetValue() const override { return {m_setup.resetValue, 0.0}; }
    void pressAt(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    void dragTo(const QPointF& point, Qt::KeyboardModifiers modifiers) override;
    std::optional<Value> keyTarget(int key, Qt::KeyboardModifiers modifiers) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    int handleSize() const;
    ui::SliderScale scale() const;
    void dragHandle(double step);

    ui::SliderSetup m_setup;
    double m_handle = 0.0;  ///< where the drag has taken the middle of the handle, without limits
    double m_pointer = 0.0; ///< x of the pointer at the last step
};
