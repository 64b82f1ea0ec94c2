#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

class NotificationsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachCallWritesOneLineAndNothingElse()
    {
        const QStringList line{
            QStringLiteral("warning: Notifications are only supported on Windows 10.")};
        installActivatorCallback([] { QFAIL("there is nothing to click"); });

        registerWithNotificationServer();
        QCOMPARE(takeLog(), line);
        sendNotification("{}", std::string("\xFF\0&", 3));
        QCOMPARE(takeLog(), line);
        morrant::native::postRenderNotification("");
        QCOMPARE(takeLog(), line);

        installActivatorCallback({});
    }
};

const ui::test::Registration<NotificationsTest> kRegistration;

#include "tst_notifications_generic.moc"
