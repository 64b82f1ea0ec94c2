// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/NoticeStack.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/menus/NoticeCard.h"

#include <QEvent>

#include <algorithm>

namespace {

constexpr int kMargin = 8;   ///< logical pixels from the host's edges
constexpr int kGap = 6;      ///< between two
constexpr int kWidest = 560; ///< longer lines are hard to read

} // namespace

NoticeStack::NoticeStack(QWidget* host)
    : QObject(host)
    , m_host(host)
{
    host->installEventFilter(this);
}

NoticeStack::~NoticeStack()
{
    // A slot of one of them may do this; those of a dying host are its own business.
    for (NoticeCard* const card : std::as_const(m_cards)) {
        card->disconnect(this);
        card->hide();
        card->deleteLater();
    }
}

int NoticeStack::add(const QString& text, Kind kind, int milliseconds)
{
    if (text.trimmed().isEmpty()) {
        return 0;
    }
    const auto same = std::find_if(m_cards.begin(), m_cards.end(), [&](const NoticeCard* card) {
        return card->text() == text && card->kind() == kind;
    });
    NoticeCard* card = nullptr;
    if (same != m_cards.end()) {
        card = *same;
        m_cards.erase(same);
    } else {
        card = new NoticeCard(++m_latest, text, kind, m_host);
        card->installEventFilter(this);
        connect(
            card, &NoticeCard::done, this, [this, number = card->number()] { dismiss(number); });
        connect(card, &QObject::destroyed, this, [this, card] { m_cards.removeAll(card); });
    }
    const int number = card->number();
    m_cards.prepend(card);
    card->wait(milliseconds);
    arrange();
    card->show();
    ui::notifyAccessible(card, QAccessible::Alert);
    if (m_cards.size() > ui::kMostNotices) {
        dismiss(m_cards.last()->number());
    }
    return number;
}

void NoticeStack::dismiss(int notice)
{
    const auto found = std::find_if(m_cards.begin(), m_cards.end(), [&](const NoticeCard* card) {
        return card->number() == notice;
    });
    if (found == m_cards.end()) {
        return;
    }
    NoticeCard* const card = *found;
    m_cards.erase(found);
    card->hide();
    card->deleteLater(); // its own button may have asked for it
    arrange();
    Q_EMIT dismissed(notice);
}

QStringList NoticeStack::texts() const
{
    QStringList texts;
    for (const NoticeCard* const card : m_cards) {
        texts.append(card->text());
    }
    return texts;
}

void NoticeStack::dismissLatest()
{
    if (!m_cards.isEmpty()) {
        dismiss(m_cards.first()->number());
    }
}

void NoticeStack::dismissAll()
{
    const QPointer<NoticeStack> self(this);
    while (self && !m_cards.isEmpty()) {
        dismissLatest();
    }
}

bool NoticeStack::eventFilter(QObject* watched, QEvent* event)
{
    const bool isRoom = watched == m_host && event->type() == QEvent::Resize;
    if (isRoom || (watched != m_host && event->type() == QEvent::LayoutRequest)) {
        arrange();
    }
    return QObject::eventFilter(watched, event);
}

void NoticeStack::arrange()
{
    const int width = std::clamp(m_host->width() - 2 * kMargin, 0, kWidest);
    int top = kMargin;
    for (NoticeCard* const card : std::as_const(m_cards)) {
        const int height = std::max(card->heightForWidth(width), card->minimumSizeHint().height());
        card->setGeometry((m_host->width() - width) / 2, top, width, height);
        card->raise();
        top += height + kGap;
    }
}
