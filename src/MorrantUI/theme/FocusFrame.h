// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QColor>

namespace morrant {

/// A Widget with a line of one logical pixel along its top edge, in a colour that its owner
/// chooses.
class MORRANT_UI_EXPORT FocusFrame : public Widget
{
    Q_OBJECT

public:
    explicit FocusFrame(const QColor& lineColor, QWidget* parent = nullptr);
    ~FocusFrame() override;

    QColor lineColor() const { return m_lineColor; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_lineColor;
};

} // namespace morrant
