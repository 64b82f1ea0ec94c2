// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/FrameSlider.h"

#include "MorrantUI/timeline/clocklinks.h"
#include <MorrantUI/theme/events.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>

namespace {

/// Keys that a QSlider moves by.
bool isOwn(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End: return !(event.modifiers() & ~Qt::KeypadModifier);
    default: return false;
    }
}

} // namespace

FrameSlider::FrameSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
    setLayoutDirection(Qt::LeftToRight);
    setMouseTracking(true); // a move without the button tells of a release that went elsewhere
}

FrameSlider::~FrameSlider() = default;

void FrameSlider::setClock(PlaybackClock* wanted)
{
    ui::followClock(wanted, *this, m_clock, m_clockLink);
}

PlaybackClock* FrameSlider::clock() const
{
    return m_clock;
}

bool FrameSlider::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwn(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QSlider::event(event);
}

void FrameSlider::initStyleOption(QStyleOptionSlider* option) const
{
    QSlider::initStyleOption(option);
    if (isSliderDown()) {
        option->activeSubControls = QStyle::SC_SliderHandle;
        option->state |= QStyle::State_Sunken;
    }
}

void FrameSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || isSliderDown()) {
        event->ignore();
        return;
    }
    m_before = value();
    m_doors.watch(this, [this](GestureDoors::Door) { finishGesture(); });
    m_escapeFilter = ui::installEventFilter(
        qApp,
        [this](QObject*, QEvent* key) {
            const bool isKey =
                key->type() == QEvent::KeyPress || key->type() == QEvent::ShortcutOverride;
            if (!isKey || static_cast<QKeyEvent*>(key)->key() != Qt::Key_Escape) {
                return false;
            }
            key->accept();
            if (key->type() == QEvent::KeyPress) {
                cancelDrag();
            }
            return true;
        },
        this);
    const QPointer<FrameSlider> alive(this);
    const int frame = frameAt(event->position().x());
    setSliderDown(true);
    if (alive && isSliderDown()) {
        setSliderPosition(frame);
    }
}

void FrameSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) {
        setSliderPosition(frameAt(event->position().x()));
    } else {
        QSlider::mouseMoveEvent(event); // ignores it
    }
}

void FrameSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        finishGesture();
    }
}

void FrameSlider::cancelDrag()
{
    const QPointer<FrameSlider> alive(this);
    setSliderPosition(m_before);
    if (alive) {
        finishGesture();
    }
}

void FrameSlider::finishGesture()
{
    if (!isSliderDown()) {
        return;
    }
    m_doors.stop();
    delete m_escapeFilter;
    update();
    setSliderDown(false);
}

int FrameSlider::frameAt(double x) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const int handle = style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
    const int offset = qRound(x) - groove.x() - handle / 2;
    return QStyle::sliderValueFromPosition(
        minimum(), maximum(), offset, groove.width() - handle, option.upsideDown);
}
