// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/platform/TerminationWatch.h>

#include <csignal>

class TerminationWatchTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aSignalEndsTheLoopsAfterItWasToldOnce()
    {
        struct sigaction before
        {};
        struct sigaction after
        {};
        sigaction(SIGTERM, nullptr, &before);
        const auto hangUp = std::signal(SIGHUP, SIG_IGN);
        {
            const morrant::TerminationWatch watch;
            QSignalSpy requested(&watch, &morrant::TerminationWatch::requested);
            std::raise(SIGHUP); // stays ignored
            QCoreApplication::processEvents();
            QCOMPARE(requested.size(), 0);
            std::raise(SIGTERM);
            std::raise(SIGTERM);
            QCOMPARE(QCoreApplication::exec(), 0);
            QCOMPARE(requested.size(), 1);
        }
        std::signal(SIGHUP, hangUp);
        sigaction(SIGTERM, nullptr, &after);
        QVERIFY(after.sa_handler == before.sa_handler);
    }
};

const ui::test::Registration<TerminationWatchTest> kRegistration;

#include "tst_termination_generic.moc"
