#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/menus/NoticeStack.h>

#include <QtWidgets>

namespace {

/// A window with notices over it.
struct Host
{
    Host()
    {
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    QWidget* card(const QString& text) const
    {
        for (auto* const child :
             window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child->accessibleName() == text && child->isVisible()) {
                return child;
            }
        }
        return nullptr;
    }

    QWidget window;
    QPointer<NoticeStack> notices = new NoticeStack(&window);
    QSignalSpy dismissed{notices, &NoticeStack::dismissed};
};

} // namespace

class NoticeStackTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theLatestIsOnTopAndEachHasRoomForItsText()
    {
        Host host;
        QCOMPARE(host.notices->add({}), 0);
        const QString words = u"many words "_qs.repeated(30);
        for (const QString& text : {u"one"_qs, u"<b>two</b>"_qs, words, u"one"_qs}) {
            host.notices->add(text);
        }
        QCOMPARE(host.notices->texts(), (QStringList{u"one"_qs, words, u"<b>two</b>"_qs}));
        for (const int width : {400, 250}) {
            host.window.resize(width, 300);
            QCoreApplication::processEvents();
            const QRect top = host.card(u"one"_qs)->geometry();
            const QRect below = host.card(words)->geometry();
            QVERIFY(host.window.rect().contains(top) && below.top() > top.bottom());
            QVERIFY(below.height() > 3 * top.height() && below.width() == width - 16);
        }
        const auto* const alert = QAccessible::queryAccessibleInterface(host.card(words));
        QCOMPARE(alert->role(), QAccessible::AlertMessage);
        for (const QString& text : {u"3"_qs, u"4"_qs}) {
            host.notices->add(text, NoticeStack::Kind::Error);
        }
        QCOMPARE(host.notices->texts().size(), ui::kMostNotices);
        QCOMPARE(host.dismissed.takeFirst().first().toInt(), 2);
        host.notices->dismissLatest();
        QCOMPARE(host.notices->texts().first(), u"3"_qs);
        host.notices->dismissAll();
        QVERIFY(host.notices->isEmpty() && host.dismissed.size() == ui::kMostNotices);
    }

    void aNoticeGoesByItsButtonOrByTimeUnlessItIsRead()
    {
        Host host;
        connect(host.notices, &NoticeStack::dismissed, this, [&host](int notice) {
            if (notice == 2) {
                delete host.notices; // from the button's own click
            }
        });
        host.notices->add(u"brief"_qs, NoticeStack::Kind::Information, 1000);
        host.notices->add(u"read"_qs);
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(host.card(u"brief"_qs), &enter);
        ui::test::FakeClock(host.card(u"brief"_qs)).fireTimers(5000);
        QCOMPARE(host.notices->texts().size(), 2);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(host.card(u"brief"_qs), &leave);
        ui::test::FakeClock(host.card(u"brief"_qs)).fireTimers(1000);
        QCOMPARE(host.notices->texts(), QStringList{u"read"_qs});
        ui::test::click(host.card(u"read"_qs)->findChild<IconButton*>());
        QVERIFY(!host.notices && !host.card(u"read"_qs));
    }
};

const ui::test::Registration<NoticeStackTest> kRegistration;

#include "tst_noticestack.moc"
