// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/Widget.h>

#include <optional>

class NumericField;

namespace studio {

/// Frame and value of a selected key. It changes no document: it tells what the user entered.
class KeyFields : public Widget
{
    Q_OBJECT

public:
    explicit KeyFields(QWidget* parent = nullptr);

    /// Shows a key, or that there is none; without a value only its frame. Ignored while the user
    /// changes one.
    void setKey(std::optional<double> frame, std::optional<double> value);
    /// Takes over what is being typed.
    void finishEditing();

    NumericField& frame() const { return *m_frame; }
    NumericField& value() const { return *m_value; }

Q_SIGNALS:
    /// The user has begun to drag or to type.
    void editingStarted();
    /// @param committed true with the last one of a change
    void frameEdited(double frame, bool committed);
    void valueEdited(double value, bool committed);
    /// A drag is over.
    void dragEnded();

private:
    NumericField* m_frame;
    NumericField* m_value;
};

} // namespace studio
