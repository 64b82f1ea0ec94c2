// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/suffixes.h"

#include <MorrantUI/theme/drawing.h>

#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionFrame>

#include <algorithm>

namespace ui {

namespace {

constexpr int kTextMargin = 2;          ///< that a line edit keeps on both sides of its text
constexpr double kSuffixStrength = 0.7; ///< of the text's colour

QRect suffixRect(const QLineEdit& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    const QRect inner = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    const int width = field.textMargins().right();
    const int text = field.fontMetrics().horizontalAdvance(field.text()) + 2 * kTextMargin;
    const QSize room(std::min(inner.width(), text + width), inner.height());
    // A line edit aligns by its text, not by the window around it.
    const auto direction = field.text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const QRect whole = QStyle::alignedRect(direction, field.alignment(), room, inner);
    return {whole.right() + 1 - width - kTextMargin, whole.top(), width, whole.height()};
}

} // namespace

QString withoutSuffix(const QString& text, const QString& suffix)
{
    const QString unit = suffix.trimmed();
    const QString typed = text.trimmed();
    const bool hasUnit = !unit.isEmpty() && typed.endsWith(unit);
    return hasUnit ? typed.chopped(unit.size()).trimmed() : text;
}

void reserveSuffix(QLineEdit& field, const QString& suffix)
{
    QMargins margins = field.textMargins();
    margins.setRight(field.fontMetrics().horizontalAdvance(suffix));
    field.setTextMargins(margins);
}

void paintSuffix(QLineEdit& field, const QString& suffix)
{
    if (suffix.isEmpty()) {
        return;
    }
    QPainter painter(&field);
    painter.setPen(field.palette().color(QPalette::Text));
    painter.setOpacity(field.isEnabled() ? kSuffixStrength : kDisabledOpacity);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(suffixRect(field), Qt::AlignVCenter | Qt::TextSingleLine, suffix);
}

} // namespace ui
