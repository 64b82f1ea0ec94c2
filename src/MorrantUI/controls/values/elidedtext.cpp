// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/elidedtext.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>
#include <QtMath>

namespace ui {

int wholeWidth(const QFont& font, const QString& text)
{
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

bool answerWithWholeText(QWidget& widget, QEvent* event, const QString& whole, const QString& shown)
{
    if (event->type() != QEvent::ToolTip || !widget.toolTip().isEmpty()) {
        return false;
    }
    if (whole == shown) {
        QToolTip::hideText();
        event->ignore(); // the parent's tool tip may show
        return true;
    }
    // As mark-up, so that a name such as "<b>" is shown as it is.
    const QString text = QStringLiteral("<span style='white-space:pre'>%1</span>");
    QToolTip::showText(
        static_cast<QHelpEvent*>(event)->globalPos(), text.arg(whole.toHtmlEscaped()), &widget);
    return true;
}

} // namespace ui
