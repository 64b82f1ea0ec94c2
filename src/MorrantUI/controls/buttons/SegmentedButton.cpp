// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/SegmentedButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/ButtonSegment.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include <MorrantUI/controls/buttons/segmentgeometry.h>

#include <QButtonGroup>
#include <QEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

SegmentedButton::SegmentedButton(QWidget* parent)
    : QWidget(parent)
    , m_buttons(new QButtonGroup(this))
{
    ui::installAccessible<SegmentedButton, ui::AccessibleGrouping>();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

SegmentedButton::~SegmentedButton() = default;

int SegmentedButton::addSegment(
    const QString& text, const QString& iconName, const QString& toolTip)
{
    auto* const segment = new ButtonSegment(text, iconName, this);
    segment->setToolTip(toolTip);
    m_buttons->addButton(segment);
    appendToTabOrder(segment);
    m_segments.push_back(segment);
    connect(segment, &ButtonSegment::stepped, this, [this, segment](SegmentStep to) {
        step(segment, to);
    });
    connect(segment, &ButtonSegment::availabilityChanged, this, &SegmentedButton::updateTabStop);
    connect(segment, &QAbstractButton::clicked, this, [this, segment] { takeClick(segment); });
    placeSegments();
    updateTabStop();
    updateGeometry();
    segment->setVisible(true);
    return count() - 1;
}

int SegmentedButton::count() const
{
    return static_cast<int>(m_segments.size());
}

void SegmentedButton::clear()
{
    for (ButtonSegment* const segment : m_segments) {
        m_buttons->removeButton(segment);
        segment->hide();
        segment->deleteLater(); // it may be in the middle of its click
    }
    setFocusProxy(nullptr);
    m_segments.clear();
    m_tabStop = 0;
    m_chosen = -1;
    updateGeometry();
    tellChange();
}

/// May delete the group, in a slot: the last thing that a setter does.
void SegmentedButton::tellChange()
{
    const int before = std::exchange(m_told, currentIndex());
    if (before != m_told) {
        Q_EMIT changed();
    }
}

bool SegmentedButton::isValid(int index) const
{
    return index >= 0 && index < count();
}

int SegmentedButton::indexOf(const ButtonSegment* segment) const
{
    const auto found = std::find(m_segments.begin(), m_segments.end(), segment);
    return found == m_segments.end() ? -1 : static_cast<int>(found - m_segments.begin());
}

QAbstractButton* SegmentedButton::segment(int index) const
{
    return isValid(index) ? m_segments[static_cast<std::size_t>(index)] : nullptr;
}

void SegmentedButton::setExclusive(bool exclusive)
{
    const int first = currentIndex();
    m_buttons->setExclusive(exclusive);
    if (exclusive) {
        setCurrentIndex(first);
    }
}

bool SegmentedButton::isExclusive() const
{
    return m_buttons->exclusive();
}

int SegmentedButton::currentIndex() const
{
    const auto found = std::find_if(m_segments.begin(), m_segments.end(), [](const auto* segment) {
        return segment->isChecked();
    });
    return found == m_segments.end() ? -1 : static_cast<int>(found - m_segments.begin());
}

void SegmentedButton::setCurrentIndex(int index)
{
    if (index != -1 && !isValid(index)) {
        return;
    }
    const bool exclusive = m_buttons->exclusive();
    m_buttons->setExclusive(false); // an exclusive group keeps its last one on
    for (int i = 0; i < count(); ++i) {
        segment(i)->setChecked(i == index);
    }
    m_buttons->setExclusive(exclusive);
    m_chosen = index;
    updateTabStop();
    tellChange();
}

bool SegmentedButton::isChecked(int index) const
{
    return isValid(index) && segment(index)->isChecked();
}

void SegmentedButton::setChecked(int index, bool checked)
{
    if (!isValid(index) || isChecked(index) == checked) {
        return;
    }
    if (isExclusive()) {
        setCurrentIndex(checked ? index : -1);
    } else {
        segment(index)->setChecked(checked);
        tellChange();
    }
}

QSize SegmentedButton::sizeHint() const
{
    QSize sum(0, ui::rowHeight(*this));
    for (const ButtonSegment* const segment : m_segments) {
        const QSize hint = segment->sizeHint();
        sum = {sum.width() + hint.width(), std::max(sum.height(), hint.height())};
    }
    return sum;
}

QSize SegmentedButton::minimumSizeHint() const
{
    int width = 0;
    for (const ButtonSegment* const segment : m_segments) {
        width += segment->minimumSizeHint().width();
    }
    return {width, sizeHint().height()};
}

void SegmentedButton::placeSegments()
{
    std::vector<int> wishes;
    for (const ButtonSegment* const segment : m_segments) {
        wishes.push_back(segment->sizeHint().width());
    }
    const std::vector<QRect> places = ui::segmentRects(rect(), wishes, layoutDirection());
    for (std::size_t i = 0; i < m_segments.size(); ++i) {
        m_segments[i]->setGeometry(places[i]);
        m_segments[i]->setPlace(static_cast<int>(i), count());
    }
}

void SegmentedButton::updateTabStop()
{
    const auto usable = [this](int index) {
        return isValid(index) && segment(index)->isEnabledTo(this);
    };
    int stop = m_tabStop;
    if (isExclusive() && usable(currentIndex())) {
        stop = currentIndex();
    }
    for (int i = 0; i < count() && !usable(stop); ++i) {
        stop = i;
    }
    m_tabStop = stop;
    for (int i = 0; i < count(); ++i) {
        segment(i)->setFocusPolicy(i == stop ? Qt::TabFocus : Qt::NoFocus);
    }
    setFocusProxy(segment(stop));
}

/// Qt would put a new child behind everything that is in the window by now, and orders only what
/// takes the focus.
void SegmentedButton::appendToTabOrder(QWidget* segment)
{
    setFocusProxy(nullptr);
    QWidget* const previous = m_segments.empty() ? static_cast<QWidget*>(this) : m_segments.back();
    previous->setFocusPolicy(Qt::TabFocus);
    segment->setFocusPolicy(Qt::TabFocus);
    setTabOrder(previous, segment);
    setFocusPolicy(Qt::NoFocus); // of the segments updateTabStop() decides
}

void SegmentedButton::step(const ButtonSegment* from, SegmentStep step)
{
    const int direction = step == SegmentStep::Previous || step == SegmentStep::Last ? -1 : 1;
    int at = step == SegmentStep::First ? -1 : step == SegmentStep::Last ? count() : indexOf(from);
    for (int tries = 0; tries < count(); ++tries) {
        at = (at + direction + count()) % count();
        if (!segment(at)->isEnabled()) {
            continue;
        }
        m_tabStop = at;
        updateTabStop();
        segment(at)->setFocus(direction > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        if (isExclusive()) {
            segment(at)->click();
        }
        return;
    }
}

void SegmentedButton::takeClick(const ButtonSegment* clicked)
{
    const int index = indexOf(clicked);
    const bool hasFocus = std::any_of(
        m_segments.begin(), m_segments.end(), [](const auto* one) { return one->hasFocus(); });
    m_tabStop = index;
    updateTabStop();
    if (hasFocus && !clicked->hasFocus()) {
        segment(index)->setFocus(Qt::OtherFocusReason);
    }
    const QPointer<SegmentedButton> self(this);
    if (!isExclusive()) {
        Q_EMIT segmentToggled(index, clicked->isChecked());
    } else if (index != m_chosen) {
        m_chosen = index;
        Q_EMIT currentIndexChanged(index);
    }
    if (self) {
        tellChange();
    }
}

bool SegmentedButton::event(QEvent* event)
{
    // A segment asks for another layout when its text, icon or font has changed.
    const QEvent::Type type = event->type();
    if (type == QEvent::LayoutRequest || type == QEvent::LayoutDirectionChange) {
        placeSegments();
        updateGeometry();
    }
    return QWidget::event(event);
}

void SegmentedButton::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeSegments();
}
