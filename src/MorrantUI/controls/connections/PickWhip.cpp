// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/connections/PickWhip.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr double kIconSize = 16.0; ///< logical pixels, as the icon was drawn
constexpr double kResting = 0.65;  ///< strength of the icon while the pointer is elsewhere

} // namespace

PickWhip::PickWhip(QWidget* parent)
    : RowButton(parent)
{
    describe();
}

PickWhip::~PickWhip()
{
    if (m_connection) {
        m_connection->disconnect(this);
        m_connection->cancel();
    }
}

void PickWhip::setSource(QObject* source, const QVariant& userData)
{
    m_source = source;
    m_userData = userData;
}

void PickWhip::setConnected(bool connected)
{
    if (m_connected != connected) {
        m_connected = connected;
        describe();
        update();
    }
}

ConnectionInstance* PickWhip::connection() const
{
    return m_connection && m_connection->isRunning() ? m_connection.data() : nullptr;
}

void PickWhip::mousePressEvent(QMouseEvent* event)
{
    m_pressed.reset();
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->position().toPoint();
    }
    RowButton::mousePressEvent(event);
}

void PickWhip::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed || !event->buttons().testFlag(Qt::LeftButton)) {
        event->ignore(); // after a drag it is no click either, wherever the pointer comes back to
        return;
    }
    const QPoint way = event->position().toPoint() - *m_pressed;
    if (way.manhattanLength() >= QApplication::startDragDistance()) {
        startConnection(event->globalPosition().toPoint());
    } else {
        RowButton::mouseMoveEvent(event);
    }
}

void PickWhip::paintMark(QPainter& painter)
{
    QColor color = palette().color(QPalette::ButtonText);
    if (m_connected || connection()) {
        color = ui::colorQt(QStringLiteral("ConnectorAccent"));
    } else if (isEnabled() && !underMouse()) {
        color = ui::style::translucent(color, kResting);
    }
    ui::drawMasked(
        painter,
        ui::style::centeredSquare(rect(), kIconSize),
        ui::namedIcon(QStringLiteral("icons:pickWhip.png")),
        color,
        isEnabled());
}

void PickWhip::changeEvent(QEvent* event)
{
    RowButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        describe();
    }
}

void PickWhip::describe()
{
    if (toolTip() == m_ownToolTip) {
        m_ownToolTip = tr("Drag to what this is to be connected with");
        setToolTip(m_ownToolTip);
    }
    setAccessibleDescription(m_connected ? tr("Connected") : QString());
}

void PickWhip::startConnection(QPoint globalPosition)
{
    m_pressed.reset();
    setDown(false); // the release is no click
    const QPointer<ConnectionInstance> started =
        ConnectionInstance::start(this, rect().center(), m_source, m_userData);
    if (!started) {
        return;
    }
    m_connection = started;
    connect(started, &ConnectionInstance::finished, this, [this](ConnectionInstance::State state) {
        update();
        Q_EMIT connectionFinished(state);
    });
    update();
    Q_EMIT connectionStarted(started);
    if (started) {
        started->moveTo(globalPosition);
    }
}
