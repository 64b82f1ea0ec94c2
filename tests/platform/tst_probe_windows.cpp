// SPDX-License-Identifier: Apache-2.0
#include "RegistryKey.h"
#include "faketoast/FakeToast.h"
#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

using namespace ui::test;

/// Hosts in processes of their own.
class ProbeTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        TestCase::init();
        m_key.emplace(HKEY_CURRENT_USER, m_classKey);
        for (const QString& name : faketoast::classNames()) {
            const RegistryKey none(HKEY_LOCAL_MACHINE, runtimeClassKey(name));
        }
    }

    void aClickStartsTheProgramThatRegistered()
    {
        const QString program =
            copyProbe(u"My Host \u00e4\u0413\u043e\u0442\u043e\u0432\u043e \u5b8c/a host.exe"_qs);
        // The toast itself fails, since init() has taken its classes away.
        const QStringList noToast(u"error: Could not create Notification Contents."_qs);
        QCOMPARE(run(program, {u"start"_qs}), noToast);
        const QString server = u"LocalServer32"_qs;
        const QString command = m_key->value(server);
        QCOMPARE(command, u'"' + QDir::toNativeSeparators(program) + u"\" -ToastActivated"_qs);

        // COM looks for a user's own classes only where this system merges them into all classes.
        const RegistryKey everybody(HKEY_LOCAL_MACHINE, m_classKey);
        RegistryKey launch(HKEY_LOCAL_MACHINE, m_classKey + u'\\' + server);
        QVERIFY(launch.setValue(QString(), command));
        QCOMPARE(run(m_probe, {u"click"_qs}), QStringList(u"created yes"_qs));
        QFile started(m_folder.filePath(u"started.txt"_qs));
        QVERIFY(started.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(started.readAll()), command + u" -Embedding"_qs);
        started.close();
        QVERIFY(started.remove());
    }

    void anOlderWindowsIsLeftAlone()
    {
        const QString program = copyProbe(u"toastprobe-windows7.exe"_qs);
        RegistryKey version(
            HKEY_CURRENT_USER, u"Software\\Wine\\AppDefaults\\toastprobe-windows7.exe"_qs);
        QVERIFY(version.setValue(u"Version"_qs, u"win7"_qs));
        const QString line = u"warning: Notifications are only supported on Windows 10."_qs;
        QCOMPARE(run(program, {u"start"_qs}), QStringList(line));
        QVERIFY(m_key->value(u"LocalServer32"_qs).isNull());
    }

    void aHostMayRegisterBeforeItsApplication()
    {
        const QString font = dataPath(u"theme"_qs) + u"/MorrantTest.ttf"_qs;
        for (const QString& apartment : {u"none"_qs, u"mta"_qs}) {
            const QStringList expected{
                u"error: Could not create Notification Contents."_qs,
                u"font refused"_qs,
                u"created yes"_qs,
                u"clicked on the GUI thread"_qs,
                u"afterwards "_qs + apartment,
                u"created no"_qs,
                u"end none"_qs};
            QCOMPARE(run(m_probe, {u"life"_qs, apartment, font}), expected);
        }
    }

private:
    QString copyProbe(const QString& name) const
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return QFile::copy(m_probe, path) ? path : QString();
    }

    QStringList run(const QString& program, const QStringList& arguments) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        const QString libraries = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        environment.insert(u"PATH"_qs, libraries + u';' + environment.value(u"PATH"_qs));
        environment.insert(u"MORRANT_PROBE_FILE"_qs, m_folder.filePath(u"started.txt"_qs));
        QProcess process;
        process.setProcessEnvironment(environment);
        // A file, not a pipe, whose reader under Wine misses what comes after some seconds' pause.
        QFile output(QCoreApplication::applicationDirPath() + u"/probe-output.txt"_qs);
        process.setStandardOutputFile(output.fileName());
        process.start(program, arguments);
        if (!process.waitForFinished(60000) || process.exitCode() != 0
            || !output.open(QIODevice::ReadOnly)) {
            return {process.errorString()};
        }
        return QString::fromUtf8(output.readAll()).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    }

    const QString m_probe = QCoreApplication::applicationDirPath() + u"/toastprobe.exe"_qs;
    const QString m_classKey = comClassKey(morrant::native::kActivatorClassId);
    const QTemporaryDir m_folder;
    std::optional<RegistryKey> m_key;
};

// Before this process offers an activator itself: COM would take a click to it.
const Registration<ProbeTest> kRegistration(RunOrder::First);

#include "tst_probe_windows.moc"
