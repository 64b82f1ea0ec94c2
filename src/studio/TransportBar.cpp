// SPDX-License-Identifier: Apache-2.0
#include "TransportBar.h"

#include "FrameSlider.h"
#include "Player.h"
#include "readouts.h"
#include <MorrantUI/canvas/canvasmapping.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/PendingValue.h>
#include <MorrantUI/docking/layouts/ScrollContainer.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/text/TimeCodeField.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/palettes.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolButton>

#include <cmath>

namespace studio {

namespace {

constexpr int kReadoutMargin = 6;
constexpr int kShortestSlider = 80;
constexpr double kPercent = 100;

} // namespace

TransportBar::TransportBar(
    Player& player, const QList<QAction*>& playback, const QList<QAction*>& view, QWidget* parent)
    : Widget(parent)
    , m_player(player)
    , m_layout(new QHBoxLayout)
    , m_slider(new FrameSlider(this))
    , m_code(new TimeCodeField(this))
{
    setWindowTitle(tr("Transport"));
    setLayoutDirection(Qt::LeftToRight); // as time goes, in the editors over it too
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* strip = new QWidget;
    strip->setLayout(m_layout);
    auto* around = new QHBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(new ScrollContainer(strip, Qt::Horizontal));
    m_layout->setContentsMargins(8, 5, 8, 5);
    m_layout->setSpacing(2);

    addButtons(playback);
    m_layout->addSpacing(10);
    m_layout->addWidget(m_code);
    m_frame = addField(tr("Current frame"), u"88888 / 88888"_qs);
    m_shownFrame = new PendingValue(m_frame);
    m_time = addReadout(tr("Current time"), timeText(88888, 24));
    m_layout->addSpacing(10);
    m_layout->addWidget(m_slider, 1);
    m_layout->addSpacing(10);
    m_dropped = addReadout(tr("Frames that came too late to be shown"), {});
    m_rate = addReadout(tr("Frame rate"), rateText(88.888));
    m_zoom = addField(tr("Zoom"), u"6400.0 %"_qs);
    m_shownZoom = new PendingValue(m_zoom);
    addButtons(view);
    connectFields();

    m_code->setMinimumWidth(m_code->sizeHint().width());
    m_code->setToolTip(tr("Time code of the current frame: hours, minutes, seconds, frames"));
    m_code->setAccessibleName(tr("Time code"));
    m_code->setContextMenuPolicy(Qt::NoContextMenu); // the bar's is the one to open
    connect(m_code, &TimeCodeField::frameEntered, &m_player, &Player::seek);
    m_slider->setMinimumWidth(kShortestSlider);
    m_slider->setFocusPolicy(Qt::NoFocus);
    m_slider->setAccessibleName(tr("Current frame"));
    connect(m_slider, &FrameSlider::valueChanged, this, &TransportBar::scrub);
    connect(m_slider, &FrameSlider::sliderPressed, &m_player, &Player::pause);
    connect(&m_player, &Player::trackChanged, this, &TransportBar::showTrack);
    connect(&m_player, &Player::frameChanged, this, &TransportBar::showFrame);
    connect(&m_player, &Player::playingChanged, this, &TransportBar::showFrame);
    showTrack();
    setZoom(1);
}

void TransportBar::connectFields()
{
    connect(m_frame, &NumericField::edited, this, [this](double frame) {
        m_shownFrame->forget();
        m_player.seek(qRound(frame));
    });
    connect(m_frame, &NumericField::dragStateChanged, &m_player, &Player::pause);
    m_zoom->setFieldType(NumericField::FloatingPoint);
    m_zoom->setMin(ui::CanvasZoom().least * kPercent);
    m_zoom->setMax(ui::CanvasZoom().most * kPercent);
    m_zoom->setSuffix(tr(" %"));
    connect(m_zoom, &NumericField::edited, this, [this](double percent) {
        m_shownZoom->forget();
        Q_EMIT zoomEntered(percent / kPercent);
    });
}

void TransportBar::setZoom(double scale)
{
    m_shownZoom->show(std::round(scale * kPercent * 10.0) / 10.0);
}

void TransportBar::fillMenu(ContextMenu& menu)
{
    menu.addAction(ui::getCachedIcon(u"icons:copy.png"_qs), tr("&Copy Time Code"), this, [this] {
        QGuiApplication::clipboard()->setText(m_code->code());
    });
    menu.addAction(tr("&Edit Time Code"), this, [this] {
        m_code->setFocus();
        m_code->selectAll();
    });
}

void TransportBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), ui::colorQt(QStringLiteral("SubUIBackground")));
}

void TransportBar::addButtons(const QList<QAction*>& actions)
{
    for (QAction* action : actions) {
        auto* button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        // Every button has a key of its own, and Space must reach the player.
        button->setFocusPolicy(Qt::NoFocus);
        m_layout->addWidget(button);
    }
}

/// @param widest reserves room, so that a running number moves nothing beside it
QLabel* TransportBar::addReadout(const QString& hint, const QString& widest)
{
    auto* label = new QLabel(this);
    label->setToolTip(hint);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setContentsMargins(kReadoutMargin, 0, kReadoutMargin, 0);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 2 * kReadoutMargin);
    m_layout->addWidget(label);
    return label;
}

/// A read-out that can be typed into, and scrubbed.
NumericField* TransportBar::addField(const QString& hint, const QString& widest)
{
    auto* field = new NumericField(0.0, this);
    field->setToolTip(hint);
    field->setAccessibleName(hint);
    field->setAlignment(Qt::AlignRight);
    field->setContextMenuPolicy(Qt::NoContextMenu); // the bar's is the one to open
    field->setFixedWidth(
        field->fontMetrics().horizontalAdvance(widest) + 2 * (kReadoutMargin + kReadoutMargin));
    m_layout->addWidget(field);
    return field;
}

void TransportBar::scrub(int frame)
{
    m_player.pause();
    m_player.seek(frame);
}

void TransportBar::showTrack()
{
    const QSignalBlocker blocker(m_slider);
    const FrameRange range = m_player.range();
    m_slider->setRange(range.first, range.last);
    m_slider->setPageStep(qMax(1, qRound(m_player.rate())));
    setEnabled(m_player.rate() > 0);
    m_code->cancel();
    m_frame->setMin(range.first);
    m_frame->setMax(range.last);
    m_frame->setSuffix(tr(" / %1").arg(range.last));
    m_frame->setValue(m_player.frame()); // what is being typed is about another track
    m_rate->setText(rateText(m_player.rate()));
    showFrame();
}

void TransportBar::showFrame()
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(m_player.frame());
    m_code->setRate(m_player.rate());
    m_code->setFrame(m_player.frame());
    m_shownFrame->show(m_player.frame());
    m_time->setText(timeText(m_player.frame(), m_player.rate()));

    const qint64 dropped = m_player.droppedFrames();
    m_dropped->setText(
        dropped > 0 ? tr("%n dropped", nullptr, static_cast<int>(dropped)) : QString());
}

} // namespace studio
