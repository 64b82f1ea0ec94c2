// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windowsystem.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

/// X11 through properties and messages to the window manager. Under Wayland, and off screen, there
/// is no connection and nothing happens: those leave stacking and title bars to the compositor.
namespace morrant::native::system {

namespace {

struct Free
{
    void operator()(void* reply) const { std::free(reply); } // xcb replies come from malloc
};

template <typename Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

/// One window on the X server. Requests are queued on Qt's own connection, so that they reach the
/// server in order with Qt's.
class X11Window
{
public:
    explicit X11Window(const QWindow& window)
        : m_id(static_cast<xcb_window_t>(window.winId()))
    {
        if (const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()) {
            m_connection = x11->connection();
        }
    }

    explicit operator bool() const { return m_connection; }

    xcb_window_t id() const { return m_id; }

    xcb_atom_t atom(std::string_view name) const
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.data());
        const ReplyPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    void setText(std::string_view property, std::string_view text) const
    {
        set(atom(property), atom("UTF8_STRING"), 8, text.size(), text.data());
    }

    void setWindow(xcb_atom_t property, xcb_window_t other) const
    {
        set(property, XCB_ATOM_WINDOW, 32, 1, &other);
    }

    void setAtoms(xcb_atom_t property, const std::vector<xcb_atom_t>& atoms) const
    {
        set(property, XCB_ATOM_ATOM, 32, atoms.size(), atoms.data());
    }

    std::vector<xcb_atom_t> atoms(xcb_atom_t property) const
    {
        constexpr uint32_t kMaxAtoms = 1024;
        const auto cookie =
            xcb_get_property(m_connection, 0, m_id, property, XCB_ATOM_ATOM, 0, kMaxAtoms);
        const ReplyPointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection, cookie, nullptr));
        if (!reply || reply->format != 32) {
            return {};
        }
        const auto* first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

    /// Asks the window manager, which owns the states of the windows it shows.
    void requestState(xcb_atom_t property, xcb_atom_t state, bool on) const
    {
        constexpr uint32_t kFromApplication = 1;
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_id;
        message.type = property;
        message.data.data32[0] = on ? 1 : 0;
        message.data.data32[1] = state;
        message.data.data32[3] = kFromApplication;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xcb_send_event(
            m_connection,
            0,
            root,
            XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
            reinterpret_cast<const char*>(&message));
        xcb_flush(m_connection);
    }

    bool isMapped() const
    {
        const ReplyPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, m_id), nullptr));
        return reply && reply->map_state != XCB_MAP_STATE_UNMAPPED;
    }

private:
    void set(
        xcb_atom_t property,
        xcb_atom_t type,
        uint8_t bits,
        std::size_t count,
        const void* data) const
    {
        xcb_change_property(
            m_connection,
            XCB_PROP_MODE_REPLACE,
            m_id,
            property,
            type,
            bits,
            static_cast<uint32_t>(count),
            data);
        xcb_flush(m_connection);
    }

    xcb_window_t m_id;
    xcb_connection_t* m_connection = nullptr;
};

} // namespace

void setDarkTitleBar(QWindow& window)
{
    // The property has a toolkit's name, but it is what window managers look at.
    if (const X11Window x11(window); x11) {
        x11.setText("_GTK_THEME_VARIANT", "dark");
    }
}

void setOwner(QWindow& window, QWindow& owner)
{
    // Qt tells the window manager about the owner of dialogs and tool windows only.
    if (const X11Window x11(window); x11) {
        x11.setWindow(XCB_ATOM_WM_TRANSIENT_FOR, X11Window(owner).id());
    }
}

void setAlwaysOnTop(QWindow& window, bool on)
{
    const X11Window x11(window);
    if (!x11) {
        return;
    }
    const xcb_atom_t property = x11.atom("_NET_WM_STATE");
    const xcb_atom_t above = x11.atom("_NET_WM_STATE_ABOVE");
    if (x11.isMapped()) {
        x11.requestState(property, above, on);
        return;
    }
    // A window that is not shown yet states its wishes in the property itself; Qt adds its own to
    // them when it shows the window.
    auto states = x11.atoms(property);
    std::erase(states, above);
    if (on) {
        states.push_back(above);
    }
    x11.setAtoms(property, states);
}

namespace {

/// The windows on the X server as they lie, the lowest first: as the window manager tells, or
/// without one as the root window has them.
std::vector<xcb_window_t> stackedWindows(xcb_connection_t* connection)
{
    constexpr std::string_view kStacking = "_NET_CLIENT_LIST_STACKING";
    constexpr uint32_t kMaxWindows = 4096;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const ReplyPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 1, static_cast<uint16_t>(kStacking.size()), kStacking.data()),
        nullptr));
    if (atom && atom->atom != XCB_ATOM_NONE) {
        const ReplyPointer<xcb_get_property_reply_t> list(xcb_get_property_reply(
            connection,
            xcb_get_property(connection, 0, root, atom->atom, XCB_ATOM_WINDOW, 0, kMaxWindows),
            nullptr));
        if (list && list->format == 32 && list->value_len > 0) {
            const auto* first =
                static_cast<const xcb_window_t*>(xcb_get_property_value(list.get()));
            return {first, first + list->value_len};
        }
    }
    const ReplyPointer<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr));
    if (!tree) {
        return {};
    }
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

} // namespace

QWindowList windowsFromTop()
{
    QWindowList windows = QGuiApplication::topLevelWindows();
    std::reverse(windows.begin(), windows.end());
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || QGuiApplication::platformName() != u"xcb") { // off screen Qt may know a server too
        return windows;
    }
    const std::vector<xcb_window_t> stacked = stackedWindows(x11->connection());
    const auto height = [&stacked](const QWindow* window) {
        const auto id = window->handle() ? static_cast<xcb_window_t>(window->winId()) : 0;
        return std::find(stacked.rbegin(), stacked.rend(), id) - stacked.rbegin();
    };
    std::stable_sort(windows.begin(), windows.end(), [&](const QWindow* a, const QWindow* b) {
        return height(a) < height(b);
    });
    return windows;
}

} // namespace morrant::native::system
