// SPDX-License-Identifier: Apache-2.0
#include "RegistryKey.h"
#include "com.h"
#include "faketoast/FakeToast.h"
#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

/// Sends on the real path: the runtime finds the fake's classes by itself.
class NotificationsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        TestCase::init();
        faketoast::notes() = {};
        const QString path =
            QDir::toNativeSeparators(QCoreApplication::applicationDirPath() + u"/faketoast.dll"_qs);
        for (const QString& name : faketoast::classNames()) {
            m_classes.push_back(std::make_unique<ui::test::RegistryKey>(
                HKEY_LOCAL_MACHINE, ui::test::runtimeClassKey(name)));
            QVERIFY(m_classes.back()->setValue(u"DllPath"_qs, path));
        }
    }

    void cleanup() override
    {
        m_classes.clear();
        QCOMPARE(faketoast::liveObjects(), 0);
        TestCase::cleanup();
    }

    void aNotificationTakesItsStepsInOrderUntilOneFails()
    {
        using Step = std::pair<QString, const char*>;
        const char* const contents = "error: Could not create Notification Contents.";
        const char* const notifier = "error: Could not create Toast Notifier.";
        const char* const toast = "error: Could not create Notification.";
        const QList<Step> steps{
            {u"class XmlDocument"_qs, contents},
            {u"new XmlDocument"_qs, contents},
            {u"XmlDocument as IXmlDocumentIO"_qs, contents},
            {u"LoadXml"_qs, contents},
            {u"XmlDocument as IXmlDocument"_qs, contents},
            {u"class ToastNotificationManager"_qs, notifier},
            {u"CreateToastNotifierWithId"_qs, notifier},
            {u"class ToastNotification"_qs, toast},
            {u"CreateToastNotification"_qs, toast},
            {u"Show"_qs, "error: Could not show Notification."}};
        QStringList calls;
        for (const auto& [step, line] : steps) {
            calls << step;
            faketoast::notes() = {step, {}, {}, {}};
            sendNotification("Saved", "All is well");
            QCOMPARE(takeLog(), QStringList(QLatin1String(line)));
            QCOMPARE(faketoast::notes().calls, calls);
            QCOMPARE(faketoast::notes().shownTexts, QStringList());
        }
        faketoast::notes() = {};
        sendNotification("Saved", "All is well");
        QCOMPARE(faketoast::notes().calls, calls);
        QCOMPARE(
            faketoast::notes().applicationId,
            QString::fromWCharArray(morrant::native::kApplicationId));
        QCOMPARE(faketoast::notes().shownTexts, (QStringList{u"Saved"_qs, u"All is well"_qs}));
    }

    void textsEnterTheTemplateAsTheyAre()
    {
        const std::tuple<QByteArray, QByteArray, QStringList> cases[] = {
            {"", "", {QString(), QString()}},
            {"{}", "{0} {:>9}", {u"{}"_qs, u"{0} {:>9}"_qs}},
            {"\xE5\xAE\x8C\xE4\xBA\x86", "a\xFFz", {u"\u5b8c\u4e86"_qs, u"a\uFFFDz"_qs}},
            {"A &amp; B", "1 &lt; 2", {u"A & B"_qs, u"1 < 2"_qs}}, // escaped by the caller
            {"a</text><text>b", "c", {u"a"_qs, u"b"_qs, u"c"_qs}},
            {"t", QByteArray(1024 * 1024, 'x'), {u"t"_qs, QString(1024 * 1024, u'x')}}};
        for (const auto& [title, text, shown] : cases) {
            faketoast::notes() = {};
            sendNotification(title.toStdString(), text.toStdString());
            QVERIFY(faketoast::notes().shownTexts == shown);
        }
        faketoast::notes() = {};
        morrant::native::postRenderNotification("");
        QCOMPARE(faketoast::notes().shownTexts, (QStringList{u"Render Complete"_qs, QString()}));
    }

    void whatDoesNotParseIsNotShown()
    {
        const std::string texts[] = {"A & B", "1 < 2", "<b>bold", std::string("a\0b", 3)};
        for (const std::string& text : texts) {
            sendNotification(text, "");
            sendNotification("", text);
        }
        m_classes.clear(); // a system without notifications
        sendNotification("a", "b");
        QCOMPARE(takeLog(), QStringList(9, u"error: Could not create Notification Contents."_qs));
        QCOMPARE(faketoast::notes().shownTexts, QStringList());
    }

    void theCallersApartmentStaysAsItWas()
    {
        for (const char* kind : {"none", "sta", "mta"}) {
            QByteArray states;
            // On a thread of its own, since Qt has initialised this one.
            const std::unique_ptr<QThread> thread(QThread::create([&] {
                const bool entered = ui::test::enterApartment(kind);
                sendNotification("a", "b");
                sendNotification("c", "d");
                states = ui::test::apartment();
                if (entered) {
                    CoUninitialize();
                }
                states += QByteArray(", then ") + ui::test::apartment();
            }));
            thread->start();
            QVERIFY(thread->wait());
            QCOMPARE(states, QByteArray(kind) + ", then none");
        }
        QCOMPARE(faketoast::notes().shownTexts.size(), 12);
    }

private:
    std::vector<std::unique_ptr<ui::test::RegistryKey>> m_classes;
};

const ui::test::Registration<NotificationsTest> kRegistration;

#include "tst_notifications_windows.moc"
