// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/ConnectionLine.h"

#include "MorrantUI/controls/connections/connectiongeometry.h"

#include <QApplication>
#include <QStyle>
#include <QVariantAnimation>

#include <algorithm>

namespace {

constexpr double kMargin = 16.0; ///< logical pixels, more than anything is drawn beside the line

} // namespace

ConnectionLine::ConnectionLine(QPoint start, QObject* parent)
    : QObject(parent)
{
    m_picture.start = start;
    m_picture.end = start;
}

ConnectionLine::~ConnectionLine()
{
    takeDown();
}

void ConnectionLine::takeDown()
{
    for (const auto& overlay : m_overlays) {
        if (overlay && QCoreApplication::instance()) {
            overlay->hide();
            overlay->deleteLater(); // it may be in one of its own events
        }
    }
    m_overlays.clear();
}

void ConnectionLine::show(const ConnectionPicture& picture)
{
    m_picture = picture;
    coverWindows();
    for (const auto& overlay : m_overlays) {
        if (overlay) {
            overlay->setPicture(picture);
        }
    }
}

void ConnectionLine::drawBack(const std::function<QPoint()>& start)
{
    ConnectionPicture last = m_picture;
    last.style = ConnectionStyle::Line;
    last.target.reset();
    last.accepted = false;
    animate([last, start](double share) {
        ConnectionPicture picture = last;
        picture.start = start();
        picture.end += (picture.start - picture.end) * share;
        return picture;
    });
}

void ConnectionLine::fade()
{
    animate([last = m_picture](double share) {
        ConnectionPicture picture = last;
        picture.strength = 1.0 - share;
        return picture;
    });
}

void ConnectionLine::animate(const std::function<ConnectionPicture(double share)>& pictureAt)
{
    const int duration = qApp->style()->styleHint(QStyle::SH_Widget_Animation_Duration);
    auto* animation = new QVariantAnimation(this);
    animation->setDuration(std::max(0, duration));
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(
        animation,
        &QVariantAnimation::valueChanged,
        this,
        [this, pictureAt](const QVariant& share) { show(pictureAt(share.toDouble())); });
    connect(animation, &QVariantAnimation::finished, this, [this] {
        takeDown();
        Q_EMIT gone();
    });
    animation->start();
}

void ConnectionLine::coverWindows()
{
    const ui::ConnectionCurve curve{m_picture.start, m_picture.end};
    const QRect reach = curve.path().boundingRect().toAlignedRect().marginsAdded(
        QMargins() + static_cast<int>(kMargin));
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const bool isCovered =
            std::any_of(m_overlays.begin(), m_overlays.end(), [window](const auto& overlay) {
                return overlay && overlay->parentWidget() == window;
            });
        if (!isCovered && ConnectionOverlay::fits(*window) && reach.intersects(window->geometry()))
        {
            m_overlays.emplace_back(new ConnectionOverlay(window)); // the window owns it
        }
    }
}
