// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>
#include <QStringList>

class QWidget;

/// What the user is asked before changes of a document would be lost. Whoever dismisses a question,
/// or whose `parent` is deleted meanwhile, has chosen what loses nothing. Null parent: the active
/// window.
namespace ui {

/// What becomes of changes when their document is left.
enum class Leaving
{
    Save,
    Discard,
    Stay, ///< the document is not left
};

/// Asks what is to become of changes, in a dialog that waits for the answer.
/// @param question its heading, such as "Close “Walk”?"
MORRANT_UI_EXPORT Leaving askToLeave(const QString& question, const QString& text, QWidget* parent);

/// A title as questions name it: one line, and not a long one.
MORRANT_UI_EXPORT QString shortTitle(const QString& title);

/// Says which documents have changes that are not saved, the first eight of them by name.
MORRANT_UI_EXPORT QString unsavedText(const QStringList& titles);

/// What to do with a file that is not what it was when it was read.
enum class Overwriting
{
    Overwrite,
    SaveAs, ///< elsewhere
    Cancel,
};

/// Asks about a file that others have changed, or taken away.
MORRANT_UI_EXPORT Overwriting
askToOverwrite(const QString& question, const QString& text, QWidget* parent);

} // namespace ui
