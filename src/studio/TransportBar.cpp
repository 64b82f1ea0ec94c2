// SPDX-License-Identifier: Apache-2.0
#include "TransportBar.h"

#include "FrameSlider.h"
#include "Player.h"
#include "readouts.h"
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

namespace studio {

namespace {

constexpr int kReadoutMargin = 6;

} // namespace

TransportBar::TransportBar(
    Player& player, const QList<QAction*>& playback, const QList<QAction*>& view, QWidget* parent)
    : Widget(parent)
    , m_player(player)
    , m_layout(new QHBoxLayout(this))
    , m_slider(new FrameSlider(this))
    , m_code(new TimeCodeField(this))
{
    setWindowTitle(tr("Transport"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(8, 5, 8, 5);
    m_layout->setSpacing(2);

    addButtons(playback);
    m_layout->addSpacing(10);
    m_layout->addWidget(m_code);
    m_frame = addReadout(tr("Current frame and the last frame"), frameText(88888, 88888));
    m_time = addReadout(tr("Current time"), timeText(88888, 24));
    m_layout->addSpacing(10);
    m_layout->addWidget(m_slider, 1);
    m_layout->addSpacing(10);
    m_dropped = addReadout(tr("Frames that came too late to be shown"), {});
    m_rate = addReadout(tr("Frame rate"), rateText(88.888));
    m_zoom = addReadout(tr("Zoom"), zoomText(8.88));
    addButtons(view);

    m_code->setToolTip(tr("Time code of the current frame: hours, minutes, seconds, frames"));
    m_code->setAccessibleName(tr("Time code"));
    m_code->setContextMenuPolicy(Qt::NoContextMenu); // the bar's is the one to open
    connect(m_code, &TimeCodeField::frameEntered, &m_player, &Player::seek);
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

void TransportBar::setZoom(double scale)
{
    m_zoom->setText(zoomText(scale));
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
    m_rate->setText(rateText(m_player.rate()));
    showFrame();
}

void TransportBar::showFrame()
{
    const QSignalBlocker blocker(m_slider);
    m_slider->setValue(m_player.frame());
    m_code->setRate(m_player.rate());
    m_code->setFrame(m_player.frame());
    m_frame->setText(frameText(m_player.frame(), m_player.range().last));
    m_time->setText(timeText(m_player.frame(), m_player.rate()));

    const qint64 dropped = m_player.droppedFrames();
    m_dropped->setText(
        dropped > 0 ? tr("%n dropped", nullptr, static_cast<int>(dropped)) : QString());
}

} // namespace studio
