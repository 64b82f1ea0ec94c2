// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

#include <optional>

class NumericField;

/// Shows values of the host's, or of a control around it, in a number field, but never in place of
/// what is being typed: then the last one waits, and shows once the typing has come to nothing.
class MORRANT_UI_EXPORT PendingValue : public QObject
{
    Q_OBJECT

public:
    /// @param field must not be null; owns this object
    explicit PendingValue(NumericField* field);
    ~PendingValue() override;

    /// @return false when the value has to wait
    bool show(double value);
    /// Drops a value that waits, since the user's came later.
    void forget() { m_waiting.reset(); }

Q_SIGNALS:
    /// The user has left the field, or what was typed is gone; a value that waited is shown.
    void settled();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void settleSoon();
    void settle();
    bool isTyped() const;

    NumericField& m_field;
    std::optional<double> m_waiting;
};
