// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <optional>

class NumericField;

/// Frame and value of a selected key, to be scrubbed and typed.
///
/// It changes no key: it tells what the user entered. A drag, and what is typed, is one step of a
/// history, with editStarted() before and editEnded() behind all of it; a step in one field ends
/// that in the other. A slot may delete the fields, of which nothing is told then.
class MORRANT_UI_EXPORT KeyFields : public Widget
{
    Q_OBJECT

public:
    explicit KeyFields(QWidget* parent = nullptr);
    ~KeyFields() override;

    /// Shows a key, and tells nobody: without a value only its frame, as of several at one frame,
    /// and without a frame only its value. A field without a number, or with one that is not
    /// finite, is disabled and empty; one that is being typed in stays as it is.
    void setKey(std::optional<double> frame, std::optional<double> value);
    /// Takes over what is being typed, and ends the step and the drag.
    void finishEditing();
    /// Ends the step, too, but what is typed outside of one is taken back: for a host that is about
    /// to show another key.
    void leaveKey();

    // The fields, for limits, units and steps: numbers with three decimals, and not to be deleted.
    NumericField& frame() const { return *m_frame; }
    NumericField& value() const { return *m_value; }

Q_SIGNALS:
    /// The user has begun to drag, to step by key, or has typed.
    void editStarted();
    /// A step: what is shown now.
    void frameEdited(double frame);
    void valueEdited(double value); ///< likewise
    /// @param changed false where the number is as before, after Escape too
    void editEnded(bool changed);

private:
    void watch(NumericField& field);
    void showIn(NumericField& field, double& shown, std::optional<double> number);
    void take(NumericField& field, double number, bool committed);
    void begin(NumericField& field);
    void commit(NumericField& field);
    void end();

    NumericField* m_frame;
    NumericField* m_value;
    double m_shownFrame = 0.0; ///< as the field has what the host gave
    double m_shownValue = 0.0;
    NumericField* m_edited = nullptr; ///< between editStarted() and editEnded()
    NumericField* m_dragged = nullptr;
    double m_before = 0.0; ///< as the step found that field
};
