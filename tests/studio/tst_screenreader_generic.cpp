// SPDX-License-Identifier: Apache-2.0
#include "support/RealPointer.h"
#include "support/TestCase.h"

#include <QtDBus>

namespace {

constexpr int kPatience = 20'000; ///< ms, for one answer on a busy machine
const QString kRoot = u"/org/a11y/atspi/accessible/root"_qs;

/// An object as a screen reader has it.
struct Seen
{
    QString path;
    QString name;
    QString description;
    QString role;
    bool canHaveFocus = false;
};

/// A session bus that nobody else sees, the desktop's accessibility bus on it, and the studio.
struct Reader
{
    Reader()
    {
        for (const auto& name : {u"HOME"_qs, u"XDG_RUNTIME_DIR"_qs, u"XDG_CONFIG_HOME"_qs}) {
            environment.insert(name, home.path());
        }
        environment.remove(u"AT_SPI_BUS_ADDRESS"_qs);
        environment.insert(u"GSETTINGS_BACKEND"_qs, u"memory"_qs);
        environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_qs, u"1"_qs);
        environment.insert(u"MORRANT_ASSETS"_qs, ui::test::assetsPath());
        start(daemon, u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address"_qs});
        QVERIFY(daemon.waitForReadyRead(kPatience));
        const QString session = QString::fromUtf8(daemon.readLine()).trimmed();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_qs, session);
        bus = QDBusConnection::connectToBus(session, u"session"_qs);
        service = u"org.a11y.Bus"_qs;
        const QString address = send(u"/org/a11y/bus"_qs, service, u"GetAddress"_qs, {}).toString();
        bus = QDBusConnection::connectToBus(address, u"reader"_qs);
    }
    ~Reader()
    {
        QDBusConnection::disconnectFromBus(u"session"_qs);
        QDBusConnection::disconnectFromBus(u"reader"_qs);
        for (QProcess* const process : {&studio, &daemon}) { // the others go with their bus
            process->terminate();
            process->waitForFinished(kPatience);
        }
    }

    void start(QProcess& process, const QString& program, const QStringList& arguments) const
    {
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        QVERIFY(process.waitForStarted(kPatience));
    }
    void openStudio(const QStringList& arguments)
    {
        start(studio, bin + u"studio"_qs, arguments);
        service = u"org.a11y.atspi.Registry"_qs;
        QTRY_VERIFY_WITH_TIMEOUT(!children(kRoot).isEmpty(), kPatience);
        service = children(kRoot).value(0).first;
        QTRY_VERIFY_WITH_TIMEOUT(walk().size() > 20, kPatience);
    }

    QVariant send(
        const QString& path, const QString& owner, const QString& method, const QVariantList& with)
    {
        auto question = QDBusMessage::createMethodCall(service, path, owner, method);
        question.setArguments(with);
        const QVariant answer = bus.call(question, QDBus::Block, kPatience).arguments().value(0);
        return answer.canConvert<QDBusVariant>() ? answer.value<QDBusVariant>().variant() : answer;
    }
    /// Calls a method, "Accessible.GetRole".
    QVariant ask(const QString& path, const QString& what, const QVariantList& with = {})
    {
        const QString owner = u"org.a11y.atspi."_qs + what.section(u'.', 0, 0);
        return send(path, owner, what.section(u'.', 1), with);
    }
    /// Reads a property, "Accessible.Name", or sets it.
    QVariant get(const QString& path, const QString& what, const QVariantList& value = {})
    {
        const QString owner = u"org.a11y.atspi."_qs + what.section(u'.', 0, 0);
        const QString method = value.isEmpty() ? u"Get"_qs : u"Set"_qs;
        const QVariantList with = QVariantList{owner, what.section(u'.', 1)} + value;
        return send(path, u"org.freedesktop.DBus.Properties"_qs, method, with);
    }
    QList<std::pair<QString, QString>> children(const QString& path)
    {
        QList<std::pair<QString, QString>> found;
        const QVariant answer = ask(path, u"Accessible.GetChildren"_qs);
        if (!answer.canConvert<QDBusArgument>()) {
            return found; // it has gone
        }
        const auto list = answer.value<QDBusArgument>();
        for (list.beginArray(); !list.atEnd();) {
            QDBusObjectPath child;
            list.beginStructure();
            list >> found.emplaceBack().first >> child;
            list.endStructure();
            found.last().second = child.path();
        }
        list.endArray(); // frees what the array was read with
        return found;
    }

