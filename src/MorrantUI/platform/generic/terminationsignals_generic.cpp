// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/terminationsignals.h"

#include "MorrantUI/log.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};

std::atomic<int> gWriteEnd{-1}; ///< of the watch's pipe, for the handler
static_assert(std::atomic<int>::is_always_lock_free);

/// Only what is safe in the middle of anything: the event loop reads the pipe.
extern "C" void tellOfSignal(int /*signal*/)
{
    const int error = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(gWriteEnd, &byte, 1); // full: told already
    errno = error;
}

void makeQuiet(int end)
{
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
}

class SignalPipe : public QObject
{
public:
    SignalPipe(QObject* owner, std::function<void()> heard)
        : QObject(owner)
        , m_heard(std::move(heard))
    {
        if (::pipe(m_ends.data()) != 0) {
            ui::log::error("Signals are not watched: {}", std::strerror(errno));
            return;
        }
        makeQuiet(m_ends[0]);
        makeQuiet(m_ends[1]);
        gWriteEnd = m_ends[1];
        auto* notifier = new QSocketNotifier(m_ends[0], QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, &SignalPipe::hear);
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            takeOver(kSignals[i], m_before[i]);
        }
    }

    ~SignalPipe() override
    {
        if (m_ends[1] < 0) {
            return;
        }
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            ::sigaction(kSignals[i], &m_before[i], nullptr);
        }
        gWriteEnd = -1;
        ::close(m_ends[0]);
        ::close(m_ends[1]);
    }

private:
    static void takeOver(int signal, struct sigaction& before)
    {
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN) { // as for a program in the background
            return;
        }
        struct sigaction ours
        {};
        ours.sa_handler = tellOfSignal;
        ours.sa_flags = SA_RESTART;
        if (signal == SIGINT) {
            ours.sa_flags |= static_cast<int>(SA_RESETHAND);
        }
        ::sigemptyset(&ours.sa_mask);
        ::sigaction(signal, &ours, nullptr);
    }

    void hear()
    {
        std::array<char, 64> bytes{};
        while (::read(m_ends[0], bytes.data(), bytes.size()) > 0) {
        }
        m_heard();
    }

    std::function<void()> m_heard;
    std::array<int, 2> m_ends{-1, -1};
    std::array<struct sigaction, kSignals.size()> m_before{};
};

} // namespace

namespace morrant::native::system {

void watchTerminationSignals(QObject* owner, std::function<void()> heard)
{
    new SignalPipe(owner, std::move(heard));
}

} // namespace morrant::native::system
