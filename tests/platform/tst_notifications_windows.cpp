#include "RegistryKey.h"
#include "activator.h"
#include "faketoast/FakeToast.h"
#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

#include <QOperatingSystemVersion>
#include <QThread>

#include <memory>
#include <vector>

static QStringList allSteps()
{
    return {
        QStringLiteral("class XmlDocument"),
        QStringLiteral("new XmlDocument"),
        QStringLiteral("XmlDocument as IXmlDocumentIO"),
        QStringLiteral("LoadXml"),
        QStringLiteral("XmlDocument as IXmlDocument"),
        QStringLiteral("class ToastNotificationManager"),
        QStringLiteral("CreateToastNotifierWithId"),
        QStringLiteral("class ToastNotification"),
        QStringLiteral("CreateToastNotification"),
        QStringLiteral("Show")};
}

/// Sends on the real path: the runtime finds the fake's classes by itself.
class NotificationsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QOperatingSystemVersion::current() >= QOperatingSystemVersion::Windows10);
        QVERIFY(registerClasses());
    }

    void init() override
    {
        TestCase::init();
        faketoast::reset();
    }

    void cleanup() override
    {
        QCOMPARE(faketoast::liveObjects(), 0);
        TestCase::cleanup();
    }

    void aNotificationTakesItsStepsInOrder()
    {
        sendNotification("Saved", "All is well");

        QCOMPARE(faketoast::calls(), allSteps());
        QCOMPARE(
            faketoast::applicationId(), QString::fromWCharArray(morrant::native::kApplicationId));
        QCOMPARE(
            faketoast::shownTexts(),
            (QStringList{QStringLiteral("Saved"), QStringLiteral("All is well")}));
    }

    void eachFailingStepIsOneLine_data()
    {
        QTest::addColumn<qsizetype>("step");
        QTest::addColumn<QString>("line");

        const QStringList steps = allSteps();
        for (qsizetype i = 0; i < steps.size(); ++i) {
            const QString line =
                i < 5   ? QStringLiteral("error: Could not create Notification Contents.")
                : i < 7 ? QStringLiteral("error: Could not create Toast Notifier.")
                : i < 9 ? QStringLiteral("error: Could not create Notification.")
                        : QStringLiteral("error: Could not show Notification.");
            QTest::newRow(qPrintable(steps.at(i))) << i << line;
        }
    }

    void eachFailingStepIsOneLine()
    {
        QFETCH(const qsizetype, step);
        QFETCH(const QString, line);

        faketoast::reset(allSteps().at(step));
        sendNotification("Saved", "All is well");

        QCOMPARE(takeLog(), QStringList{line});
        QCOMPARE(faketoast::calls(), allSteps().first(step + 1));
        QVERIFY(faketoast::shownTexts().isEmpty());
    }

    void textsEnterTheTemplateAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QStringList>("shown");

        QTest::newRow("empty") << QByteArray() << QByteArray() << QStringList{QString(), QString()};
        QTest::newRow("braces") << QByteArray("{}") << QByteArray("{0} {:>9}")
                                << QStringList{QStringLiteral("{}"), QStringLiteral("{0} {:>9}")};
        QTest::newRow("other scripts")
            << QByteArray("\xC3\x9C"
                          "ber \xE5\xAE\x8C\xE4\xBA\x86")
            << QByteArray("\xF0\x9F\x8E\xAC")
            << QStringList{
                   QStringLiteral("\u00dcber \u5b8c\u4e86"), QString::fromUtf8("\xF0\x9F\x8E\xAC")};
        QTest::newRow("invalid UTF-8")
            << QByteArray("a\xFFz") << QByteArray("\xE2\x82")
            << QStringList{QStringLiteral("a\uFFFDz"), QString(QChar(0xFFFD))};
        QTest::newRow("escaped by the caller")
            << QByteArray("A &amp; B") << QByteArray("1 &lt; 2")
            << QStringList{QStringLiteral("A & B"), QStringLiteral("1 < 2")};
        QTest::newRow("markup that parses")
            << QByteArray("a</text><text>b") << QByteArray("c")
            << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        QTest::newRow("1 MB") << QByteArray("t") << QByteArray(1024 * 1024, 'x')
                              << QStringList{QStringLiteral("t"), QString(1024 * 1024, u'x')};
    }

    void textsEnterTheTemplateAsTheyAre()
    {
        QFETCH(const QByteArray, title);
        QFETCH(const QByteArray, text);
        QFETCH(const QStringList, shown);

        sendNotification(title.toStdString(), text.toStdString());
        QVERIFY(faketoast::shownTexts() == shown);
    }

    void whatDoesNotParseIsNotShown_data()
    {
        QTest::addColumn<QByteArray>("text");

        QTest::newRow("ampersand") << QByteArray("A & B");
        QTest::newRow("less than") << QByteArray("1 < 2");
        QTest::newRow("open element") << QByteArray("<b>bold");
        QTest::newRow("zero byte") << QByteArray("a\0b", 3);
    }

    void whatDoesNotParseIsNotShown()
    {
        QFETCH(const QByteArray, text);

        for (const bool inTitle : {true, false}) {
            faketoast::reset();
            sendNotification(inTitle ? text.toStdString() : "", inTitle ? "" : text.toStdString());
            QCOMPARE(
                takeLog(),
                QStringList{QStringLiteral("error: Could not create Notification Contents.")});
            QVERIFY(faketoast::shownTexts().isEmpty());
        }
    }

    void aRenderNotificationHasItsTitleAlsoWithoutText()
    {
        morrant::native::postRenderNotification("");
        QCOMPARE(
            faketoast::shownTexts(), (QStringList{QStringLiteral("Render Complete"), QString()}));
    }

    void theCallersApartmentStaysAsItWas_data()
    {
        QTest::addColumn<int>("state");

        QTest::newRow("none") << int(ApartmentState::None);
        QTest::newRow("single-threaded") << int(ApartmentState::SingleThreaded);
        QTest::newRow("multithreaded") << int(ApartmentState::MultiThreaded);
    }

    void theCallersApartmentStaysAsItWas()
    {
        QFETCH(const int, state);

        // On a thread of its own, since Qt has initialised this one.
        ApartmentState afterwards{};
        ApartmentState atTheEnd{};
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            if (state == int(ApartmentState::SingleThreaded)) {
                CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            } else if (state == int(ApartmentState::MultiThreaded)) {
                CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            }
            sendNotification("a", "b");
            sendNotification("c", "d");
            afterwards = apartmentState();
            if (state != int(ApartmentState::None)) {
                CoUninitialize();
            }
            atTheEnd = apartmentState();
        }));
        thread->start();
        QVERIFY(thread->wait());

        QCOMPARE(int(afterwards), state);
        QCOMPARE(int(atTheEnd), int(ApartmentState::None));
        QCOMPARE(faketoast::shownTexts().size(), 4);
    }

    void aSystemWithoutToastsIsOneLine()
    {
        m_classes.clear();
        sendNotification("a", "b");
        QCOMPARE(
            takeLog(),
            QStringList{QStringLiteral("error: Could not create Notification Contents.")});
        QVERIFY(faketoast::calls().isEmpty());
        QVERIFY(registerClasses());
    }

private:
    bool registerClasses()
    {
        const QString path = QDir::toNativeSeparators(
            QCoreApplication::applicationDirPath() + QStringLiteral("/faketoast.dll"));
        bool all = true;
        for (const QString& name : faketoast::classNames()) {
            m_classes.push_back(std::make_unique<ui::test::RegistryKey>(
                HKEY_LOCAL_MACHINE, ui::test::runtimeClassKey(name)));
            all = m_classes.back()->setValue(QStringLiteral("DllPath"), path) && all;
        }
        return all;
    }

    std::vector<std::unique_ptr<ui::test::RegistryKey>> m_classes;
};

const ui::test::Registration<NotificationsTest> kRegistration;

#include "tst_notifications_windows.moc"
