// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/FocusFrame.h>

/// A focus frame whose line can be animated away from its own colour and back.
class FlashFrame : public morrant::FocusFrame
{
    Q_OBJECT
    Q_PROPERTY(QColor currentColor READ currentColor WRITE setCurrentColor DESIGNABLE false)

public:
    FlashFrame(const QColor& lineColor, QWidget* parent);
    ~FlashFrame() override;

    /// What the line is drawn in; lineColor() at rest.
    QColor currentColor() const { return m_currentColor; }
    void setCurrentColor(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_currentColor;
};
