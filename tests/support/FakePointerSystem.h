// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/platform/PointerSystem.h"

#include <QAbstractEventDispatcher>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace ui::test {

/// A desktop's pointer without a desktop. While it lives it stands in for the system's; it plays
/// the mouse, obeys what the library asks of it, and remembers that word for word.
class FakePointerSystem final : public morrant::native::PointerSystem
{
public:
    using Registration = morrant::native::RawRegistration;

    explicit FakePointerSystem(Drive drive)
        : m_drive(drive)
    {
        replace(this);
    }
    ~FakePointerSystem() override { replace(nullptr); }

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
    QString takeRequests() { return std::exchange(m_requests, {}).join(QStringLiteral("; ")); }

    /// Nothing of the library's in force.
    bool isFree() const { return hides == 0 && !clip && !registration; }

    /// Raw input: a motion of a mouse, or a record of any kind, arrives as a native event.
    void moveRaw(QPoint delta)
    {
        setPointer(pointer + delta);
        sendRaw({.x = delta.x(), .y = delta.y()});
    }
    static void sendRaw(ui::RawMouseRecord record)
    {
        QAbstractEventDispatcher::instance()->filterNativeEvent(kRawRecord, &record, nullptr);
    }

    /// Warps: the mouse moves, and the window system tells of it.
    void moveMouse(QPoint delta) { m_positions.push_back(pointer += delta); }
    std::vector<QPoint> takePositions() { return std::exchange(m_positions, {}); }

    Drive drive() const override { return m_drive; }
    bool isRemote() const override { return remote; }
    std::optional<QPoint> position() const override
    {
        return knowsPosition ? std::optional(pointer) : std::nullopt;
    }
    bool setPosition(QPoint position) override
    {
        m_requests << u"move to %1,%2"_qs.arg(position.x()).arg(position.y());
        setPointer(position);
        return succeeds;
    }
    quint32 lastError() const override { return 5; }
    QPoint logicalPosition() const override { return pointer; }
    void setLogicalPosition(QPoint position) override { setPosition(position); }
    QPointF moveBy(QPointF offset, double /*ratio*/) override
    {
        if (!allowsWarps) {
            return {};
        }
        moveMouse(offset.toPoint()); // the window system tells of it as of any motion
        return offset;
    }
    std::optional<QRect> windowFrame(const QWidget&) const override { return frame; }
    bool confine(const QRect& to) override
    {
        const QString place = u"%1,%2 %3x%4"_qs.arg(to.x()).arg(to.y());
        m_requests << u"confine "_qs + place.arg(to.width()).arg(to.height());
        clip = to;
        setPointer(pointer);
        return succeeds;
    }
    bool endConfinement() override
    {
        m_requests << u"end confinement"_qs;
        clip.reset();
        return succeeds;
    }
    void hide() override
    {
        m_requests << u"hide"_qs;
        ++hides;
    }
    void show() override
    {
        m_requests << u"show"_qs;
        --hides;
    }
    std::optional<Registration> rawInput() const override { return registration; }
    bool registerRawInput(const Registration& wanted) override
    {
        m_requests << u"register"_qs;
        registration = allowsRawInput ? std::optional(wanted) : registration;
        return allowsRawInput;
    }
    void unregisterRawInput() override
    {
        m_requests << u"unregister"_qs;
        registration.reset();
    }
    void readRawInput(
        const QByteArray& type,
        void* message,
        const std::function<void(const ui::RawMouseRecord&)>& sink) override
    {
        type == kRawRecord ? sink(*static_cast<const ui::RawMouseRecord*>(message)) : void();
    }
    QSize primaryScreenSize() const override { return {1600, 1000}; }
    QSize virtualDesktopSize() const override { return {3200, 1000}; }

private:
    inline static const QByteArray kRawRecord = QByteArrayLiteral("fake_raw_record");

    void setPointer(QPoint position)
    {
        pointer = position;
        if (clip) {
            pointer.setX(std::clamp(position.x(), clip->left(), clip->right()));
            pointer.setY(std::clamp(position.y(), clip->top(), clip->bottom()));
        }
    }

    Drive m_drive;
    QStringList m_requests;
    std::vector<QPoint> m_positions; ///< not delivered yet
};

} // namespace ui::test
