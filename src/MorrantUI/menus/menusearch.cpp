// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/menusearch.h"

#include <algorithm>

namespace ui::menus {

MenuKey menuKey(int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return MenuKey::Trigger;
    case Qt::Key_Down: return MenuKey::Next;
    case Qt::Key_Up: return MenuKey::Previous;
    default: return searches(modifiers, text) ? MenuKey::Search : MenuKey::Other;
    }
}

bool searches(Qt::KeyboardModifiers modifiers, const QString& text)
{
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
    if (text.isEmpty() || control != alt || modifiers.testFlag(Qt::MetaModifier)) {
        return false;
    }
    return std::none_of(text.begin(), text.end(), [](QChar character) {
        return character.category() == QChar::Other_Control;
    });
}

QString displayedText(const QString& text)
{
    const QString whole = text.left(text.indexOf(u'\t')); // all of it for -1
    QString shown;
    shown.reserve(whole.size());
    for (auto at = whole.begin(); at != whole.end(); ++at) {
        const bool marks = *at == u'&' && at + 1 != whole.end();
        shown += marks ? *++at : *at; // two marks are one that is shown
    }
    return shown;
}

bool isFoundBy(const QString& text, const QString& typed)
{
    const QString lowered = text.toLower();
    const QString shown = displayedText(lowered);
    const auto composed = [](const QString& letters) {
        return letters.normalized(QString::NormalizationForm_C);
    };
    return lowered.startsWith(typed) || shown.startsWith(typed)
           || composed(shown).startsWith(composed(typed));
}

std::optional<int> steppedSubAction(int current, int count, int step, int least)
{
    const int next = current + step;
    return next >= least && next < count ? std::optional(next) : std::nullopt;
}

} // namespace ui::menus
