// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/RolloverLabel.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/elidedtext.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QHoverEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kPadding = 4; ///< beside the text, for the focus ring

} // namespace

RolloverLabel::RolloverLabel(QWidget* parent)
    : RolloverLabel(QString(), parent)
{}

RolloverLabel::RolloverLabel(const QString& text, QWidget* parent)
    : QAbstractButton(parent)
    , m_restColor(QStringLiteral("Link"))
{
    ui::installAccessible<RolloverLabel, ui::AccessibleButtonAs<QAccessible::Link>>();
    ui::keepSpace(*this);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setText(text);
}

RolloverLabel::~RolloverLabel() = default;

void RolloverLabel::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void RolloverLabel::setColors(const QString& rest, const QString& hovered)
{
    m_restColor = rest;
    m_hoverColor = hovered;
    update();
}

QSize RolloverLabel::sizeHint() const
{
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
    return {text.width() + 2 * kPadding, std::max(text.height() + 4, ui::rowHeight(*this))};
}

QSize RolloverLabel::minimumSizeHint() const
{
    const QSize whole = sizeHint();
    const int shortest = ui::kLeastCharacters * fontMetrics().averageCharWidth() + 2 * kPadding;
    return {std::min(shortest, whole.width()), whole.height()};
}

const RolloverLabel::Shown& RolloverLabel::shown() const
{
    const int room = width() - 2 * kPadding;
    const bool fresh = m_shown.room == room && m_shown.dotsPerInch == logicalDpiY()
                       && m_shown.whole == text() && m_shown.font == font();
    if (!fresh) {
        const QFontMetrics metrics = fontMetrics();
        const QString text =
            metrics.elidedText(this->text(), Qt::ElideRight, room, Qt::TextShowMnemonic);
        m_shown = {
            this->text(),
            font(),
            logicalDpiY(),
            room,
            text,
            metrics.size(Qt::TextShowMnemonic, text)};
    }
    return m_shown;
}

QRect RolloverLabel::linkRect() const
{
    const QSize text = shown().size;
    const QSize link(std::min(width(), text.width() + 2 * kPadding), text.height() + 4);
    return QStyle::alignedRect(layoutDirection(), m_alignment, link, rect());
}

bool RolloverLabel::hitButton(const QPoint& position) const
{
    return linkRect().contains(position);
}

void RolloverLabel::setHovered(bool hovered)
{
    if (hovered == m_hovered) {
        return;
    }
    m_hovered = hovered;
    if (hovered) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
    update();
}

bool RolloverLabel::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove: {
        const QPoint at = static_cast<QHoverEvent*>(event)->position().toPoint();
        setHovered(isEnabled() && hitButton(at));
        return true; // the base would repaint for the space beside the text too
    }
    case QEvent::HoverLeave: setHovered(false); return true;
    case QEvent::EnabledChange: setHovered(false); break;
    case QEvent::ToolTip:
        if (ui::answerWithWholeText(*this, event, text(), shown().text)) {
            return true;
        }
        break;
    default: break;
    }
    return QAbstractButton::event(event);
}

void RolloverLabel::paintEvent(QPaintEvent*)
{
    ui::style::WidgetState state = ui::style::stateOf(ui::buttonOption(*this));
    state.hovered = m_hovered;
    const bool ownHover = state.hovered && !state.pressed && !m_hoverColor.isEmpty();
    const QColor color =
        ownHover ? ui::colorQt(m_hoverColor) : ui::style::shade(ui::colorQt(m_restColor), state);
    const QRect link = linkRect();
    QPainter painter(this);

    QFont linkFont = font();
    linkFont.setUnderline(state.hovered || state.pressed);
    painter.setFont(linkFont);
    painter.setPen(color);
    const bool underlines = style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this) != 0;
    const int flags = underlines ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(link, flags | Qt::AlignCenter | Qt::TextSingleLine, shown().text);
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, link, ui::style::kSmallRadius);
    }
}

void RolloverLabel::keyPressEvent(QKeyEvent* event)
{
    if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}
