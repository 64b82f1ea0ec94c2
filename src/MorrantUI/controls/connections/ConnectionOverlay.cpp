// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/ConnectionOverlay.h"

#include "MorrantUI/controls/connections/connectiongeometry.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QEvent>
#include <QPainter>
#include <QSplitter>

using ui::style::translucent;

namespace {

// Logical pixels.
constexpr double kCordWidth = 2.0;
constexpr double kHaloWidth = 4.0; ///< darkens the ground beside the cord
constexpr double kAnchorRadius = 4.0;
constexpr double kEndRadius = 3.5;
constexpr double kTargetRingRadius = 6.5;
constexpr double kReach = 9.0; ///< of everything drawn around the cord and its ends
constexpr int kFrameWidth = 2;

constexpr double kHaloStrength = 0.4;
constexpr double kTargetFill = 0.12;

QColor accent()
{
    return ui::colorQt(QStringLiteral("ConnectorAccent"));
}

QColor anchor()
{
    return ui::colorQt(QStringLiteral("ConnectorAnchor"));
}

QColor halo()
{
    return translucent(ui::colorQt(QStringLiteral("Black")), kHaloStrength);
}

/// The frame that the picture shows around its target, if any: outside, to cover nothing of it.
std::optional<QRect> frame(const ConnectionPicture& picture)
{
    if (!picture.target || picture.isRefused()) {
        return std::nullopt;
    }
    return picture.target->marginsAdded(QMargins() + kFrameWidth);
}

QRegion area(const ConnectionPicture& picture)
{
    return ui::ConnectionCurve{picture.start, picture.end}.region(kReach);
}

} // namespace

ConnectionOverlay::ConnectionOverlay(QWidget* window)
    : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(window->rect());
    window->installEventFilter(this);
    show();
    raise();
}

ConnectionOverlay::~ConnectionOverlay() = default;

bool ConnectionOverlay::fits(const QWidget& window)
{
    switch (window.windowType()) {
    case Qt::Popup:
    case Qt::ToolTip:
    case Qt::SplashScreen:
    case Qt::Desktop: return false;
    default: break;
    }
    // A splitter makes a pane of every child.
    const bool isSplitter = qobject_cast<const QSplitter*>(&window) != nullptr;
    return !isSplitter && window.isVisible() && !window.isMinimized();
}

void ConnectionOverlay::setPicture(const ConnectionPicture& picture)
{
    const ConnectionPicture local = toLocal(picture);
    if (m_picture == local) {
        return;
    }
    QRegion changed = area(local);
    const auto newFrame = frame(local);
    const auto oldFrame = m_picture ? frame(*m_picture) : std::nullopt;
    const bool fades = m_picture && m_picture->strength != local.strength;
    if (m_picture) {
        changed += area(*m_picture);
    }
    if (newFrame != oldFrame || fades) {
        changed += newFrame.value_or(QRect());
        changed += oldFrame.value_or(QRect());
    }
    m_picture = local;
    changed &= rect();
    if (!changed.isEmpty()) {
        update(changed);
    }
}

bool ConnectionOverlay::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return false;
}

void ConnectionOverlay::paintEvent(QPaintEvent* /*event*/)
{
    if (!m_picture) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_picture->strength);
    paintTarget(painter);
    paintCord(painter);
    paintEnds(painter);
}

void ConnectionOverlay::paintTarget(QPainter& painter) const
{
    if (const auto target = frame(*m_picture)) {
        // Where the target reaches the window's edge the frame stays inside.
        const QRectF shown = target->intersected(rect());
        const double radius = ui::style::kRadius + kFrameWidth;
        ui::style::fillRounded(painter, shown, radius, translucent(accent(), kTargetFill));
        ui::style::strokeRounded(painter, shown, radius, accent(), kFrameWidth);
    }
}

void ConnectionOverlay::paintCord(QPainter& painter) const
{
    const QPainterPath path = ui::ConnectionCurve{m_picture->start, m_picture->end}.path();
    painter.strokePath(path, QPen(halo(), kHaloWidth, Qt::SolidLine, Qt::RoundCap));
    QPen cord(
        m_picture->isRefused() ? anchor() : accent(), kCordWidth, Qt::SolidLine, Qt::RoundCap);
    if (m_picture->style == ConnectionStyle::Dashed) {
        cord.setDashPattern({3.0, 2.5}); // in widths of the cord
    }
    painter.strokePath(path, cord);
}

void ConnectionOverlay::paintEnds(QPainter& painter) const
{
    const auto disc = [&](const QPointF& center, double radius, const QColor& fill) {
        painter.setPen(QPen(halo(), 1.0));
        painter.setBrush(fill);
        painter.drawEllipse(center, radius, radius);
    };
    disc(m_picture->start, kAnchorRadius, anchor());
    if (m_picture->isRefused()) {
        disc(m_picture->end, kTargetRingRadius, anchor());
        QRectF mark(0, 0, 12, 12);
        mark.moveCenter(m_picture->end);
        ui::style::drawCross(painter, mark, ui::colorQt(QStringLiteral("Black")));
        return;
    }
    disc(m_picture->end, kEndRadius, accent());
    if (m_picture->target) {
        painter.setPen(QPen(accent(), 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(m_picture->end, kTargetRingRadius, kTargetRingRadius);
    }
}

ConnectionPicture ConnectionOverlay::toLocal(const ConnectionPicture& picture) const
{
    ConnectionPicture local = picture;
    local.start = mapFromGlobal(picture.start);
    local.end = mapFromGlobal(picture.end);
    if (picture.target) {
        local.target = QRect(mapFromGlobal(picture.target->topLeft()), picture.target->size());
    }
    return local;
}
