#include "support/TestCase.h"
#include <MorrantUI/platform/notifications.h>

class NotificationsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachCallWritesOneLineAndNothingElse()
    {
        const QString line = u"warning: Notifications are only supported on Windows 10."_qs;
        installActivatorCallback([] { QFAIL("there is nothing to click"); });
        registerWithNotificationServer();
        sendNotification("{}", std::string("\xFF\0&", 3));
        morrant::native::postRenderNotification("");
        QCOMPARE(takeLog(), QStringList(3, line));
        installActivatorCallback({});
    }
};

const ui::test::Registration<NotificationsTest> kRegistration;

#include "tst_notifications_generic.moc"
