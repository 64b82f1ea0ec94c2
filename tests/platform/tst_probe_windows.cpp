#include "RegistryKey.h"
#include "faketoast/FakeToast.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include <MorrantUI/platform/notifications.h>

#include <QProcess>
#include <QTemporaryDir>

#include <optional>

static QString classKey()
{
    return QStringLiteral("Software\\Classes\\CLSID\\")
           + QString::fromWCharArray(morrant::native::kActivatorClassId);
}

static QString probePath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/toastprobe.exe");
}

// Before this process offers an activator itself: COM would take a click to it.

/// Hosts in processes of their own.
class ProbeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        TestCase::init();
        m_key.emplace(HKEY_CURRENT_USER, classKey());
        for (const QString& name : faketoast::classNames()) {
            const ui::test::RegistryKey none(HKEY_LOCAL_MACHINE, ui::test::runtimeClassKey(name));
        }
    }

    void aClickStartsTheProgramThatRegistered()
    {
        const QString program = copyProbe(QStringLiteral(
            "My Host \u00e4\u00f6 \u0413\u043e\u0442\u043e\u0432\u043e \u5b8c/a host.exe"));
        QCOMPARE(run(program, {QStringLiteral("register")}), QStringList());

        const QString server = QStringLiteral("LocalServer32");
        const QString command = m_key->value(QString(), server);
        QCOMPARE(
            command,
            u'"' + QDir::toNativeSeparators(program) + QStringLiteral("\" -ToastActivated"));

        // COM looks for a user's own classes only where this system merges them into all classes.
        const ui::test::RegistryKey everybody(HKEY_LOCAL_MACHINE, classKey());
        ui::test::RegistryKey launch(HKEY_LOCAL_MACHINE, classKey() + u'\\' + server);
        QVERIFY(launch.setValue(QString(), command));
        QCOMPARE(
            run(probePath(), {QStringLiteral("click")}),
            QStringList{QStringLiteral("created yes")});

        QFile started(m_folder.filePath(QStringLiteral("started.txt")));
        QVERIFY(started.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(started.readAll()), command + QStringLiteral(" -Embedding"));
        started.close();
        QVERIFY(started.remove());
    }

    void anOlderWindowsIsLeftAlone()
    {
        const QString program = copyProbe(QStringLiteral("toastprobe-windows7.exe"));
        ui::test::RegistryKey version(
            HKEY_CURRENT_USER,
            QStringLiteral("Software\\Wine\\AppDefaults\\toastprobe-windows7.exe"));
        QVERIFY(version.setValue(QStringLiteral("Version"), QStringLiteral("win7")));

        QCOMPARE(
            run(program, {QStringLiteral("register")}),
            QStringList{
                QStringLiteral("warning: Notifications are only supported on Windows 10.")});
        QCOMPARE(run(program, {QStringLiteral("send")}), QStringList());
        QVERIFY(!m_key->exists());
    }

    void aHostMayRegisterBeforeItsApplication_data()
    {
        QTest::addColumn<QString>("apartment");

        QTest::newRow("without COM") << QStringLiteral("none");
        QTest::newRow("multithreaded") << QStringLiteral("mta");
    }

    void aHostMayRegisterBeforeItsApplication()
    {
        QFETCH(const QString, apartment);

        const QString font =
            ui::test::dataPath(QStringLiteral("theme")) + QStringLiteral("/MorrantTest.ttf");
        // The toast itself fails, since init() has taken its classes away.
        QCOMPARE(
            run(probePath(), {QStringLiteral("life"), apartment, font}),
            (QStringList{
                QStringLiteral("error: Could not create Notification Contents."),
                QStringLiteral("font refused"),
                QStringLiteral("created yes"),
                QStringLiteral("clicked on the GUI thread"),
                QStringLiteral("afterwards ") + apartment,
                QStringLiteral("offered no"),
                QStringLiteral("end none")}));
    }

private:
    QString copyProbe(const QString& name)
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return QFile::copy(probePath(), path) ? path : QString();
    }

    QStringList run(const QString& program, const QStringList& arguments) const
    {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        const QString libraries = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        environment.insert(
            QStringLiteral("PATH"), libraries + u';' + environment.value(QStringLiteral("PATH")));
        environment.insert(
            QStringLiteral("MORRANT_PROBE_FILE"), m_folder.filePath(QStringLiteral("started.txt")));
        process.setProcessEnvironment(environment);
        // A file, not a pipe, whose reader under Wine misses what comes after a pause of some
        // seconds.
        QFile output(QCoreApplication::applicationDirPath() + QStringLiteral("/probe-output.txt"));
        process.setStandardOutputFile(output.fileName());
        process.start(program, arguments);
        if (!process.waitForFinished(60000) || process.exitCode() != 0) {
            return {process.errorString()};
        }
        if (!output.open(QIODevice::ReadOnly)) {
            return {output.errorString()};
        }
        return QString::fromUtf8(output.readAll()).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir m_folder;
    std::optional<ui::test::RegistryKey> m_key;
};

const ui::test::Registration<ProbeTest> kRegistration(ui::test::RunOrder::First);

#include "tst_probe_windows.moc"
