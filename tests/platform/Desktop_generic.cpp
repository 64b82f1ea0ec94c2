#include "Desktop.h"

#include <QGuiApplication>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/xcb.h>

namespace ui::test {

/// A second client of the X server, beside Qt.
class Desktop::Connection
{
public:
    Connection()
        : m_xcb(xcb_connect(nullptr, nullptr))
    {
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data->root;
        xcb_change_window_attributes(m_xcb, root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_xcb);
    }

    ~Connection() { xcb_disconnect(m_xcb); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    xcb_atom_t atom(const char* name) const
    {
        auto* reply = xcb_intern_atom_reply(
            m_xcb,
            xcb_intern_atom(m_xcb, 0, static_cast<uint16_t>(std::strlen(name)), name),
            nullptr);
        const xcb_atom_t atom = reply->atom;
        std::free(reply);
        return atom;
    }

    template <typename Value>
    std::vector<Value> property(xcb_window_t window, xcb_atom_t name) const
    {
        auto* reply = xcb_get_property_reply(
            m_xcb, xcb_get_property(m_xcb, 0, window, name, XCB_ATOM_ANY, 0, 256), nullptr);
        if (!reply) {
            return {}; // the request was about a window that is gone by now
        }
        const auto* first = static_cast<const Value*>(xcb_get_property_value(reply));
        const std::vector<Value> values(first, first + reply->value_len);
        std::free(reply);
        return values;
    }

    void deleteProperty(xcb_window_t window, xcb_atom_t name)
    {
        xcb_delete_property(m_xcb, window, name);
        std::free(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
    }

    /// What a window manager does with the requests that have come in: _NET_WM_STATE is its to
    /// write.
    void grantRequests()
    {
        std::free(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr));
        while (auto* event = xcb_poll_for_event(m_xcb)) {
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                grant(*reinterpret_cast<xcb_client_message_event_t*>(event));
            }
            std::free(event);
        }
    }

    static xcb_window_t idOf(const QWidget& window)
    {
        return static_cast<xcb_window_t>(window.internalWinId());
    }

private:
    void grant(const xcb_client_message_event_t& message)
    {
        if (message.type != atom("_NET_WM_STATE")) {
            return;
        }
        auto states = property<xcb_atom_t>(message.window, message.type);
        std::erase(states, message.data.data32[1]);
        if (message.data.data32[0] == 1) {
            states.push_back(message.data.data32[1]);
        }
        xcb_change_property(
            m_xcb,
            XCB_PROP_MODE_REPLACE,
            message.window,
            message.type,
            XCB_ATOM_ATOM,
            32,
            static_cast<uint32_t>(states.size()),
            states.data());
    }

    xcb_connection_t* m_xcb;
};

Desktop::Desktop()
{
    if (QGuiApplication::platformName() == u"xcb") {
        m_connection = std::make_unique<Connection>();
    }
}

Desktop::~Desktop() = default;

bool Desktop::isReal() const
{
    return m_connection != nullptr;
}

bool Desktop::showsTitleBars() const
{
    return isReal();
}

bool Desktop::hasDarkTitleBar(const QWidget& window) const
{
    if (!isReal()) {
        return false;
    }
    const auto name = m_connection->atom("_GTK_THEME_VARIANT");
    const auto variant = m_connection->property<char>(Connection::idOf(window), name);
    return std::string(variant.begin(), variant.end()) == "dark";
}

void Desktop::makeTitleBarLight(const QWidget& window)
{
    if (isReal()) {
        m_connection->deleteProperty(
            Connection::idOf(window), m_connection->atom("_GTK_THEME_VARIANT"));
    }
}

bool Desktop::isAlwaysOnTop(const QWidget& window)
{
    if (!isReal()) {
        return false;
    }
    m_connection->grantRequests();
    const auto states = m_connection->property<xcb_atom_t>(
        Connection::idOf(window), m_connection->atom("_NET_WM_STATE"));
    return std::count(states.begin(), states.end(), m_connection->atom("_NET_WM_STATE_ABOVE")) == 1;
}

bool Desktop::isOwnedBy(const QWidget& window, const QWidget& owner) const
{
    return isReal()
           && m_connection->property<xcb_window_t>(
                  Connection::idOf(window), XCB_ATOM_WM_TRANSIENT_FOR)
                  == std::vector{Connection::idOf(owner)};
}

QList<const QWidget*> Desktop::stacked(const QList<const QWidget*>& /*windows*/) const
{
    return {}; // requests for another place are the window manager's, and this one grants none
}

} // namespace ui::test
