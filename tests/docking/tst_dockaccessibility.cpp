// SPDX-License-Identifier: Apache-2.0
#include "docking/Desk.h"
#include "support/ReaderEvents.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/arrangement.h>

using namespace ui::test;

namespace {

/// What assistive tools see: roles, names and, in brackets, children; without what hosts put in.
QString described(QAccessibleInterface& part)
{
    if (auto* above = DockableWindow::findDockableParent(qobject_cast<QWidget*>(part.object()));
        above && above->content() == part.object())
    {
        return u"content"_qs;
    }
    QString line = QLatin1String(QMetaEnum::fromType<QAccessible::Role>().valueToKey(part.role()));
    const QString name = part.text(QAccessible::Name);
    line += name.isEmpty() ? name : u':' + name;
    QStringList children;
    for (int i = 0; i < part.childCount(); ++i) {
        QAccessibleInterface* child = part.child(i);
        const bool fits =
            part.indexOfChild(child) == i && child->parent()->object() == part.object();
        children << (fits ? described(*child) : u"stray"_qs);
    }
    return children.isEmpty() ? line : line + u'(' + children.join(u' ') + u')';
}

} // namespace

class DockAccessibilityTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsSeenHasNamesAndRoles()
    {
        Desk desk;
        QCOMPARE(
            described(*QAccessible::queryAccessibleInterface(&desk.root())),
            QStringLiteral(
                "Window(Grouping(Pane:a(TitleBar:a content) Splitter:Between a and b "
                "Pane(PageTabList(PageTab:b PageTab:c) LayeredPane(Pane:b(content) "
                "Pane:c(content))) Splitter:Between b and d Pane:d(TitleBar:d content)))"));
        QCOMPARE(
            described(*QAccessible::queryAccessibleInterface(desk.e)),
            u"Window:e(TitleBar:e content)"_qs);
    }

    void namesAndStatesFollow()
    {
        Desk desk;
        const auto seen = [](QWidget* widget) {
            return QAccessible::queryAccessibleInterface(widget);
        };
        DockableTabWidget* tab = desk.rowOfTabs->tabAt(1);
        desk.c->setText(u"new"_qs);
        for (QWidget* widget : QWidgetList{desk.c, desk.c->header(), tab}) {
            QCOMPARE(seen(widget)->text(QAccessible::Name), u"new"_qs);
        }
        desk.c->setAccessibleName(u"the host's own"_qs);
        QCOMPARE(seen(desk.c)->text(QAccessible::Name), u"the host's own"_qs);

        QVERIFY(!seen(tab)->state().selected && seen(desk.c)->state().invisible);
        desk.rowOfTabs->setActiveIndex(1);
        QVERIFY(seen(tab)->state().selected && seen(tab)->state().focusable);
        QVERIFY(!seen(desk.rowOfTabs->tabAt(0))->state().selected);
    }

    void aSplitterTellsWhereItIsAndGoesThere()
    {
        Desk desk;
        auto* const handle = desk.root().findChild<QSplitter*>()->handle(1);
        auto* const place = QAccessible::queryAccessibleInterface(handle)->valueInterface();
        const int width = desk.a->width();
        QCOMPARE(place->currentValue().toInt(), width);
        ReaderEvents events;
        place->setCurrentValue(width + 40);
        QCOMPARE(desk.a->width(), width + 40);
        QCOMPARE(events.takeOf(handle).count(QAccessible::ValueChanged), ReaderEvents::heard(1));
        place->setCurrentValue(1e9);
        QCOMPARE(handle->x(), place->maximumValue().toInt());
        ui::setLayoutLocked(true);
        place->setCurrentValue(width);
        ui::setLayoutLocked(false);
        QCOMPARE(handle->x(), place->maximumValue().toInt());
    }

    void assistiveToolsActAsTheUserDoes()
    {
        Desk desk;
        const auto act = [](QWidget* widget, const QString& action) {
            QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(action);
        };
        act(desk.rowOfTabs->tabAt(1), QAccessibleActionInterface::pressAction());
        settle();
        QCOMPARE(desk.rowOfTabs->activeIndex(), 1);
        for (QWidget* title :
             {static_cast<QWidget*>(desk.d->header()),
              static_cast<QWidget*>(desk.rowOfTabs->tabAt(1))})
        {
            const SeenMenu menu = desk.menuDuring([&] {
                act(title, QAccessibleActionInterface::showMenuAction());
                QVERIFY(!QApplication::activePopupWidget()); // the call must not wait for the user
            });
            QCOMPARE(menu.texts.value(0), u"Undock"_qs);
        }
    }
};

const ui::test::Registration<DockAccessibilityTest> kRegistration;
#include "tst_dockaccessibility.moc"
