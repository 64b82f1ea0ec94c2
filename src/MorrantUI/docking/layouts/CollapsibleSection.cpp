// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/layouts/CollapsibleSection.h"

#include "MorrantUI/docking/layouts/FoldLayout.h"
#include "MorrantUI/docking/layouts/SectionHeader.h"

#include <QPropertyAnimation>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace {

/// Qt puts a newcomer behind everything that is in the window by now.
void putBehind(QWidget& header, QWidget& content)
{
    QList<QWidget*> stops{&content};
    for (QWidget* next = content.nextInFocusChain(); content.isAncestorOf(next);
         next = next->nextInFocusChain())
    {
        stops.append(next);
    }
    QWidget* before = &header;
    for (QWidget* const stop : std::as_const(stops)) {
        if ((stop->focusPolicy() & Qt::TabFocus) != 0) {
            QWidget::setTabOrder(before, stop);
            before = stop;
        }
    }
}

} // namespace

CollapsibleSection::CollapsibleSection(const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_header(new SectionHeader(this))
    , m_body(new QWidget(this))
    , m_fold(new FoldLayout(m_body))
    , m_animation(new QPropertyAnimation(this, "openness", this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(m_body, 1);
    m_header->setTitle(title);
    m_animation->setEasingCurve(QEasingCurve::InOutCubic);

    connect(m_header, &QAbstractButton::clicked, this, &CollapsibleSection::toggle);
    connect(m_header, &SectionHeader::foldRequested, this, [this] { setExpanded(false); });
    connect(m_header, &SectionHeader::unfoldRequested, this, [this] { setExpanded(true); });
    connect(m_animation, &QAbstractAnimation::finished, this, &CollapsibleSection::settle);
    settle();
}

CollapsibleSection::CollapsibleSection(QWidget* parent)
    : CollapsibleSection(QString(), parent)
{}

CollapsibleSection::~CollapsibleSection() = default;

void CollapsibleSection::setTitle(const QString& title)
{
    m_header->setTitle(title);
}

QString CollapsibleSection::title() const
{
    return m_header->title();
}

QWidget* CollapsibleSection::content() const
{
    const bool isHere = m_content != nullptr && m_content->parentWidget() == m_body;
    return isHere ? m_content.data() : nullptr;
}

void CollapsibleSection::setContent(QWidget* content)
{
    const QPointer<QWidget> previous = this->content();
    if (content == previous || content == this
        || (content != nullptr && content->isAncestorOf(this))) {
        return;
    }
    const bool isHidden = content != nullptr && content->isHidden()
                          && content->testAttribute(Qt::WA_WState_ExplicitShowHide);
    m_content = content;
    m_keptHeight = 0;
    if (content) {
        m_fold->addWidget(content); // out of the one before, too, if it is in there
        content->setVisible(!isHidden);
        putBehind(*m_header, *content);
    }
    if (previous && previous->parentWidget() == m_body) {
        m_fold->removeWidget(previous);
        previous->hide(); // whose slots may do anything
        if (previous) {
            previous->setParent(nullptr);
            previous->deleteLater();
        }
    }
}

QWidget* CollapsibleSection::takeContent()
{
    QWidget* const taken = content();
    m_content = nullptr;
    if (taken) {
        m_fold->removeWidget(taken);
        taken->setParent(nullptr);
    }
    return taken;
}

void CollapsibleSection::setExpanded(bool expanded)
{
    if (expanded == m_expanded) {
        return;
    }
    if (m_animation->state() != QAbstractAnimation::Running) {
        measure(expanded);
    }
    m_expanded = expanded;
    m_header->setExpanded(expanded);
    if (expanded) {
        m_body->show();
    } else {
        moveFocusOut();
    }
    const int duration = isVisible() ? animationDuration() : 0;
    m_animation->stop();
    m_animation->setDuration(duration);
    m_animation->setStartValue(m_openness);
    m_animation->setEndValue(expanded ? 1.0 : 0.0);
    const QPointer<CollapsibleSection> self(this);
    Q_EMIT expandedChanged(expanded);
    if (!self || m_expanded != expanded) {
        return; // turned round by a slot, with an animation of its own
    }
    if (duration > 0) {
        m_animation->start();
    } else {
        settle();
    }
}

void CollapsibleSection::toggle()
{
    setExpanded(!m_expanded);
}

void CollapsibleSection::setAnimationDuration(int milliseconds)
{
    m_duration = milliseconds;
}

int CollapsibleSection::animationDuration() const
{
    return m_duration >= 0
               ? m_duration
               : style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
}

void CollapsibleSection::finishAnimation()
{
    if (m_animation->state() == QAbstractAnimation::Running) {
        m_animation->stop();
        settle();
    }
}

void CollapsibleSection::hideEvent(QHideEvent* event)
{
    finishAnimation();
    QWidget::hideEvent(event);
}

/// Decides, before a movement, how high the content is while it lasts.
void CollapsibleSection::measure(bool expanding)
{
    const int wanted = m_fold->contentHeight(width());
    if (!expanding) {
        m_keptHeight = m_body->isVisible() ? m_body->height() : 0;
        m_keptWish = wanted;
        m_fullHeight = m_keptHeight > 0 ? m_keptHeight : wanted;
    } else {
        // The height it had includes what the layout around has given beyond the wish.
        m_fullHeight = m_keptHeight > 0 && wanted == m_keptWish ? m_keptHeight : wanted;
    }
}

void CollapsibleSection::setOpenness(double openness)
{
    m_openness = std::clamp(openness, 0.0, 1.0);
    m_header->setOpenness(m_openness);
    fixHeight(true);
    m_fold->setPart(m_fullHeight, m_openness);
}

/// The state at rest, as the section is meant to be now.
void CollapsibleSection::settle()
{
    m_openness = m_expanded ? 1.0 : 0.0;
    m_header->setOpenness(m_openness);
    m_fold->clearPart();
    m_body->setVisible(m_expanded);
    fixHeight(!m_expanded);
}

/// Nothing is given to a section beyond what it shows while that is not all of it.
void CollapsibleSection::fixHeight(bool fixed)
{
    QSizePolicy policy = sizePolicy();
    if (!m_isHeightFixed || policy.verticalPolicy() != QSizePolicy::Fixed) {
        m_hostPolicy = policy.verticalPolicy(); // it may have been set meanwhile
    }
    m_isHeightFixed = fixed;
    policy.setVerticalPolicy(fixed ? QSizePolicy::Fixed : m_hostPolicy);
    setSizePolicy(policy);
}

void CollapsibleSection::moveFocusOut()
{
    const QWidget* const focused = window()->focusWidget();
    if (focused && m_body->isAncestorOf(focused)) {
        m_header->setFocus(Qt::OtherFocusReason);
    }
}
