// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QAbstractButton>

class QPropertyAnimation;

/// A switch with a sliding knob, and a text beside it if it has one. A QAbstractButton that is
/// checkable: toggled() for every change, clicked() for the user's.
///
/// The knob glides for as long as the style says in SH_Widget_Animation_Duration, not at all when
/// that is 0 or the switch is hidden. Space, Return and a click anywhere on it switch it; in a
/// dialog Return is left to the default button.
class MORRANT_UI_EXPORT ToggleSwitch : public QAbstractButton
{
    Q_OBJECT
    /// Where the knob is drawn: 0 off, 1 on, between while it glides.
    Q_PROPERTY(double knobPosition READ knobPosition WRITE setKnobPosition DESIGNABLE false)

public:
    explicit ToggleSwitch(QWidget* parent = nullptr);
    explicit ToggleSwitch(const QString& text, QWidget* parent = nullptr);
    ~ToggleSwitch() override;

    double knobPosition() const { return m_knobPosition; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void checkStateSet() override;
    void nextCheckState() override;

private:
    void setKnobPosition(double position);
    void moveKnob();

    double m_knobPosition = 0.0;
    QPropertyAnimation* m_glide;
};
