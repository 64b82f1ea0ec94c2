// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TransportActions.h"

#include "MorrantUI/timeline/clocklinks.h"
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QAction>
#include <QKeySequence>

namespace {

void nameKey(QAction& action)
{
    const QString text = ui::plainMenuText(action.text());
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    action.setToolTip(key.isEmpty() ? text : TransportActions::tr("%1 (%2)").arg(text, key));
}

} // namespace

TransportActions::TransportActions(QObject* parent)
    : QObject(parent)
{
    struct Look
    {
        QString text;
        QString icon;
        QKeySequence key;
    };
    const Look looks[] = {
        {tr("&First Frame"), QStringLiteral("toStart"), Qt::Key_Home},
        {tr("Step &Back"), QStringLiteral("stepBack"), Qt::Key_Left},
        {tr("&Play"), QStringLiteral("play"), Qt::Key_Space},
        {tr("Step Fo&rward"), QStringLiteral("stepForward"), Qt::Key_Right},
        {tr("&Last Frame"), QStringLiteral("toEnd"), Qt::Key_End},
        {tr("L&oop"), QStringLiteral("loop"), Qt::SHIFT | Qt::Key_L},
    };
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        const auto& [text, icon, key] = looks[i];
        auto* const action = new QAction(this);
        m_actions[i] = action;
        connect(action, &QAction::changed, this, [action] { nameKey(*action); });
        action->setText(text);
        action->setIcon(ui::getCachedIcon(QStringLiteral("icons:%1.png").arg(icon)));
        action->setShortcut(key);
        const auto signal = i == Loop ? &QAction::toggled : &QAction::triggered;
        connect(action, signal, this, [this, i] { run(static_cast<Command>(i)); });
    }
    m_actions[Loop]->setCheckable(true);
    showState();
}

TransportActions::~TransportActions() = default;

void TransportActions::setClock(PlaybackClock* clock)
{
    using Clock = PlaybackClock;
    m_clockLink.reset();
    m_clock = clock;
    if (clock) {
        m_clockLink.reset(new ui::ClockLink{
            connect(clock, &Clock::playingChanged, this, &TransportActions::showState),
            connect(clock, &Clock::loopingChanged, this, &TransportActions::showState),
            connect(clock, &QObject::destroyed, this, &TransportActions::showState),
        });
    }
    showState();
}

PlaybackClock* TransportActions::clock() const
{
    return m_clock;
}

QAction* TransportActions::action(Command command) const
{
    const auto place = static_cast<std::size_t>(command);
    return place < m_actions.size() ? m_actions[place] : nullptr;
}

QList<QAction*> TransportActions::actions() const
{
    return {m_actions.begin(), m_actions.end()};
}

void TransportActions::run(Command command)
{
    if (!m_clock) {
        showState(); // of a loop that was switched
        return;
    }
    switch (command) {
    case FirstFrame: m_clock->seek(m_clock->frameRange().first); break;
    case StepBack: m_clock->step(-1); break;
    case Play: m_clock->toggle(); break;
    case StepForward: m_clock->step(1); break;
    case LastFrame: m_clock->seek(m_clock->frameRange().second); break;
    case Loop: m_clock->setLooping(m_actions[Loop]->isChecked()); break;
    }
}

void TransportActions::showState()
{
    const bool plays = m_clock && m_clock->isPlaying();
    m_actions[Play]->setText(plays ? tr("&Pause") : tr("&Play"));
    m_actions[Play]->setIcon(ui::getCachedIcon(
        plays ? QStringLiteral("icons:pause.png") : QStringLiteral("icons:play.png")));
    m_actions[Loop]->setChecked(m_clock && m_clock->isLooping());
}
