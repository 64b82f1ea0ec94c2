// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TransportBar.h"

#include "MorrantUI/timeline/clocklinks.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/PendingValue.h>
#include <MorrantUI/docking/layouts/ScrollContainer.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/text/TimeCodeField.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/timeline/FrameSlider.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/playback.h>

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace {

// Logical pixels.
constexpr QMargins kMargins{8, 5, 8, 5};
constexpr int kSpacing = 2;
constexpr int kGap = 10; ///< around the slider
constexpr int kReadoutMargin = 6;
constexpr int kShortestSlider = 80;

constexpr int kMostDropped = 8888;    ///< that there is room for at any rate
constexpr int kLeastReserved = 88888; ///< a frame that every bar has room for
constexpr double kSlowRate = 24.0;    ///< and as many minutes as it takes then
constexpr double kWidestRate = 88.888;

/// The widest number with as many digits.
qint64 widest(qint64 number)
{
    qint64 eights = 8;
    while (eights < std::abs(number)) {
        eights = eights * 10 + 8;
    }
    return number < 0 ? -eights : eights;
}

int widthOf(const QWidget& label, const QString& text)
{
    return label.fontMetrics().horizontalAdvance(text) + 2 * kReadoutMargin;
}

QString droppedText(int frames)
{
    return TransportBar::tr("%n dropped", nullptr, frames);
}

} // namespace

TransportBar::TransportBar(QWidget* parent)
    : Widget(parent)
    , m_strip(new QWidget)
    , m_left(new QHBoxLayout)
    , m_middle(new QHBoxLayout)
    , m_right(new QHBoxLayout)
    , m_code(new TimeCodeField(m_strip))
    , m_frame(new NumericField(m_strip))
    , m_shownFrame(new PendingValue(m_frame))
    , m_slider(new FrameSlider(m_strip))
{
    setWindowTitle(tr("Transport"));
    setAccessibleName(windowTitle());
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout(m_strip);
    row->setContentsMargins(kMargins);
    row->setSpacing(kSpacing);
    row->addLayout(m_left);
    row->addLayout(m_middle, 1);
    row->addLayout(m_right);
    for (QHBoxLayout* const part : {m_left, m_middle, m_right}) {
        part->setSpacing(kSpacing);
    }
    auto* const around = new QHBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(new ScrollContainer(m_strip, Qt::Horizontal));
    addFields();
    connectFields();
    ui::offerContextMenu(*this, [this](ContextMenu& menu, QPoint) { fillMenu(menu); });
    showTrack();
}

TransportBar::~TransportBar()
{
    m_clockLink.reset(); // clock and fields may outlive what is a bar of this object
    m_code->disconnect(this);
    m_frame->disconnect(this);
}

void TransportBar::addFields()
{
    m_middle->addSpacing(kGap);
    m_middle->addWidget(m_code);
    m_middle->addWidget(m_frame);
    m_time = addReadout(tr("Current time"));
    m_middle->addSpacing(kGap);
    m_middle->addWidget(m_slider, 1);
    m_middle->addStretch(0); // for a bar without it
    m_middle->addSpacing(kGap);
    m_dropped = addReadout(tr("Frames that came too late to be shown"));
    m_rate = addReadout(tr("Frame rate"));

    m_code->setToolTip(tr("Time code of the current frame: hours, minutes, seconds, frames"));
    m_code->setAccessibleName(tr("Time code"));
    m_code->setContextMenuPolicy(Qt::NoContextMenu); // the bar's is the one to open
    m_frame->setToolTip(tr("Current frame"));
    m_frame->setAccessibleName(m_frame->toolTip());
    m_frame->setAlignment(Qt::AlignRight);
    m_frame->setContextMenuPolicy(Qt::NoContextMenu);
    m_slider->setMinimumWidth(kShortestSlider);
    m_slider->setFocusPolicy(Qt::NoFocus);
    m_slider->setAccessibleName(m_time->toolTip());
}

QLabel* TransportBar::addReadout(const QString& hint)
{
    auto* const label = new QLabel(m_strip);
    label->setToolTip(hint);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(kReadoutMargin, 0, kReadoutMargin, 0);
    m_middle->addWidget(label);
    return label;
}

void TransportBar::connectFields()
{
    connect(m_code, &TimeCodeField::frameEntered, this, &TransportBar::seek);
    connect(m_frame, &NumericField::edited, this, [this](double frame) {
        m_shownFrame->forget();
        seek(ui::nearestFrame(frame));
    });
    connect(m_frame, &NumericField::dragStateChanged, this, [this](bool drags) {
        if (drags && m_clock) {
            m_clock->pause();
        }
    });
}

/// A field shows what was entered by now, and the clock may want it otherwise.
void TransportBar::seek(int frame)
{
    const QPointer<TransportBar> alive(this);
    if (m_clock) {
        m_clock->seek(frame);
    }
    if (alive) {
        showFrame();
    }
}

