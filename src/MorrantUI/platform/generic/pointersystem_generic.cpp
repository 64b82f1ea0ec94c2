// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/PointerSystem.h"

#include <QCursor>
#include <QGuiApplication>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace morrant::native {

namespace {

struct Free
{
    void operator()(void* reply) const { std::free(reply); } // xcb replies come from malloc
};

template <typename Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

/// The pointer of the X server. Requests go over Qt's own connection, in order with Qt's.
class X11Pointer final : public PointerSystem
{
public:
    Drive drive() const override { return Drive::Warps; }

    std::optional<QPoint> position() const override
    {
        auto* const x11 = connection();
        if (!x11) {
            return {};
        }
        const ReplyPointer<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(x11, xcb_query_pointer(x11, root()), nullptr));
        return reply ? std::optional(QPoint(reply->root_x, reply->root_y)) : std::nullopt;
    }

    bool setPosition(QPoint position) override
    {
        if (connection()) {
            warp(root(), position);
        }
        return true; // the server answers later, if at all
    }

    QPoint logicalPosition() const override { return QCursor::pos(); }

    void setLogicalPosition(QPoint position) override { QCursor::setPos(position); }

    QPointF moveBy(QPointF offset, double ratio) override
    {
        const QPoint pixels = (offset * ratio).toPoint();
        const auto before = position();
        warp(XCB_WINDOW_NONE, pixels); // relative to where the server has the pointer by then
        const auto after = position();
        // Some servers are the guests of a system that lets nobody move its pointer.
        const bool refused = !before || !after
                             || (*after - *before).manhattanLength() < pixels.manhattanLength() / 2;
        return refused ? QPointF() : QPointF(pixels) / ratio;
    }

    std::optional<QRect> windowFrame(const QWidget& widget) const override
    {
        auto* const x11 = connection();
        const auto window = static_cast<xcb_window_t>(widget.window()->internalWinId());
        if (!x11 || window == XCB_WINDOW_NONE) {
            return {};
        }
        const auto sizeCookie = xcb_get_geometry(x11, window);
        const auto placeCookie = xcb_translate_coordinates(x11, window, root(), 0, 0);
        const ReplyPointer<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(x11, sizeCookie, nullptr));
        const ReplyPointer<xcb_translate_coordinates_reply_t> place(
            xcb_translate_coordinates_reply(x11, placeCookie, nullptr));
        if (!size || !place) {
            return {};
        }
        return QRect(place->dst_x, place->dst_y, size->width, size->height);
    }

    bool confine(const QRect& rect) override
    {
        endConfinement();
        if (!connection() || !hasFixes()) {
            return true;
        }
        const QPoint first = rect.topLeft();
        const QPoint last = rect.bottomRight();
        // Each lets through what moves inwards.
        using Direction = xcb_xfixes_barrier_directions_t;
        addBarrier(
            first, {first.x(), last.y()}, Direction(XCB_XFIXES_BARRIER_DIRECTIONS_POSITIVE_X));
        addBarrier(
            {last.x(), first.y()}, last, Direction(XCB_XFIXES_BARRIER_DIRECTIONS_NEGATIVE_X));
        addBarrier(
            first, {last.x(), first.y()}, Direction(XCB_XFIXES_BARRIER_DIRECTIONS_POSITIVE_Y));
        addBarrier(
            {first.x(), last.y()}, last, Direction(XCB_XFIXES_BARRIER_DIRECTIONS_NEGATIVE_Y));
        xcb_flush(connection());
        return true;
    }

    bool endConfinement() override
    {
        auto* const x11 = connection();
        for (const xcb_xfixes_barrier_t barrier : std::exchange(m_barriers, {})) {
            if (x11) {
                xcb_xfixes_delete_pointer_barrier(x11, barrier);
            }
        }
        if (x11) {
            xcb_flush(x11);
        }
        return true;
    }

    void hide() override
    {
        if (connection() && hasFixes()) {
            xcb_xfixes_hide_cursor(connection(), root());
            xcb_flush(connection());
        }
    }

    void show() override
    {
        if (connection() && hasFixes()) {
            xcb_xfixes_show_cursor(connection(), root());
            xcb_flush(connection());
        }
    }

private:
    /// Null when the application has gone.
    static xcb_connection_t* connection()
    {
        const auto* x11 =
            qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
        return x11 ? x11->connection() : nullptr;
    }

    static xcb_window_t root()
    {
        return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
    }

    static void warp(xcb_window_t to, QPoint place)
    {
        if (auto* const x11 = connection()) {
            xcb_warp_pointer(
                x11,
                XCB_WINDOW_NONE,
                to,
                0,
                0,
                0,
                0,
                static_cast<std::int16_t>(place.x()),
                static_cast<std::int16_t>(place.y()));
            xcb_flush(x11);
        }
    }

    /// Whether the server hides pointers and knows barriers; it must be asked before either.
    static bool hasFixes()
    {
        constexpr std::uint32_t kWithBarriers = 5;
        auto* const x11 = connection();
        static const bool has = [x11] {
            const auto* extension = xcb_get_extension_data(x11, &xcb_xfixes_id);
            if (!extension || !extension->present) {
                return false;
            }
            const ReplyPointer<xcb_xfixes_query_version_reply_t> version(
                xcb_xfixes_query_version_reply(
                    x11, xcb_xfixes_query_version(x11, kWithBarriers, 0), nullptr));
            return version && version->major_version >= kWithBarriers;
        }();
        return has;
    }

    void addBarrier(QPoint from, QPoint to, xcb_xfixes_barrier_directions_t letsThrough)
    {
        auto* const x11 = connection();
        const std::uint32_t id = xcb_generate_id(x11);
        const auto clamped = [](int value) {
            return static_cast<std::uint16_t>(std::max(0, value));
        };
        xcb_xfixes_create_pointer_barrier(
            x11,
            id,
            root(),
            clamped(from.x()),
            clamped(from.y()),
            clamped(to.x()),
            clamped(to.y()),
            letsThrough,
            0,
            nullptr);
        m_barriers.push_back(id);
    }

    std::vector<xcb_xfixes_barrier_t> m_barriers;
};

} // namespace

std::unique_ptr<PointerSystem> makePointerSystem()
{
    if (QGuiApplication::platformName() != u"xcb") {
        return nullptr;
    }
    return std::make_unique<X11Pointer>();
}

} // namespace morrant::native
