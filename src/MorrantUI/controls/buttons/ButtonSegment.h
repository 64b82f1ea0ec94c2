// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/buttons/GroupButton.h>

/// A key that moves within a row of segments.
enum class SegmentStep
{
    Previous,
    Next,
    First,
    Last,
};

/// One segment of a SegmentedButton. It leaves to the group where the arrow keys lead.
class ButtonSegment : public GroupButton
{
    Q_OBJECT

public:
    ButtonSegment(const QString& text, const QString& iconName, QWidget* parent);
    ~ButtonSegment() override;

Q_SIGNALS:
    void stepped(SegmentStep step);
    void availabilityChanged();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
