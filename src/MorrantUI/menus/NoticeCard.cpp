// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/NoticeCard.h"

#include "MorrantUI/controls/accessibility.h"
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/drawing.h>
#include <MorrantUI/theme/icons.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int kStripeWidth = 3; ///< logical pixels, at the leading edge

QString stripeColor(NoticeStack::Kind kind)
{
    switch (kind) {
    case NoticeStack::Kind::Information: return QStringLiteral("Accent1");
    case NoticeStack::Kind::Warning: return QStringLiteral("Accent5");
    case NoticeStack::Kind::Error: break;
    }
    return QStringLiteral("Red");
}

} // namespace

NoticeCard::NoticeCard(int number, const QString& text, NoticeStack::Kind kind, QWidget* host)
    : Widget(host)
    , m_number(number)
    , m_kind(kind)
    , m_text(new QLabel(this))
    , m_timer(new QTimer(this))
{
    ui::installAccessible<NoticeCard, ui::AccessibleAs<QAccessible::AlertMessage>>();
    setAccessibleName(text);
    const bool informs = kind == NoticeStack::Kind::Information;
    auto* const icon = new QLabel(this);
    icon->setPixmap(ui::getCachedPixmap(
        informs ? QStringLiteral("icons:info.png") : QStringLiteral("icons:warning.png")));

    // File names come from outside: never read them as mark-up.
    m_text->setTextFormat(Qt::PlainText);
    m_text->setText(text);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const close = new IconButton(QStringLiteral("icons:close.png"), this);
    close->setToolTip(tr("Dismiss"));
    close->setAccessibleName(tr("Dismiss"));
    close->setFocusPolicy(Qt::NoFocus);
    connect(close, &QAbstractButton::clicked, this, &NoticeCard::done);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 8, 6);
    row->setSpacing(8);
    row->addWidget(icon);
    row->addWidget(m_text, 1);
    row->addWidget(close);

    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &NoticeCard::done);
}

QString NoticeCard::text() const
{
    return m_text->text();
}

void NoticeCard::wait(int milliseconds)
{
    m_timer->stop();
    m_timer->setInterval(milliseconds);
    if (milliseconds > 0 && !underMouse()) {
        m_timer->start();
    }
}

void NoticeCard::paintEvent(QPaintEvent* /*event*/)
{
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    const double radius = ui::kCornerRadius;
    QPainter painter(this);
    const QRectF card = rect();
    ui::fillRounded(painter, card, radius, ui::colorQt(QStringLiteral("ElementHeader")));
    ui::fillSharp(
        painter,
        {isRightToLeft ? card.right() - kStripeWidth : 0.0,
         radius,
         kStripeWidth,
         card.height() - 2 * radius},
        ui::colorQt(stripeColor(m_kind)));
    ui::strokeRounded(painter, card, radius, ui::colorQt(QStringLiteral("Midlight")));
}

void NoticeCard::enterEvent(QEnterEvent* event)
{
    m_timer->stop();
    Widget::enterEvent(event);
}

void NoticeCard::leaveEvent(QEvent* event)
{
    wait(m_timer->interval());
    Widget::leaveEvent(event);
}
