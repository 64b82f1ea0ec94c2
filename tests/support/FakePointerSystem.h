// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/PointerSystem.h"

#include <QString>

#include <deque>
#include <random>
#include <utility>

namespace ui::test {

/// A desktop's pointer without a desktop. While it lives it stands in for the system's; it plays
/// the mouse, obeys what the library asks of it, and remembers that word for word.
class FakePointerSystem final : public morrant::native::PointerSystem
{
public:
    using Registration = morrant::native::RawRegistration;

    explicit FakePointerSystem(Drive drive);
    ~FakePointerSystem() override;

    QPoint pointer;              ///< physical pixels
    QRect frame{0, 0, 300, 200}; ///< of every window
    std::optional<QRect> clip;   ///< where the pointer is confined to
    int hides = 0;               ///< less shows
    std::optional<Registration> registration;

    bool remote = false;
    bool knowsPosition = true;
    bool allowsRawInput = true;
    bool succeeds = true;    ///< in moving and confining the pointer, which it does in any case
    bool allowsWarps = true; ///< of X11 servers, some do not

    /// What the library asked since the last call: "confine 15,15 270x170; register; hide".
    QString takeRequests() { return std::exchange(m_requests, {}); }

    /// Nothing of the library's in force.
    bool isFree() const { return hides == 0 && !clip && !registration; }

    /// Raw input: a motion of a mouse, or a record of any kind, arrives as a native event.
    void moveRaw(QPoint delta);
    static void sendRaw(ui::RawMouseRecord record);

    /// Warps: the mouse moves, and the window system queues that.
    void moveMouse(QPoint delta);
    /// The queued positions, without those that the system left out for having others behind them.
    std::deque<QPoint> takePositions(std::mt19937& random);

    Drive drive() const override { return m_drive; }
    bool isRemote() const override { return remote; }
    std::optional<QPoint> position() const override;
    bool setPosition(QPoint position) override;
    quint32 lastError() const override { return 5; }
    QPoint logicalPosition() const override { return pointer; }
    void setLogicalPosition(QPoint position) override { setPosition(position); }
    QPointF moveBy(QPointF offset, double ratio) override;
    std::optional<QRect> windowFrame(const QWidget&) const override { return frame; }
    bool confine(const QRect& rect) override;
    bool endConfinement() override;
    void hide() override;
    void show() override;
    std::optional<Registration> rawInput() const override { return registration; }
    bool registerRawInput(const Registration& wanted) override;
    void unregisterRawInput() override;
    void readRawInput(
        const QByteArray& type,
        void* message,
        const std::function<void(const ui::RawMouseRecord&)>& sink) override;
    QSize primaryScreenSize() const override { return {1600, 1000}; }
    QSize virtualDesktopSize() const override { return {3200, 1000}; }

private:
    void note(const QString& request);
    void setPointer(QPoint position);

    Drive m_drive;
    QString m_requests;
    std::deque<QPoint> m_positions; ///< not delivered yet
};

} // namespace ui::test
