// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;

namespace {

/// Whether a filter keeps an event, of a kind that plain objects leave alone, from the receiver.
bool isKeptFrom(QObject* receiver)
{
    QEvent event(QEvent::Clipboard);
    return QCoreApplication::sendEvent(receiver, &event);
}

} // namespace

class HelpersTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theClosestRectangleOrScreenHoldsOrNearsThePoint()
    {
        const std::vector<QRect> rects{
            QRect(), QRect(0, 0, 100, 100), QRect(100, 0, 100, 200), QRect(0, -200, 100, 100)};
        constexpr int kMin = std::numeric_limits<int>::min();
        QCOMPARE(ui::closestRectangle(rects, {99, 99}), 1);
        QCOMPARE(ui::closestRectangle(rects, {99, 500}), 2);
        QCOMPARE(ui::closestRectangle(rects, {140, -60}), 3); // by straight distance
        QCOMPARE(ui::closestRectangle(rects, {kMin, kMin}), 3);
        QCOMPARE(ui::closestRectangle({}, {0, 0}), -1);

        const QScreen* primary = QGuiApplication::primaryScreen();
        QCOMPARE(getClosestScreenAt(primary->geometry().center()), primary);
        QVERIFY(getClosestScreenAt(QPoint(-1000000, 1000000)) != nullptr);
        QWidget widget;
        QCOMPARE(ui::getMonitorDPI(&widget), primary->devicePixelRatio());
        QCOMPARE(ui::getMonitorDPI(nullptr), 1.0);
    }

    void groundAndForegroundReachAllGroupsAndAreInstalledOnce()
    {
        QWidget widget;
        ui::appendPalette(&widget, {});
        QVERIFY(!widget.testAttribute(Qt::WA_SetPalette));
        ui::setWidgetBackground(&widget, Qt::red);
        ui::setWidgetForeground(&widget, Qt::green);
        ui::appendPalette(&widget, {{QPalette::Link, Qt::red}, {QPalette::Link, Qt::blue}});
        using P = QPalette;
        for (const auto group : {P::Active, P::Inactive, P::Disabled}) {
            const auto color = [&](auto role) { return widget.palette().color(group, role); };
            for (const auto role : {P::Window, P::Base, P::Button}) {
                QCOMPARE(color(role), QColor(Qt::red));
            }
            for (const auto role : {P::Text, P::ButtonText, P::BrightText, P::WindowText}) {
                QCOMPARE(color(role), QColor(Qt::green));
            }
            QCOMPARE(color(P::Link), QColor(Qt::blue)); // the later one
        }
        // Nothing is installed where the current group has the colour already.
        QPalette palette = widget.palette();
        palette.setColor(P::Disabled, P::Base, Qt::blue);
        widget.setPalette(palette);
        widget.setAutoFillBackground(false);
        ui::setWidgetBackground(&widget, Qt::red);
        QCOMPARE(widget.palette(), palette);
        QVERIFY(widget.autoFillBackground());
        ui::setWidgetBackground(nullptr, Qt::red);
        ui::setWidgetForeground(nullptr, Qt::red);
    }

    void aFilterKeepsEventsUntilOwnerOrTargetIsGone()
    {
        bool keep = false;
        const auto callback = [&](QObject* /*watched*/, QEvent* /*event*/) { return keep; };
        QObject lasting;
        auto* owner = new QObject;
        ui::installEventFilter(&lasting, callback, owner);
        QVERIFY(!isKeptFrom(&lasting));
        keep = true;
        QVERIFY(isKeptFrom(&lasting));
        delete owner;
        QVERIFY(!isKeptFrom(&lasting));

        auto* target = new QObject;
        const QPointer<QObject> filter = ui::installEventFilter(target, callback, &lasting);
        delete target;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(filter.isNull());
        QCOMPARE(ui::installEventFilter(nullptr, callback, &lasting), nullptr);
        QCOMPARE(ui::installEventFilter(&lasting, {}, nullptr), nullptr);

        owner = new QObject; // both may go in the callback
        target = new QObject;
        QString seen;
        ui::installEventFilter(
            target,
            [&, text = u"kept"_qs](QObject*, QEvent*) {
                delete owner;
                seen = text;
                delete target;
                return false;
            },
            owner);
        QVERIFY(isKeptFrom(target)); // who is gone
        QCOMPARE(seen, u"kept"_qs);
    }

    void cursorGuardsEndInAnyOrderAndLeaveOthersCursorsAlone()
    {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        std::optional<ui::OverrideCursor> first(std::in_place, Qt::CrossCursor);
        std::optional<ui::OverrideCursor> second(std::in_place, Qt::SizeHorCursor);
        second->change(Qt::SizeVerCursor);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeVerCursor);
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
        first.reset();
        second->change(Qt::SizeAllCursor);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
        second.reset();
        QCOMPARE(takeCursors(), (QList{Qt::WaitCursor, Qt::BusyCursor}));

        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        first.emplace(Qt::CrossCursor);
        QGuiApplication::restoreOverrideCursor(); // meant for the wait cursor
        first->change(Qt::SizeHorCursor);
        first.reset();
        second.emplace(Qt::CrossCursor);
        takeCursors();
        second.reset();
        QVERIFY(takeCursors().isEmpty());
    }
};

const Registration<HelpersTest> kRegistration;

#include "tst_helpers.moc"
