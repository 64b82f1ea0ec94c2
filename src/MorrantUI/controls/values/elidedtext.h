// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QEvent;
class QFont;
class QWidget;

/// Texts of widgets that may be too narrow for them.
namespace ui {

inline constexpr int kLeastCharacters = 3; ///< of average width, for a text that does not fit

/// The least width, in logical pixels, in which QFontMetrics::elidedText() leaves a text as it is:
/// QFontMetrics::horizontalAdvance() rounds to the nearest and is too small for half of them.
int wholeWidth(const QFont& font, const QString& text);

/// Answers a widget's request for a tool tip with its whole text if less of it is shown and the
/// widget has no tool tip of its own.
/// @return whether the event was such a request and has been dealt with
bool answerWithWholeText(
    QWidget& widget, QEvent* event, const QString& whole, const QString& shown);

} // namespace ui
