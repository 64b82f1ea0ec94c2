// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

class QWidget;

namespace studio {

/// What becomes of changes when their document is left.
enum class Leaving
{
    Save,
    Discard,
    Stay, ///< the document is not left
};

/// Asks what is to become of changes. Whoever dismisses the question stays.
Leaving askToLeave(const QString& question, const QString& text, QWidget* parent);

/// Says which documents have changes that are not saved.
QString unsavedText(const QStringList& titles);

/// What to do with a file that is not what it was when it was read.
enum class Overwriting
{
    Overwrite,
    SaveAs, ///< elsewhere
    Cancel,
};

/// Asks about a file that others have changed, or taken away.
Overwriting askToOverwrite(const QString& question, const QString& text, QWidget* parent);

} // namespace studio
