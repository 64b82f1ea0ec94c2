// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QList>
#include <QObject>
#include <QPointer>

#include <array>
#include <memory>

class PlaybackClock;
class QAction;

namespace ui {
class ClockLink;
} // namespace ui

/// What a user does with a PlaybackClock, as actions with icons and keys: for a menu, a
/// TransportBar and a window's shortcuts. Wants a theme before it, for the icons.
///
/// The keys work where the host adds the actions (QMenu::addActions(), QWidget::addActions()), in
/// Qt's default context, which is the window. What has the focus and a key of its own has it first:
/// fields, and ruler, slider, keys and curves where it moves something there. A host may give them
/// others, and is the one to enable them. Each tool tip is the action's text with its first key,
/// whatever these are.
class MORRANT_UI_EXPORT TransportActions : public QObject
{
    Q_OBJECT

public:
    enum Command
    {
        FirstFrame,  ///< of all frames; Home
        StepBack,    ///< a frame, looping; Left
        Play,        ///< or pauses, and says which; Space
        StepForward, ///< Right
        LastFrame,   ///< End
        Loop,        ///< checkable, by setChecked() too; Shift+L
    };
    Q_ENUM(Command)

    explicit TransportActions(QObject* parent = nullptr);
    ~TransportActions() override;

    /// What the actions act on, and show the state of. Not owned; null and its death leave actions
    /// that do nothing.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// Null for what is no command. The actions are this object's.
    QAction* action(Command command) const;
    /// In the order of the commands.
    QList<QAction*> actions() const;

private:
    void run(Command command);
    void showState();

    QPointer<PlaybackClock> m_clock;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    std::array<QAction*, Loop + 1> m_actions{};
};
