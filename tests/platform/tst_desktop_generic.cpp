// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/platform/native.h>

#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace native = morrant::native;

namespace {

struct Free
{
    void operator()(void* reply) const { std::free(reply); } // xcb replies come from malloc
};

/// A second client of the X server, which sees what a window manager would.
class Client
{
public:
    Client()
    {
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_xcb.get())).data->root;
        xcb_change_window_attributes(m_xcb.get(), root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_xcb.get());
    }

    uint32_t atom(const char* name) const
    {
        const auto cookie =
            xcb_intern_atom(m_xcb.get(), 0, static_cast<uint16_t>(std::strlen(name)), name);
        const auto reply = owned(xcb_intern_atom_reply(m_xcb.get(), cookie, nullptr));
        return reply->atom;
    }

    template <typename Value>
    std::vector<Value> property(const QWidget& window, uint32_t name) const
    {
        const auto id = static_cast<xcb_window_t>(window.internalWinId());
        const auto cookie = xcb_get_property(m_xcb.get(), 0, id, name, XCB_ATOM_ANY, 0, 256);
        const auto reply = owned(xcb_get_property_reply(m_xcb.get(), cookie, nullptr));
        const auto* first = static_cast<const Value*>(xcb_get_property_value(reply.get()));
        return std::vector<Value>(first, first + reply->value_len);
    }

    /// The first numbers of the last message that a window sent the window manager.
    std::vector<uint32_t> lastRequest(const QWidget& window) const
    {
        owned(xcb_get_input_focus_reply(m_xcb.get(), xcb_get_input_focus(m_xcb.get()), nullptr));
        std::vector<uint32_t> last;
        while (const auto event = owned(xcb_poll_for_event(m_xcb.get()))) {
            const auto& message = *reinterpret_cast<xcb_client_message_event_t*>(event.get());
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE
                && message.window == window.internalWinId()) {
                last = {message.type, message.data.data32[0], message.data.data32[1]};
            }
        }
        return last;
    }

private:
    template <typename Reply>
    static std::unique_ptr<Reply, Free> owned(Reply* reply)
    {
        return std::unique_ptr<Reply, Free>(reply);
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_xcb{
        xcb_connect(nullptr, nullptr), &xcb_disconnect};
};

} // namespace

/// What reaches a real X server.
class DesktopTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wishesReachTheXServer()
    {
        class Panel : public QWidget
        {
        public:
            using QWidget::QWidget;
            void showEvent(QShowEvent* /*event*/) override { native::setFloating(this, true); }
        };
        const Client client;
        const uint32_t states = client.atom("_NET_WM_STATE");
        const uint32_t above = client.atom("_NET_WM_STATE_ABOVE");
        QWidget main;
        Panel panel(&main, Qt::Window);
        main.show();
        native::setDarkTitleBar(&panel);
        panel.show();
        const auto variant = client.property<char>(panel, client.atom("_GTK_THEME_VARIANT"));
        QCOMPARE(std::string(variant.begin(), variant.end()), std::string("dark"));
        QTRY_COMPARE(
            client.property<uint32_t>(panel, XCB_ATOM_WM_TRANSIENT_FOR),
            std::vector{static_cast<uint32_t>(main.internalWinId())});
        const auto stated = client.property<uint32_t>(panel, states);
        QCOMPARE(std::count(stated.begin(), stated.end(), above), 1);
        // Once it is shown the states are the window manager's to write.
        for (const bool floats : {false, true}) {
            native::setFloating(&panel, floats);
            QCOMPARE(client.lastRequest(panel), (std::vector<uint32_t>{states, floats, above}));
        }
    }
};

const ui::test::Registration<DesktopTest> kRegistration(ui::test::RunOrder::Normal, [] {
    return QGuiApplication::platformName() == u"xcb";
});

#include "tst_desktop_generic.moc"
