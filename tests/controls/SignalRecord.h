// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

#include <array>
#include <functional>
#include <utility>

namespace ui::test {

/// Does something once, from within the k-th signal or callback of a story, counted from 0.
struct KthSignal
{
    /// To be called by each of them.
    void operator()()
    {
        if (k-- == 0) {
            std::exchange(act, nullptr)();
        }
    }
    bool isDone() const { return k < 0 && !act; }

    int k = -1;
    std::function<void()> act;
};

/// What a control has reported, in order: '(' and ')' around a drag, 's' for a step and 'C' for a
/// commit, with the field's index before them where there are several, "+2", "-2" and "=2" for
/// segments. Steps in a row count once.
class SignalRecord : public QObject
{
public:
    template <typename Control>
    explicit SignalRecord(Control* control)
    {
        if constexpr (requires { &Control::valueChanged; }) {
            listen(control, &Control::valueChanged);
        } else if constexpr (requires { &Control::renamed; }) {
            connect(control, &Control::renamed, this, [this] { tell("C"); });
        } else if constexpr (requires { &Control::segmentToggled; }) {
            connect(control, &Control::currentIndexChanged, this, [this](int index) {
                tell('=' + QByteArray::number(index));
            });
            connect(control, &Control::segmentToggled, this, [this](int index, bool on) {
                tell((on ? '+' : '-') + QByteArray::number(index));
            });
        } else {
            connect(control, &Control::clicked, this, [this] { tell("C"); });
        }
        if constexpr (requires { &Control::dragStateChanged; }) {
            listen(control, &Control::dragStateChanged, "(", ")");
        }
        if constexpr (requires { &Control::keyframeToggled; }) {
            listen(control, &Control::colorChanged);
            connect(control, &Control::resetRequested, this, [this] { tell("reset"); });
            connect(control, &Control::keyframeToggled, this, [this] { tell("key"); });
            connect(control, &Control::linkedChanged, this, [this] { tell("link"); });
        }
    }

    /// The record since the last call.
    QByteArray take() { return std::exchange(m_record, {}); }

    int signalsSent = 0;            ///< steps in a row counted one by one
    std::function<void()> onSignal; ///< after each

private:
    template <typename Control, typename Signal>
    void listen(Control* control, Signal signal, const char* on = "C", const char* off = "s")
    {
        connect(control, signal, this, [this, on, off](auto... arguments) {
            const std::array<int, sizeof...(arguments)> values{int(arguments)...};
            const QByteArray index = values.size() > 1 ? QByteArray::number(values[0]) : "";
            tell(index + (values.back() != 0 ? on : off));
        });
    }
    void tell(const QByteArray& what)
    {
        if (!what.endsWith('s') || !m_record.endsWith(what)) {
            m_record += what;
        }
        ++signalsSent;
        if (onSignal) {
            onSignal();
        }
    }

    QByteArray m_record;
};

} // namespace ui::test
