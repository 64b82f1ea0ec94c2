// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>

class QEvent;
class QObject;

/// Events, and what their keys are called.
namespace ui {

/// Sees an event before its receiver does; true keeps the event from it.
using EventFilter = std::function<bool(QObject* watched, QEvent* event)>;

/// Filters the events of `target`, which may be the application, through a callback.
///
/// The filter ends with its owner or, when that is null, with the target, or when it is deleted.
/// The callback may delete owner, filter or target; an event whose receiver it deletes is kept.
/// @return the filter object, owned by `owner`; null without a target or a callback
MORRANT_UI_EXPORT QObject* installEventFilter(
    QObject* target, EventFilter callback, QObject* owner);

/// Lets pending events run, so that what listens to a signal through the queue has its turn.
/// Objects may die meanwhile: guard what is used afterwards.
MORRANT_UI_EXPORT void processEvents();

/// The keys that redo: the platform's own, and those that people bring along from others (Ctrl+Y,
/// Ctrl+Shift+Z). Each is there once, so that an action can have them all.
MORRANT_UI_EXPORT QList<QKeySequence> redoKeys();

/// What the Control key is called in texts for the user.
MORRANT_UI_EXPORT QString ctrlKeyName();

} // namespace ui
