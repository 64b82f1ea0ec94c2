// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

/// The desktop's service is a real one, on a bus of its own that nobody else sees.
class NotificationsTest : public ui::test::TestCase
{
    Q_OBJECT

    using Process = std::unique_ptr<QProcess>;

    static Process start(const QString& program, const QStringList& arguments, const QString& bus)
    {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_qs, bus);
        process->setProcessEnvironment(environment);
        process->start(program, arguments);
        return process;
    }

    static Process probe(const QStringList& arguments, const QString& bus)
    {
        return start(QCoreApplication::applicationDirPath() + u"/notifyprobe"_qs, arguments, bus);
    }

    /// What a program says.
    static QByteArray run(const QString& program, const QStringList& question, const QString& bus)
    {
        const Process asked = start(program, question, bus);
        asked->waitForFinished();
        return asked->readAllStandardOutput();
    }

    static QByteArray ask(const QStringList& question, const QString& bus)
    {
        return run(u"dunstctl"_qs, question, bus);
    }

private Q_SLOTS:
    void withoutABusEachCallWritesOneLine()
    {
        const Process host = probe({u"{}"_qs, u"\xFF&"_qs, u"once"_qs}, u"unix:path=/nowhere"_qs);
        QVERIFY(host->waitForFinished());
        const QByteArray line = "warning: Notifications are only supported on Windows 10.\n";
        QCOMPARE(host->readAllStandardOutput().count(line), 2);
    }

    void theDesktopShowsItAndAClickReachesTheHost()
    {
        if (QGuiApplication::platformName() != u"xcb"_qs) {
            return; // the service needs a display
        }
        const Process daemon =
            start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs}, {});
        QVERIFY(daemon->waitForReadyRead());
        const QString bus = QString::fromUtf8(daemon->readLine()).trimmed();
        const Process service =
            start(u"dunst"_qs, {u"-print"_qs, u"-conf"_qs, u"/dev/null"_qs}, bus);
        QVERIFY(service->waitForStarted());
        const QStringList hasOwner{
            u"--print-reply"_qs,
            u"--dest=org.freedesktop.DBus"_qs,
            u"/"_qs,
            u"org.freedesktop.DBus.NameHasOwner"_qs,
            u"string:org.freedesktop.Notifications"_qs};
        // A question to a service that is not there yet would make the bus start another one.
        QTRY_VERIFY(run(u"dbus-send"_qs, hasOwner, bus).contains("true"));

        const Process host = probe({u"Render &lt;1&gt;"_qs, u"{} done"_qs}, bus);
        QTRY_VERIFY(ask({u"count"_qs, u"displayed"_qs}, bus).startsWith('1'));
        ask({u"action"_qs}, bus);
        QVERIFY(host->waitForFinished());
        QCOMPARE(host->exitCode(), 0);
        QVERIFY(host->readAllStandardOutput().endsWith("clicked\n"));

        QByteArray shown; // what the service says of it
        QTRY_VERIFY((shown += service->readAllStandardOutput()).contains("{} done"));
        QVERIFY2(shown.contains("Render <1>"), shown.constData());
        for (const Process* process : {&service, &daemon}) {
            (*process)->terminate();
            QVERIFY((*process)->waitForFinished());
        }
    }
};

const ui::test::Registration<NotificationsTest> kRegistration;

#include "tst_notifications_generic.moc"
