// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/Widget.h>

namespace studio {

/// The ground of an editor over time, which lies wide and low below the viewport. Its title is its
/// accessible name.
class EditorPane : public Widget
{
    Q_OBJECT

public:
    static constexpr QSize kUsualSize{900, 260}; ///< logical pixels

    explicit EditorPane(const QString& title, QWidget* parent = nullptr);

    QSize sizeHint() const override { return kUsualSize; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace studio
