// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ContextMenuLabel.h"

#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/menus/menusearch.h"
#include "MorrantUI/theme/style/metrics.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kMostChars = 400; ///< that are measured: more than fit into the widest label

} // namespace

ContextMenuLabel::ContextMenuLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText); // names that the user gave may look like mark-up
    setMouseTracking(true);       // so that the menu below hears of moves
}

ContextMenuLabel::~ContextMenuLabel() = default;

void ContextMenuLabel::setHighlighted(bool highlighted)
{
    if (highlighted != m_highlighted) {
        m_highlighted = highlighted;
        update();
    }
}

void ContextMenuLabel::setColor(const QColor& color)
{
    m_color = color;
    update();
}

void ContextMenuLabel::setAccented(bool accented)
{
    m_accented = accented;
    QFont weighted = font();
    weighted.setWeight(accented ? QFont::DemiBold : QFont::Normal);
    setFont(weighted);
    update();
}

QSize ContextMenuLabel::sizeHint() const
{
    const QSize text = fontMetrics().size(
        Qt::TextSingleLine | Qt::TextShowMnemonic, this->text().left(kMostChars));
    const int most = ui::style::widestMenuText(fontMetrics());
    return {std::min(text.width() + 1, most), text.height()};
}

QSize ContextMenuLabel::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

QString ContextMenuLabel::shownText() const
{
    return fontMetrics().elidedText(
        text().left(kMostChars), Qt::ElideRight, width(), Qt::TextShowMnemonic);
}

bool ContextMenuLabel::event(QEvent* event)
{
    return ui::answerWithWholeText(
               *this,
               event,
               ui::menus::displayedText(text()),
               ui::menus::displayedText(shownText()))
           || QLabel::event(event);
}

void ContextMenuLabel::enterEvent(QEnterEvent* event)
{
    QLabel::enterEvent(event);
    Q_EMIT mouseEntered();
}

void ContextMenuLabel::leaveEvent(QEvent* event)
{
    QLabel::leaveEvent(event);
    Q_EMIT mouseLeft();
}

void ContextMenuLabel::paintEvent(QPaintEvent*)
{
    QPalette colors = palette();
    if (m_color.isValid()) {
        colors.setColor(QPalette::WindowText, m_color);
    } else if (m_accented) {
        colors.setColor(QPalette::WindowText, ui::colorQt(QStringLiteral("Accent1")));
    }
    const bool underlines = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    QPainter painter(this);
    style()->drawItemText(
        &painter,
        rect(),
        Qt::AlignVCenter | Qt::TextSingleLine | static_cast<int>(side)
            | (underlines ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
        colors,
        isEnabled() || m_accented, // what stands out of a row that cannot be chosen is its point
        shownText(),
        m_highlighted && isEnabled() ? QPalette::HighlightedText : QPalette::WindowText);
}
