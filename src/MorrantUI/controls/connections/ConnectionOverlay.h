// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/connections/ConnectionStyle.h>

#include <QPointF>
#include <QRect>
#include <QWidget>

#include <optional>

/// What is seen of a connection being dragged, in global logical pixels.
struct ConnectionPicture
{
    QPointF start;
    QPointF end;
    ConnectionStyle style = ConnectionStyle::Line;
    std::optional<QRect> target; ///< the receiver's area, unless it marks its targets itself
    bool accepted = false;       ///< the target would take the connection
    double strength = 1.0;       ///< fades towards 0 after the end

    bool isRefused() const { return target && !accepted; }

    bool operator==(const ConnectionPicture&) const = default;
};

/// Draws a connection's line above everything else in one window. It lets all events through and
/// belongs to the window.
class ConnectionOverlay : public QWidget
{
    Q_OBJECT

public:
    /// @param window must not be null
    explicit ConnectionOverlay(QWidget* window);
    ~ConnectionOverlay() override;

    /// Whether a window should get an overlay: shown, and not a menu or a tool tip.
    static bool fits(const QWidget& window);

    /// Repaints what differs between the last picture and this one, and nothing else.
    void setPicture(const ConnectionPicture& picture);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintTarget(QPainter& painter) const;
    void paintCord(QPainter& painter) const;
    void paintEnds(QPainter& painter) const;
    ConnectionPicture toLocal(const ConnectionPicture& picture) const;

    std::optional<ConnectionPicture> m_picture; ///< in the overlay's coordinates
};
