#pragma once

#include <QString>

class QEvent;
class QWidget;

/// Texts of widgets that may be too narrow for them.
namespace ui {

/// Answers a widget's request for a tool tip with its whole text if less of it is shown and the
/// widget has no tool tip of its own.
/// @return whether the event was such a request and has been dealt with
bool answerWithWholeText(
    QWidget& widget, QEvent* event, const QString& whole, const QString& shown);

} // namespace ui