void TransportBar::setClock(PlaybackClock* clock)
{
    using Clock = PlaybackClock;
    m_clockLink.reset();
    m_clock = clock;
    if (clock) {
        m_clockLink.reset(new ui::ClockLink{
            connect(clock, &Clock::trackChanged, this, &TransportBar::showTrack),
            connect(clock, &Clock::frameRangeChanged, this, &TransportBar::showRange),
            connect(clock, &Clock::rateChanged, this, &TransportBar::showRange),
            connect(clock, &Clock::frameChanged, this, &TransportBar::showFrame),
            connect(clock, &Clock::playingChanged, this, &TransportBar::showFrame),
            connect(clock, &QObject::destroyed, this, &TransportBar::showTrack),
        });
    }
    showTrack();
    m_slider->setClock(clock); // ends a drag, of which somebody may be told
}

PlaybackClock* TransportBar::clock() const
{
    return m_clock;
}

// What the host adds, and chooses

void TransportBar::addButtons(End end, const QList<QAction*>& actions)
{
    for (QAction* const action : actions) {
        if (!action) {
            continue;
        }
        auto* const button = new QToolButton;
        connect(action, &QObject::destroyed, button, &QObject::deleteLater);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus); // Space must reach the action that plays
        addWidget(end, button);
    }
}

void TransportBar::addWidget(End end, QWidget* widget)
{
    if (widget) {
        (end == End::Left ? m_left : m_right)->addWidget(widget);
    }
}

void TransportBar::setShownParts(Parts parts)
{
    m_code->setVisible(parts & TimeCode);
    m_frame->setVisible(parts & FrameNumber);
    m_time->setVisible(parts & Time);
    m_slider->setVisible(parts & Slider);
    m_dropped->setVisible(parts & DroppedFrames);
    m_rate->setVisible(parts & Rate);
}

TransportBar::Parts TransportBar::shownParts() const
{
    const std::pair<const QWidget*, Part> all[] = {
        {m_code, TimeCode},
        {m_frame, FrameNumber},
        {m_time, Time},
        {m_slider, Slider},
        {m_dropped, DroppedFrames},
        {m_rate, Rate}};
    Parts shown;
    for (const auto& [widget, part] : all) {
        shown.setFlag(part, !widget->isHidden());
    }
    return shown;
}

void TransportBar::fillMenu(ContextMenu& menu)
{
    const bool hasCode = m_strip->isEnabled();
    QAction* const copy = menu.addAction(
        ui::getCachedIcon(QStringLiteral("icons:copy.png")), tr("&Copy Time Code"), this, [this] {
            QGuiApplication::clipboard()->setText(m_code->code());
        });
    copy->setEnabled(hasCode);
    QAction* const edit = menu.addAction(tr("&Edit Time Code"), this, [this] {
        m_code->setFocus();
        m_code->selectAll();
    });
    edit->setEnabled(hasCode && !m_code->isHidden());
}

// What it shows

void TransportBar::showTrack()
{
    m_code->cancel(); // what is being typed is about another track
    m_shownFrame->forget();
    m_frame->setValue(m_clock ? m_clock->frame() : 0);
    showRange();
}

void TransportBar::showRange()
{
    const ui::FrameRange frames = m_clock ? m_clock->frameRange() : ui::FrameRange(0, 0);
    m_strip->setEnabled(m_clock && m_clock->rate() > 0.0);
    m_frame->setMin(frames.first);
    m_frame->setMax(frames.second);
    m_frame->setSuffix(tr(" / %1").arg(frames.second));
    m_rate->setText(ui::rateText(m_clock ? m_clock->rate() : 0.0));
    fitFields();
    showFrame();
}

void TransportBar::showFrame()
{
    const int frame = m_clock ? m_clock->frame() : 0;
    const double rate = m_clock ? m_clock->rate() : 0.0;
    const qint64 dropped = m_clock ? m_clock->droppedFrames() : 0;
    m_code->setRate(rate);
    m_code->setFrame(frame);
    m_shownFrame->show(frame);
    m_time->setText(ui::timeText(frame, rate));
    const int told = static_cast<int>(std::min<qint64>(dropped, std::numeric_limits<int>::max()));
    m_dropped->setText(dropped > 0 ? droppedText(told) : QString());
}

/// Room for the widest that can be shown.
void TransportBar::fitFields()
{
    const ui::FrameRange frames = m_clock ? m_clock->frameRange() : ui::FrameRange(0, 0);
    const qint64 first = std::min<qint64>(frames.first, kLeastReserved);
    const qint64 last = std::max<qint64>(frames.second, kLeastReserved);
    const qint64 longest = widest(std::abs(first) > last ? first : last);
    const double rate = m_clock && m_clock->rate() > 0.0 ? m_clock->rate() : kSlowRate;
    const QString time =
        ui::timeText(ui::saturatedFrame(static_cast<double>(longest)), std::min(rate, kSlowRate));
    const QString frame = QString::number(longest) + tr(" / %1").arg(widest(last));
    m_code->setMinimumWidth(m_code->sizeHint().width());
    m_frame->setFixedWidth(widthOf(*m_frame, frame) + 2 * kReadoutMargin);
    m_time->setMinimumWidth(widthOf(*m_time, time));
    m_dropped->setMinimumWidth(widthOf(*m_dropped, droppedText(kMostDropped)));
    m_rate->setMinimumWidth(widthOf(*m_rate, ui::rateText(kWidestRate)));
}

void TransportBar::changeEvent(QEvent* event)
{
    Widget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitFields();
    }
}

void TransportBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("SubUIBackground")));
}
