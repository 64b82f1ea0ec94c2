#include "NoticeBar.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace studio {

namespace {

constexpr int kStripeWidth = 3;

} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : Widget(parent)
    , m_text(new QLabel(this))
{
    auto* icon = new QLabel(this);
    icon->setPixmap(ui::getCachedPixmap(QStringLiteral("icons:warning.png")));

    // File names come from outside: never read them as markup.
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* close = new QToolButton(this);
    close->setIcon(ui::getCachedIcon(QStringLiteral("icons:close.png")));
    close->setToolTip(tr("Dismiss (Esc)"));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    connect(close, &QToolButton::clicked, this, &NoticeBar::dismiss);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 6, 8, 6);
    layout->setSpacing(8);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(close);
    hide();
}

void NoticeBar::showSentence(const QString& sentence)
{
    m_text->setText(sentence);
    setAccessibleName(sentence);
    show();
}

QString NoticeBar::sentence() const
{
    return m_text->text();
}

void NoticeBar::dismiss()
{
    m_text->clear();
    hide();
}

void NoticeBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("ElementHeader")));
    painter.fillRect(0, 0, kStripeWidth, height(), ui::colorQt(QStringLiteral("Accent5")));
}

} // namespace studio
