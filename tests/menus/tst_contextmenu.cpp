// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

namespace {

/// A menu over a window; its keys go through the window system's door.
struct Desk
{
    Desk() { window.show(); }

    void open()
    {
        menu->popup(window.mapToGlobal(QPoint(20, 20)));
        QVERIFY(QTest::qWaitForWindowExposed(menu));
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::activePopupWidget()->windowHandle(), key, modifiers);
    }

    void type(const QString& text) const
    {
        for (const QChar letter : text) {
            QTest::keyClick(menu->windowHandle(), letter.toLatin1());
        }
    }

    /// Long enough for typing to start anew.
    void pause() const { ui::test::FakeClock(menu).fireTimers(1000); }

    QString active() const
    {
        return menu->activeAction() ? menu->activeAction()->text() : QString();
    }

    /// Does something in an open menu that exec() shows, and returns what exec() does.
    QAction* exec(const std::function<void()>& act) const
    {
        QTimer::singleShot(0, menu, [this, act] {
            const QPointer<ContextMenu> open(menu);
            act();
            if (open) {
                open->close();
            }
            // The key clicks ran loops of their own, which may have taken what wakes this one.
            QAbstractEventDispatcher::instance()->wakeUp();
        });
        return menu->exec(window.mapToGlobal(QPoint(20, 20)));
    }

    QWidget window;
    QPointer<ContextMenu> menu = new ContextMenu(&window);
};

void click(const Desk& desk, QAction* row)
{
    ui::test::FakePointer pointer(desk.menu);
    pointer.moveTo(desk.menu->rect().bottomRight());
    pointer.click(desk.menu->actionGeometry(row).center());
}

} // namespace

class ContextMenuTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void arrowsPassOverWhatCannotBeChosen()
    {
        Desk desk;
        desk.open();
        Desk::press(Qt::Key_Down); // nothing there
        desk.menu->addSeparator();
        desk.menu->addAction(u"Off"_qs)->setEnabled(false);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_O, Qt::Key_Return}) {
            Desk::press(key);
            QCOMPARE(desk.menu->activeAction(), nullptr);
        }
        desk.menu->addAction(u"One"_qs);
        desk.menu->addAction(u"Hidden"_qs)->setVisible(false);
        QMenu* const submenu = desk.menu->addMenu(u"Sub"_qs);
        submenu->addAction(u"Inner"_qs);
        new ContextMenuItemWidget(u"Three"_qs, desk.menu);
        QStringList seen;
        for (const Qt::Key key :
             {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
            Desk::press(key);
            seen << desk.active();
        }
        desk.menu->setActiveAction(nullptr);
        Desk::press(Qt::Key_Up); // from -1 to the last but one
        QCOMPARE((seen << desk.active()).join(u' '), u"One Sub Three One Three Sub"_qs);
        desk.pause();
        desk.type(u"su"_qs);
        QCOMPARE(desk.active(), u"Sub"_qs);
        QVERIFY(!submenu->isVisible());
        Desk::press(Qt::Key_Right);
        QVERIFY(submenu->isVisible());
        submenu->menuAction()->setEnabled(false);
        QVERIFY(!submenu->isVisible());
        Desk::press(Qt::Key_Escape);
        QVERIFY(!desk.menu->isVisible());
    }

    void typingFindsTheNextRowThatBeginsWithIt()
    {
        Desk desk;
        QShortcut shortcut(Qt::Key_S, &desk.window);
        shortcut.setContext(Qt::ApplicationShortcut);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        for (const char* const text : {"Open", "&Save", "Save As", "Send", "Ssh"}) {
            desk.menu->addAction(QLatin1String(text));
        }
        desk.open();
        desk.type(u"ss"_qs);
        QCOMPARE(desk.active(), u"Ssh"_qs);
        desk.pause();
        desk.type(u"s"_qs);
        QCOMPARE(desk.active(), u"&Save"_qs);
        desk.pause();
        desk.type(u"save x"_qs); // the last letter matches nothing
        QCOMPARE(desk.active(), u"Save As"_qs);
        desk.menu->close();
        desk.open();
        QInputMethodEvent commit;
        commit.setCommitString(u"OP"_qs); // the search is empty again
        QCoreApplication::sendEvent(desk.menu, &commit);
        QCOMPARE(desk.active(), u"Open"_qs);
        QCOMPARE(activated.count(), 0);
    }

    void returnAndClickTriggerOnceTheMenuIsClosed()
    {
        Desk desk;
        auto* const plain = desk.menu->addAction(u"&Plain"_qs);
        auto* const rich = new ContextMenuItemWidget(u"&Rich"_qs, desk.menu);
        auto* const both = new ContextMenuItemWidget(u"&Both"_qs, desk.menu);
        auto* const inner = both->addToChildMenu(u"Inner"_qs);
        both->addSeparatorToChildMenu();
        QCOMPARE(both->childCount(), 1);
        const auto trigger = [&desk](QAction* row, const std::function<void()>& act) {
            int triggered = 0;
            QObject::connect(row, &QAction::triggered, desk.menu, [&triggered] {
                triggered += QApplication::activePopupWidget() ? 100 : 1;
            });
            QCOMPARE(desk.exec(act), row);
            QCOMPARE(triggered, 1);
            row->disconnect(desk.menu);
        };
        for (QAction* const row : {plain, static_cast<QAction*>(rich), static_cast<QAction*>(both)})
        {
            const QChar letter = row->text().at(1);
            trigger(row, [&] {
                desk.type(letter);
                Desk::press(Qt::Key_Enter);
            });
            trigger(row, [letter] {
                Desk::press(Qt::Key_Alt); // comes first
                Desk::press(Qt::Key(letter.unicode()), Qt::AltModifier);
            });
            trigger(row, [&] { click(desk, row); });
        }
        trigger(inner, [&desk] {
            desk.type(u"b"_qs);
            Desk::press(Qt::Key_Right);
            Desk::press(Qt::Key_Return);
        });
    }

    void aRichRowFollowsPointerAndKeys()
    {
        Desk desk;
        auto* const first = new ContextMenuItemWidget(u"<b>First</b>"_qs, desk.menu);
        auto* const second = new ContextMenuItemWidget(u"Second\tCtrl+2"_qs, desk.menu);
        QPixmap picture(400, 200);
        picture.fill(Qt::red);
        second->setPixmap(picture);
        QCOMPARE(
            second->getRowImageLabel()->pixmap(Qt::ReturnByValue).deviceIndependentSize(),
            QSizeF(48, 24));
        desk.open();
        const auto* const label = first->getWidget()->findChild<ContextMenuLabel*>();
        QCOMPARE(label->text(), u"<b>First</b>"_qs);
        QCOMPARE(label->x(), second->getWidget()->findChild<ContextMenuLabel*>()->x());
        ui::test::FakePointer pointer(desk.menu);
        pointer.moveTo(desk.menu->actionGeometry(second).center());
        pointer.moveTo(desk.menu->actionGeometry(first).center());
        QVERIFY(first->isHighlighted() && label->isHighlighted() && !second->isHighlighted());
        desk.type(u"se"_qs);
        QVERIFY(second->isHighlighted() && !label->isHighlighted());
        second->setEnabled(false);
        first->setLabelText(u"Third"_qs);
        Desk::press(Qt::Key_Down);
        QCOMPARE(desk.active(), u"Third"_qs);
        QCOMPARE(label->text(), u"Third"_qs);
        ContextMenu other;
        first->setContextMenu(&other);
        QVERIFY(!first->isHighlighted());
        first->setContextMenu(first->addToChildMenu(u"Child"_qs)->contextMenu()); // below itself
        QCOMPARE(other.actions(), QList<QAction*>{first});
    }

    void aRowsButtonsAreReachedByKeysAndMouse()
    {
        Desk desk;
        desk.menu->addAction(u"Before"_qs);
        auto* const item = new ContextMenuItemWidget(u"Layer"_qs, desk.menu);
        RolloverButton* const eye = item->addSubAction(u"icons:eye.png"_qs);
        item->addSubAction(u"icons:solo.png"_qs)->setEnabled(false);
        RolloverButton* const lock = item->addSubAction(u"icons:lock.png"_qs);
        lock->setToolTip(u"Lock"_qs);
        QCOMPARE(QAccessible::queryAccessibleInterface(lock)->text(QAccessible::Name), u"Lock"_qs);
        int clickedClosed = 0;
        connect(lock, &QAbstractButton::clicked, &desk.window, [&] {
            clickedClosed += desk.menu->isVisible() ? 0 : 1;
        });
        desk.open();
        desk.type(u"l"_qs);
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Left}) {
            Desk::press(key);
            QCOMPARE(lock->hasFocus(), key == Qt::Key_Right);
            QCOMPARE(eye->hasFocus(), key != Qt::Key_Right);
        }
        Desk::press(Qt::Key_Up); // leaves them
        QVERIFY(desk.active() == u"Before"_qs && !eye->hasFocus());
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}) {
            Desk::press(key);
        }
        QCOMPARE(clickedClosed, 1);
        desk.open();
        QTest::mouseClick(lock, Qt::LeftButton);
        QCOMPARE(clickedClosed, 2);
    }

    void aRowWithoutTriggerStaysOpen()
    {
        Desk desk;
        auto* const strip = new ContextMenuItemWidget(u"&Strip"_qs, desk.menu);
        strip->disableMainTrigger(true, true);
        strip->setStaysOpen(true);
        RolloverButton* const left = strip->addSubAction(u"icons:arrowLeft.png"_qs);
        RolloverButton* const right = strip->addSubAction(u"icons:arrowRight.png"_qs);
        QAction* const line = desk.menu->addSeparator();
        desk.menu->addAction(u"After"_qs);
        QSignalSpy triggered(strip, &QAction::triggered);
        QSignalSpy clicks(right, &QAbstractButton::clicked);
        desk.open();
        Desk::press(Qt::Key_Down);
        QVERIFY(left->hasFocus()); // there is nothing else to choose
        Desk::press(Qt::Key_Tab);
        Desk::press(Qt::Key_Return);
        QTest::mouseClick(right, Qt::LeftButton);
        QTest::mouseClick(right, Qt::RightButton);
        delete left;
        Desk::press(Qt::Key_Tab); // behind the last button comes the next row
        QCOMPARE(desk.active(), u"After"_qs);
        QKeyEvent mnemonic(QEvent::KeyPress, Qt::Key_S, Qt::AltModifier, u"s"_qs);
        QCoreApplication::sendEvent(desk.menu, &mnemonic);
        click(desk, line);
        click(desk, strip);
        QVERIFY(desk.menu->isVisible() && triggered.isEmpty());
        QCOMPARE(clicks.count(), 2);
        strip->addToChildMenu(u"Inner"_qs);
        delete right;
        Desk::press(Qt::Key_Return);
        QVERIFY(strip->menu()->isVisible() && triggered.isEmpty());
    }

    void anythingMayDieWhileItIsOpen()
    {
        for (int fate = 0; fate < 5 * 2; ++fate) {
            const QPointer<QWidget> owner = new QWidget;
            Desk desk;
            desk.menu->setParent(owner, desk.menu->windowFlags());
            const QPointer row = new ContextMenuItemWidget(u"Row"_qs, desk.menu);
            row->setStaysOpen(true);
            row->addToChildMenu(u"Inner"_qs);
            const std::function<void()> fates[] = {
                [&] { row->setEnabled(false); },
                [&] { delete row.data(); },
                [&] { delete desk.menu.data(); },
                [&] { delete owner.data(); },
                [&] { desk.menu->clear(); },
            };
            const auto& befall = fates[fate / 2];
            connect(row, &QAction::triggered, &desk.window, befall);
            RolloverButton* const button = row->addSubAction(u"icons:eye.png"_qs);
            connect(button, &QAbstractButton::clicked, &desk.window, befall);
            desk.exec([&] {
                Desk::press(Qt::Key_R);
                fate % 2 == 1 ? Desk::press(Qt::Key_Tab) : void(); // on to the button
                Desk::press(Qt::Key_Return);
            });
            QVERIFY2(!row || fate < 2, QByteArray::number(fate));
            delete owner.data();
        }
    }

    void longMenusAndTitlesStayOnTheScreen()
    {
        Desk desk;
        int clicks = 0;
        for (int i = 0; i < 200; ++i) {
            const QString text = QString::number(i) + QString(10000, u'W');
            auto* const item = new ContextMenuItemWidget(text, desk.menu);
            RolloverButton* const button = item->addSubAction(u"icons:eye.png"_qs);
            connect(button, &QAbstractButton::clicked, this, [&] { ++clicks; });
        }
        const QList<QAction*> rows = desk.menu->actions();
        desk.menu->addAction(QString(10000, u'W'))->setShortcut(u"Ctrl+Alt+Shift+F12"_qs);
        desk.open();
        QVERIFY(desk.menu->actionGeometry(rows.first()).right() < desk.menu->width());
        QVERIFY(desk.menu->screen()->geometry().contains(desk.menu->geometry()));
        QVERIFY(desk.menu->width() < 1000);
        const auto shown = [&desk](QAction* row) {
            const QRect place = desk.menu->actionGeometry(row);
            return place.top() >= 0 && place.bottom() < desk.menu->height();
        };
        QVERIFY(shown(rows.first()) && !shown(rows.last()));
        ui::test::FakePointer pointer(desk.menu);
        const auto* const first = static_cast<WidgetMenuAction*>(rows.first())->getWidget();
        const int x = first->x() + first->findChild<RolloverButton*>()->geometry().center().x();
        for (const int fromBottom : {6, 10, 14}) { // where the arrow lies over a button
            pointer.click({x, desk.menu->height() - fromBottom});
            QVERIFY(clicks == 0 && desk.menu->isVisible());
        }
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up}) {
            Desk::press(key);
        }
        QCOMPARE(desk.menu->activeAction(), rows.last());
        QVERIFY(shown(rows.last()) && !shown(rows.first()));
        QTRY_VERIFY(std::any_of(rows.begin(), rows.end(), [](QAction* row) {
            return !static_cast<WidgetMenuAction*>(row)->getWidget()->mask().isEmpty();
        })); // what lies over the arrow leaves it free
        desk.menu->close();
        desk.menu->popup({9999, 9999}); // as at the lower part of a window that sticks out
        QVERIFY(desk.menu->screen()->geometry().contains(desk.menu->geometry()));
        QVERIFY(desk.menu->height() > 100);
        desk.window.hide(); // which the rows are about
        QVERIFY(!desk.menu->isVisible());
    }

    void ticksAndPicturesStandBeforeTheText()
    {
        Desk desk;
        auto* const item = new ContextMenuItemWidget(u"Row"_qs, desk.menu);
        desk.open();
        const auto* const label = item->getWidget()->findChild<ContextMenuLabel*>();
        const int bare = label->x();
        item->setCheckable(true);
        QVERIFY(label->x() > bare);
        QPixmap picture(40, 40);
        picture.fill(Qt::red);
        item->getRowImageLabel()->setPixmap(picture);
        QTRY_VERIFY(label->x() >= 40 && item->getWidget()->height() >= 40);
        item->setIcon(picture);
        QTRY_VERIFY(label->x() < 40); // an icon has the size of a plain row's
        QCOMPARE(
            item->getRowImageLabel()->pixmap(Qt::ReturnByValue).deviceIndependentSize().width(),
            16);
    }
};

const ui::test::Registration<ContextMenuTest> kRegistration;

#include "tst_contextmenu.moc"
