// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <Qt>

#include <optional>

/// The keys of a menu and the search that typing feeds, on plain numbers and texts.
namespace ui::menus {

enum class MenuKey
{
    Trigger,  ///< Return and Enter
    Next,     ///< Down
    Previous, ///< Up
    Search,   ///< carries text
    Other     ///< left to the base class
};

/// What a key does in a menu.
/// @param text what the key types; a dead key or an input method may give several characters
MenuKey menuKey(int key, Qt::KeyboardModifiers modifiers, const QString& text);

/// Whether a text belongs to a search: not empty, without control characters, and not a command:
/// nothing with Meta or with just one of Control and Alt held. Both together are AltGr.
bool searches(Qt::KeyboardModifiers modifiers, const QString& text);

/// The first accepted row on a way round all of them that begins one step beyond `start` and ends
/// with `start` itself.
/// @param start may be -1, for none
/// @param step 1 or -1
/// @param accepts asked with an index
/// @return -1 if no row is accepted
template <typename Accepts>
int firstRow(int count, int start, int step, Accepts&& accepts)
{
    for (int walked = 1; walked <= count; ++walked) {
        const int row = ((start + walked * step) % count + count) % count;
        if (accepts(row)) {
            return row;
        }
    }
    return -1;
}

/// A row's text as the user sees it: mnemonic marks and the shortcut behind a tab left out.
QString displayedText(const QString& text);

/// Whether a row's text begins with what was typed, as it is written or as it is displayed. A
/// letter with its accents behind it is the same as one that has them in it.
/// @param typed in lower case; upper and lower case in `text` are the same
bool isFoundBy(const QString& text, const QString& typed);

/// Walks through the buttons of a row, which is -1 itself.
/// @param step 1 or -1
/// @param least where the way begins: 0 in a row that cannot be chosen itself
/// @return nothing when the step leads out of the row
std::optional<int> steppedSubAction(int current, int count, int step, int least = -1);

} // namespace ui::menus
