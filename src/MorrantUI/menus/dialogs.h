#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>

#include <optional>

class QWidget;

/// Questions to the user that wait for the answer, in modal dialogs with OK and Cancel.
namespace ui {

/// Asks for a line of text. OK is offered only while there is more than space in it.
/// @param initial selected, so that typing replaces it
/// @param parent over which the dialog is shown; null for the active window
/// @return the text as it was entered; none when the user cancels or `parent` is deleted meanwhile
MORRANT_UI_EXPORT std::optional<QString> getStringInput(
    const QString& title,
    const QString& label,
    const QString& initial = QString(),
    QWidget* parent = nullptr);

/// Asks for a whole number in a field that also computes. A number out of range is limited to it,
/// the initial one too; with limits that cross, the lower one counts.
/// @return none when the user cancels or `parent` is deleted meanwhile
MORRANT_UI_EXPORT std::optional<int> getIntegerInput(
    const QString& title,
    const QString& label,
    int initial,
    int minimum,
    int maximum,
    QWidget* parent = nullptr);

} // namespace ui