    /// All that is shown, from the program down.
    QList<Seen> walk()
    {
        QList<Seen> all;
        for (QStringList waiting{kRoot}; !waiting.isEmpty() && all.size() < 9999;) {
            const QString path = waiting.takeLast();
            const auto states = qdbus_cast<QList<uint>>(ask(path, u"Accessible.GetState"_qs));
            if (path != kRoot && (states.value(0) >> 25 & 1) == 0) { // not showing
                continue;
            }
            all.append(
                {path,
                 get(path, u"Accessible.Name"_qs).toString(),
                 get(path, u"Accessible.Description"_qs).toString(),
                 ask(path, u"Accessible.GetRoleName"_qs).toString(),
                 (states.value(0) >> 11 & 1) != 0});
            for (const auto& child : children(path)) {
                waiting.append(child.second);
            }
        }
        return all;
    }
    Seen first(const QString& role, const QString& name = {})
    {
        for (const Seen& seen : walk()) {
            if (seen.role == role && seen.name.startsWith(name)) {
                return seen;
            }
        }
        return {};
    }
    /// What a user would stumble over.
    QString faults()
    {
        QStringList faults;
        for (const Seen& seen : walk()) {
            const bool isDumb = seen.name.isEmpty() || seen.role == u"filler"
                                || seen.role == u"unknown" || seen.role == u"invalid";
            if ((seen.canHaveFocus && isDumb) || (seen.name + seen.description).contains(u'<')) {
                faults << seen.role + u": "_qs + seen.name + u"; "_qs + seen.description;
            }
        }
        return faults.join(u'\n');
    }

    const QString bin = QCoreApplication::applicationDirPath() + u'/';
    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess daemon;
    QProcess studio;
    QDBusConnection bus{QString()};
    QString service;
};

} // namespace

/// The studio as a screen reader has it, over the desktop's own bus for that.
class ScreenReaderTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const bool hasBus =
            !QStandardPaths::locate(
                 QStandardPaths::GenericDataLocation, u"dbus-1/services/org.a11y.Bus.service"_qs)
                 .isEmpty();
        const bool hasDaemon = !QStandardPaths::findExecutable(u"dbus-daemon"_qs).isEmpty();
        QVERIFY2(hasBus, "at-spi2-core is missing");
        QVERIFY2(hasDaemon, "dbus-daemon is missing");
        QVERIFY2(ui::test::RealPointer::available(), "xdotool is missing");
    }

    void panelsAreToldSplittersMoveAndMenusOpen()
    {
        Reader reader;
        reader.openStudio({});
        QCOMPARE(reader.faults(), QString());
        const QString splitter = reader.first(u"splitter"_qs, u"Between Layers"_qs).path;
        const double place = reader.get(splitter, u"Value.CurrentValue"_qs).toDouble() - 20;
        reader.get(splitter, u"Value.CurrentValue"_qs, {QVariant::fromValue(QDBusVariant(place))});
        QCOMPARE(reader.get(splitter, u"Value.CurrentValue"_qs).toDouble(), place);

        const QString title = reader.first(u"title bar"_qs).path;
        int action = 0;
        while (action < 9 && reader.ask(title, u"Action.GetName"_qs, {action}) != u"ShowMenu"_qs) {
            ++action;
        }
        reader.ask(title, u"Action.DoAction"_qs, {action});
        QTRY_VERIFY(!reader.first(u"popup menu"_qs).path.isEmpty());
        ui::test::RealPointer().pressEscape();
        QTRY_VERIFY(reader.first(u"popup menu"_qs).path.isEmpty());
    }

    void testsThatListenHearOneEventForEachValue()
    {
        const Reader reader;
        for (const auto& [program, test] :
             {std::pair(u"tst_controls"_qs, u"AccessibilityTest"_qs),
              {u"tst_docking"_qs, u"DockAccessibilityTest"_qs},
              {u"tst_studio"_qs, u"ReaderEventsTest"_qs}})
        {
            QProcess process;
            reader.start(process, reader.bin + program, {test});
            QVERIFY(process.waitForFinished(60'000));
            QVERIFY2(process.exitCode() == 0, process.readAllStandardOutput().constData());
        }
    }

    void everyControlIsNamedAndNumbersAreTyped()
    {
        Reader reader;
        reader.openStudio({u"--gallery"_qs});
        QCOMPARE(reader.faults(), QString());
        const QString number = reader.first(u"spin box"_qs, u"Position, 1"_qs).path;
        reader.ask(number, u"EditableText.SetTextContents"_qs, {u"12*2,5"_qs});
        QCOMPARE(reader.get(number, u"Value.CurrentValue"_qs).toDouble(), 30.0);
        QVERIFY(reader.first(u"color chooser"_qs).description.contains(u": "_qs));
    }
};

const ui::test::Registration<ScreenReaderTest> kRegistration(ui::test::RunOrder::Normal, [] {
    return QGuiApplication::platformName() == u"xcb";
});

#include "tst_screenreader_generic.moc"
