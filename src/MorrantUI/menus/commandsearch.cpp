// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/commandsearch.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace ui::menus {

namespace {

constexpr int kExact = -1;
constexpr int kInMenus = 3; ///< what being in the menus' names costs a word

/// A text as it is compared, and where each of its letters comes from.
struct Folded
{
    QString text;
    QList<qsizetype> origins; ///< one more than letters: the end
};

Folded folded(const QString& text)
{
    Folded result;
    result.text.reserve(text.size());
    result.origins.reserve(text.size() + 1);
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const qsizetype units = isPair ? 2 : 1;
        const QString written = text.mid(at, units);
        const QString letter =
            written[0].unicode() < 128 // most of them
                ? written.toLower()
                : written.normalized(QString::NormalizationForm_KD).toCaseFolded();
        for (const QChar part : letter) {
            if (part.category() != QChar::Mark_NonSpacing) {
                result.text += part;
                result.origins += at;
            }
        }
        at += units;
    }
    result.origins += text.size();
    return result;
}

/// 0 at the beginning, 1 at that of a word, 2 within one.
int distanceFromStart(const QString& text, qsizetype beginning, qsizetype at)
{
    return at == beginning ? 0 : at == 0 || !text[at - 1].isLetterOrNumber() ? 1 : 2;
}

/// Where a word fits best.
std::optional<CommandMatch> matchWord(const Folded& command, qsizetype name, const QString& word)
{
    std::optional<CommandMatch> best;
    for (qsizetype at = command.text.indexOf(word); at >= 0;
         at = command.text.indexOf(word, at + 1)) {
        const int rank = distanceFromStart(command.text, name, at) + (at < name ? kInMenus : 0);
        if (!best || rank < best->rank) {
            const qsizetype from = command.origins[at];
            const qsizetype last = command.origins[at + word.size() - 1];
            const auto behind = std::upper_bound(
                command.origins.begin(), command.origins.end(), last); // with its accents
            best = CommandMatch{rank, {{from, *behind - from}}};
        }
    }
    return best;
}

} // namespace

std::optional<CommandMatch> matchCommand(const QString& text, qsizetype name, const QString& typed)
{
    const Folded command = folded(text);
    const auto start = std::lower_bound(command.origins.begin(), command.origins.end(), name);
    const qsizetype foldedName = start - command.origins.begin();
    CommandMatch match{0, {}};
    const QString wanted = folded(typed.simplified()).text;
    const QStringList words = wanted.split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const auto found = matchWord(command, foldedName, word);
        if (!found) {
            return std::nullopt;
        }
        match.rank += found->rank;
        match.marks += found->marks;
    }
    if (!words.isEmpty() && command.text.mid(foldedName) == wanted) {
        match.rank = kExact;
    }
    return match;
}

QString withoutLastLetter(const QString& text)
{
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    letters.toEnd();
    return text.left(std::max<qsizetype>(letters.toPreviousBoundary(), 0));
}

QString withoutLastWord(const QString& text)
{
    qsizetype end = text.size();
    const auto drop = [&](bool spaces) {
        while (end > 0 && text[end - 1].isSpace() == spaces) {
            --end;
        }
    };
    drop(true);
    drop(false);
    return text.left(end);
}

} // namespace ui::menus
