#include "docking/Desk.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>

#include <QAccessible>

using ui::test::Desk;
using ui::test::DockTree;
using ui::test::menuDuring;
using ui::test::SeenMenu;
using ui::test::settle;
using Area = DockableArea;

namespace {

/// What assistive tools see: roles, names and, in brackets, children; without what hosts put in.
QString described(QAccessibleInterface& part)
{
    if (auto* above = DockableWindow::findDockableParent(qobject_cast<QWidget*>(part.object()));
        above && above->content() == part.object())
    {
        return QStringLiteral("content");
    }
    QString line = QLatin1String(QMetaEnum::fromType<QAccessible::Role>().valueToKey(part.role()));
    const QString name = part.text(QAccessible::Name);
    line += name.isEmpty() ? name : u':' + name;
    QStringList children;
    for (int i = 0; i < part.childCount(); ++i) {
        QAccessibleInterface* child = part.child(i);
        const bool fits =
            part.indexOfChild(child) == i && child->parent()->object() == part.object();
        children << (fits ? described(*child) : QStringLiteral("stray"));
    }
    return children.isEmpty() ? line : line + u'(' + children.join(u' ') + u')';
}

} // namespace

class DockAccessibilityTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsSeenHasNamesAndRoles();
    void namesAndStatesFollow();
    void assistiveToolsActAsTheUserDoes();
};

void DockAccessibilityTest::whatIsSeenHasNamesAndRoles()
{
    Desk desk;
    QCOMPARE(
        described(*QAccessible::queryAccessibleInterface(&desk.root)),
        QStringLiteral("Window(Splitter(Pane:a(TitleBar:a content) Grip "
                       "Pane(PageTabList(PageTab:b PageTab:c) LayeredPane(Pane:b(content) "
                       "Pane:c(content))) Grip Pane:d(TitleBar:d content)))"));
    QCOMPARE(
        described(*QAccessible::queryAccessibleInterface(desk.e)),
        QStringLiteral("Window:e(TitleBar:e content)"));
}

void DockAccessibilityTest::namesAndStatesFollow()
{
    Desk desk;
    const auto seen = [](QWidget* widget) { return QAccessible::queryAccessibleInterface(widget); };
    DockableTabWidget* tab = desk.tabs->tabAt(1);
    desk.c->setText(QStringLiteral("new"));
    for (QWidget* widget : QWidgetList{desk.c, desk.c->header(), tab}) {
        QCOMPARE(seen(widget)->text(QAccessible::Name), QStringLiteral("new"));
    }
    desk.c->setAccessibleName(QStringLiteral("the host's own"));
    QCOMPARE(seen(desk.c)->text(QAccessible::Name), QStringLiteral("the host's own"));

    QVERIFY(!seen(tab)->state().selected && seen(desk.c)->state().invisible);
    desk.tabs->setActiveIndex(1);
    QVERIFY(seen(tab)->state().selected && seen(tab)->state().focusable);
    QVERIFY(!seen(desk.tabs->tabAt(0))->state().selected);
}

void DockAccessibilityTest::assistiveToolsActAsTheUserDoes()
{
    Desk desk;
    const auto act = [](QWidget* widget, const QString& action) {
        QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(action);
    };
    act(desk.tabs->tabAt(1), QAccessibleActionInterface::pressAction());
    settle();
    QCOMPARE(desk.tabs->activeIndex(), 1);
    for (QWidget* title :
         {static_cast<QWidget*>(desk.d->header()), static_cast<QWidget*>(desk.tabs->tabAt(1))})
    {
        const SeenMenu menu = menuDuring([&] {
            act(title, QAccessibleActionInterface::showMenuAction());
            QVERIFY(!QApplication::activePopupWidget()); // the call must not wait for the user
        });
        QCOMPARE(menu.texts.value(0), QStringLiteral("Undock"));
    }
}

const ui::test::Registration<DockAccessibilityTest> kRegistration;
#include "tst_dockaccessibility.moc"
