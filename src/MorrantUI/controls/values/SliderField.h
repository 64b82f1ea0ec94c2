// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/slidermath.h>
#include <MorrantUI/morrantui_export.h>

#include <QWidget>

class NumericField;
class PendingValue;
class SliderTrack;

namespace ui {

inline constexpr int kMaxSliderDecimals = 3; ///< as many as a number field shows

} // namespace ui

/// A slider with a number field beside it, for one value. The slider spans the soft range, the
/// range that is useful; the field takes any number of the hard range.
///
/// A press beside the handle takes it there. Dragging follows the pointer, with Control a tenth
/// and with Shift ten times as fast. The arrow keys step (Control a tenth, Shift ten times), Page
/// Up and Page Down by ten steps, Home and End go to the ends of the soft range; a double click on
/// the slider and Backspace return to the default. The groove is filled from 0 when the soft range
/// spans it, else from its lower end; right to left mirrors slider and keys.
class MORRANT_UI_EXPORT SliderField : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double minimum READ minimum WRITE setMinimum)
    Q_PROPERTY(double maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(double softMinimum READ softMinimum WRITE setSoftMinimum)
    Q_PROPERTY(double softMaximum READ softMaximum WRITE setSoftMaximum)
    Q_PROPERTY(double step READ step WRITE setStep)
    Q_PROPERTY(int decimals READ decimals WRITE setDecimals)
    Q_PROPERTY(double defaultValue READ defaultValue WRITE setDefaultValue)
    Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed USER true)

public:
    /// From 0 to 1 in steps of 0.01, with two decimals.
    explicit SliderField(QWidget* parent = nullptr);
    ~SliderField() override;

    double value() const;
    /// Limits to the hard range and rounds to the decimals; only changed() follows. NaN is ignored.
    /// A text that is being typed in the field stays; unless it is committed the field shows the
    /// value afterwards.
    void setValue(double value);

    /// The hard range, which the soft range, the value and the default are kept in. Limits that
    /// are not finite or in the wrong order are ignored. The soft range becomes the same; set it
    /// afterwards.
    void setRange(double minimum, double maximum);
    double minimum() const { return m_setup.minimum; }
    double maximum() const { return m_setup.maximum; }
    /// setRange() with the other end as it is, or the same where that would be beyond it.
    void setMinimum(double minimum);
    void setMaximum(double maximum); ///< see setMinimum()

    /// What the slider spans, cut to the hard range. Limits that are not finite, in the wrong order
    /// or wholly outside are ignored.
    void setSoftRange(double minimum, double maximum);
    double softMinimum() const { return m_setup.softMinimum; }
    double softMaximum() const { return m_setup.softMaximum; }
    /// Likewise with setSoftRange().
    void setSoftMinimum(double minimum);
    void setSoftMaximum(double maximum); ///< see setSoftMinimum()

    /// The step of keys and of the field's scrubbing, and what dragged values are multiples of (a
    /// tenth of it with Control); the ends of the soft range can always be reached. Not finite, 0
    /// or less is ignored.
    void setStep(double step);
    double step() const { return m_setup.step; }

    /// Decimals that values are rounded to, 0 to 3; others are limited. 0 makes it an integer
    /// field.
    void setDecimals(int decimals);
    int decimals() const { return m_setup.decimals; }

    /// What a double click and Backspace return to; 0 or what is nearest to it unless set. NaN is
    /// ignored.
    void setDefaultValue(double value);
    double defaultValue() const;

    bool isDragging() const;

    /// The field, for its tool tip or accessible texts. Owned by the control, which reports for it.
    NumericField* field() const { return m_field; }

Q_SIGNALS:
    /// The user has changed the value, with the slider or in the field: false at every step of a
    /// drag, true once when a change is complete.
    /// A slot that takes a number is connected to this without a complaint, and gets 0 or 1: it
    /// wants edited().
    void valueChanged(bool committed);
    /// The same with the value.
    void edited(double value, bool committed);
    /// The value is another, by the user or by being set.
    void changed();
    /// Around a drag of the slider that changes something, and of the field.
    void dragStateChanged(bool dragging);

protected:
    void changeEvent(QEvent* event) override;

private:
    void sizeField();
    void takeFromTrack(bool committed);
    void takeFromField(bool committed);
    void takeDragState(bool dragging);
    void applySetup();
    void commit();
    void showValue(double value);
    double admitted(double value) const;
    bool tellChange();

    SliderTrack* m_track; ///< holds the value
    NumericField* m_field;
    PendingValue* m_shown; ///< what the field shows of the value
    ui::SliderSetup m_setup;
    double m_default = 0.0; ///< as it was set, without limits
    bool m_fieldDragging = false;
    double m_told = 0.0;      ///< the value that changed() told of last
    double m_committed = 0.0; ///< the value when it was last complete
};
