// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/values/NumericField.h>

class PendingValue;

namespace studio {

/// The viewport's zoom in percent.
class ZoomField : public NumericField
{
    Q_OBJECT

public:
    explicit ZoomField(QWidget* parent = nullptr);

    /// @param scale logical pixels a composition pixel; waits for what is being typed
    void setScale(double scale);

Q_SIGNALS:
    /// The user has entered a zoom, or scrubs it.
    void scaleEntered(double scale);

private:
    PendingValue* m_shown;
};

} // namespace studio
