// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/menus/NoticeStack.h>

class NoticeStackTest : public ui::test::StyledTestCase
{
    Q_OBJECT

    /// The notices of a window, the latest first.
    static QWidgetList cards(const QWidget& window)
    {
        QWidgetList found;
        for (auto* const child :
             window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            child->isHidden() ? void() : found.append(child);
        }
        std::sort(found.begin(), found.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return found;
    }

private Q_SLOTS:
    void theLatestIsOnTopAndEachHasRoomForItsText()
    {
        QWidget window;
        NoticeStack notices(&window);
        QSignalSpy dismissed(&notices, &NoticeStack::dismissed);
        const QString words = u"many words "_qs.repeated(30);
        for (const QString& text : {u"one"_qs, u"<b>two</b>"_qs, words, QString(), u"one"_qs}) {
            notices.add(text);
        }
        QCOMPARE(notices.texts(), (QStringList{u"one"_qs, words, u"<b>two</b>"_qs}));
        window.resize(400, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QRect top = cards(window).at(0)->geometry();
        const QRect below = cards(window).at(1)->geometry();
        QVERIFY(below.top() > top.bottom() && below.height() > 3 * top.height());
        QCOMPARE(below.width(), 384);
        const auto* const alert = QAccessible::queryAccessibleInterface(cards(window).at(0));
        QCOMPARE(alert->role(), QAccessible::AlertMessage);
        notices.add(u"3"_qs);
        notices.add(u"4"_qs);
        QCOMPARE(dismissed.takeFirst().first().toInt(), 2);
        notices.dismissAll();
        QVERIFY(notices.isEmpty() && dismissed.size() == ui::kMostNotices);
    }

    void aNoticeGoesByTimeUnlessItIsReadOrByItsButton()
    {
        QWidget window;
        QPointer<NoticeStack> notices = new NoticeStack(&window);
        connect(notices, &NoticeStack::dismissed, this, [&notices](int notice) {
            notice == 1 ? delete notices.data() : void(); // from the button's own click
        });
        notices->add(u"stays"_qs);
        notices->add(u"brief"_qs, NoticeStack::Kind::Information, 1000);
        window.show();
        QWidget* const brief = cards(window).first();
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QEvent leave(QEvent::Leave);
        for (QEvent* const event : {static_cast<QEvent*>(&enter), &leave}) {
            QCoreApplication::sendEvent(brief, event);
            ui::test::FakeClock(brief).fireTimers(1000);
            QCOMPARE(notices->texts().size(), event == &enter ? 2 : 1);
        }
        cards(window).first()->findChild<IconButton*>()->click();
        QVERIFY(!notices && cards(window).isEmpty());
    }
};

const ui::test::Registration<NoticeStackTest> kRegistration;

#include "tst_noticestack.moc"
