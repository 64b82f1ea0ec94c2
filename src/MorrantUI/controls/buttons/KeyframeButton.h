// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/buttons/RowButton.h>
#include <MorrantUI/morrantui_export.h>

#include <QString>

/// The diamond beside an attribute that tells whether it is animated and has a key at the current
/// frame. A click reports clicked() and changes nothing: the host sets or removes the key and then
/// the state.
class MORRANT_UI_EXPORT KeyframeButton : public RowButton
{
    Q_OBJECT
    Q_PROPERTY(State state READ state WRITE setState NOTIFY stateChanged)

public:
    enum class State
    {
        None,       ///< the attribute is not animated: a dim outline
        Animated,   ///< it has keys, none of them at the current frame: an outline in the accent
        KeyAtFrame, ///< it has one at the current frame: filled with the accent
    };
    Q_ENUM(State)

    explicit KeyframeButton(QWidget* parent = nullptr);
    ~KeyframeButton() override;

    State state() const { return m_state; }
    /// Shows the state, and what a click does in the tool tip unless the host has set one of its
    /// own. To assistive tools it is a check box: on for a key at the frame, mixed while animated.
    void setState(State state);

Q_SIGNALS:
    /// The host has set another state.
    void stateChanged(KeyframeButton::State state);

protected:
    void paintMark(QPainter& painter) override;
    void changeEvent(QEvent* event) override;

private:
    void describeState();

    State m_state = State::None;
    QString m_ownToolTip; ///< the one that describeState() has set
};
