// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QString>

#include <optional>

/// How typed words find a command, on plain texts.
namespace ui::menus {

/// Letters of a text, counted as QString does.
struct Letters
{
    qsizetype from;
    qsizetype count;

    bool operator==(const Letters&) const = default;
};

struct CommandMatch
{
    int rank;             ///< the less, the better the command fits what was typed
    QList<Letters> marks; ///< of the text that were typed, word by word
};

/// Whether all typed words stand somewhere in a command's text, in any order, and how well it fits:
/// the name before the menus that it is in, its beginning before those of its words, these before
/// their insides, and exactly that name before all. Case and accents do not count.
/// @param name where the command's own name begins in the text, behind its menus
/// @param typed without words it finds everything alike
std::optional<CommandMatch> matchCommand(const QString& text, qsizetype name, const QString& typed);

/// What is left of a text when the last letter, with its accents, is taken away, or the last word.
QString withoutLastLetter(const QString& text);
QString withoutLastWord(const QString& text); ///< the same

} // namespace ui::menus
