// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <optional>

class NumericField;

/// Shows values in a number field that is a part of a control, but never in place of what is being
/// typed: then the last one waits, and shows once the typing has come to nothing.
class PendingValue : public QObject
{
    Q_OBJECT

public:
    /// A child of the field.
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
