#pragma once

#include <QByteArray>
#include <QObject>

#include <utility>

namespace ui::test {

/// What a value control has reported, in order: '(' and ')' around a drag, 's' for a step and 'C'
/// for a commit. Steps in a row count once.
class SignalRecord : public QObject
{
public:
    template <typename Control>
    explicit SignalRecord(Control* control)
    {
        connect(control, &Control::valueChanged, this, [this](bool committed) {
            if (committed || !m_record.endsWith('s')) {
                m_record += committed ? 'C' : 's';
            }
        });
        if constexpr (requires { &Control::dragStateChanged; }) {
            connect(control, &Control::dragStateChanged, this, [this](bool dragging) {
                m_record += dragging ? '(' : ')';
            });
        }
    }

    /// The record since the last call.
    QByteArray take() { return std::exchange(m_record, {}); }

private:
    QByteArray m_record;
};

} // namespace ui::test
