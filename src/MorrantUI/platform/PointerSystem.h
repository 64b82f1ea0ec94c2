// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/platform/RawMouseRecord.h>

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

// Tests put another system in place; a library that is built without them keeps this to itself.
#ifdef MORRANT_EXPORT_FOR_TESTS
#define MORRANT_POINTER_SYSTEM_EXPORT MORRANT_UI_EXPORT
#else
#define MORRANT_POINTER_SYSTEM_EXPORT
#endif

namespace morrant::native {

/// Who receives raw mouse input, as Windows remembers it for the process.
struct RawRegistration
{
    static constexpr quint32 kInputSink = 0x100; ///< in flags: in the background too

    quint32 flags = kInputSink;
    WId window = 0; ///< 0 follows the focus

    bool operator==(const RawRegistration&) const = default;
};

/// What we need of the system's pointer; a thin layer, everything clever lies above it. Each
/// system's folder has one, and tests put in one of their own. What a system cannot do is left
/// undone, which is no failure; calls that tell of one leave its reason in lastError().
///
/// Coordinates are physical pixels of the desktop unless a remark tells otherwise.
class MORRANT_POINTER_SYSTEM_EXPORT PointerSystem
{
public:
    /// What can drive a drag that does not end at the screen's edge.
    enum class Drive
    {
        Moves,    ///< nothing: it does end there
        Warps,    ///< the pointer can be moved
        RawInput, ///< and reports motion of its own
    };

    PointerSystem() = default;
    virtual ~PointerSystem();
    Q_DISABLE_COPY_MOVE(PointerSystem)

    /// The system's, or what a test has put in its place.
    static PointerSystem& instance();
    /// Puts another in place, which must outlive its use; null gives the system's back.
    static void replace(PointerSystem* other);

    virtual Drive drive() const { return Drive::Moves; }
    /// Whether the pointer is somebody's at another desk, who would not feel it held. It may change
    /// while the program runs.
    virtual bool isRemote() const { return false; }

    virtual std::optional<QPoint> position() const { return {}; }
    virtual bool setPosition(QPoint /*position*/) { return true; }
    /// Why the last call failed, as the system numbers it.
    virtual quint32 lastError() const { return 0; }

    /// The same in Qt's global, logical pixels.
    virtual QPoint logicalPosition() const { return {}; }
    virtual void setLogicalPosition(QPoint /*position*/) {}
    /// Moves the pointer from where it is when the system gets to it, so that no motion is lost.
    /// @param offset  logical pixels
    /// @param ratio   physical pixels in a logical one
    /// @return the offset by which it has moved, after rounding; null when the system refused
    virtual QPointF moveBy(QPointF /*offset*/, double /*ratio*/) { return {}; }

    /// The frame of a widget's window; none without a native window. A failure is logged.
    virtual std::optional<QRect> windowFrame(const QWidget& /*widget*/) const { return {}; }

    virtual bool confine(const QRect& /*rect*/) { return true; }
    virtual bool endConfinement() { return true; }

    virtual void hide() {}
    virtual void show() {}

    virtual std::optional<RawRegistration> rawInput() const { return {}; }
    virtual bool registerRawInput(const RawRegistration& /*registration*/) { return false; }
    virtual void unregisterRawInput() {}
    /// Calls `sink` when a native event is raw mouse input.
    virtual void readRawInput(
        const QByteArray& /*type*/,
        void* /*message*/,
        const std::function<void(const ui::RawMouseRecord&)>& /*sink*/)
    {}

    virtual QSize primaryScreenSize() const { return {}; }
    virtual QSize virtualDesktopSize() const { return {}; }
};

/// Logs why a call of the pointer system has failed.
/// @param success  what the call has told
/// @return the same
bool logFailure(bool success);

/// The pointer's position; a failure is logged.
std::optional<QPoint> pointerPosition();

/// This system's own pointer; null where Qt draws somewhere else than on the system's desktop. Each
/// system's folder has one.
std::unique_ptr<PointerSystem> makePointerSystem();

} // namespace morrant::native
