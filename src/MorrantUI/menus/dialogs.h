// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>
#include <QStringList>
#include <QUrl>

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

/// Asks for the web address of a spreadsheet: http or https, with a host. Below the field stands
/// what is wrong with it, and OK is offered only for an address. Space around it does not count.
/// @param initial shown selected; may be empty
/// @return none when the user cancels or `parent` is deleted meanwhile
MORRANT_UI_EXPORT std::optional<QUrl> getSpreadsheetLink(
    const QString& title,
    const QString& label,
    const QUrl& initial = QUrl(),
    QWidget* parent = nullptr);

/// Asks for the name to save a preset under. The existing names stand in a list below the field;
/// one that is chosen there goes into it, a double click or Return takes it. Names that are no file
/// names everywhere are refused in words. An existing name, in whatever case, is taken only after
/// the user has agreed to replace that preset, and answered as it is spelled there.
/// @param existing shown as given, empty ones left out
/// @return without space around it; none when the user cancels or `parent` is deleted meanwhile
MORRANT_UI_EXPORT std::optional<QString> getPresetName(
    const QString& title,
    const QStringList& existing,
    const QString& initial = QString(),
    QWidget* parent = nullptr);

} // namespace ui
