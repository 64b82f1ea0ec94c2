// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/menus/ContextMenuButton.h>
#include <MorrantUI/menus/WidgetMenu.h>
#include <MorrantUI/menus/WidgetMenuAction.h>

namespace {

class Row : public WidgetMenuAction
{
public:
    explicit Row(QMenu& menu)
        : WidgetMenuAction(&menu)
    {
        auto* const widget = new Widget;
        widget->setFixedSize(120, 30);
        setWidget(widget);
        menu.addAction(this);
    }

    QString changes;

protected:
    void highlightChanged(bool highlighted) override
    {
        WidgetMenuAction::highlightChanged(highlighted);
        changes += highlighted ? u'+' : u'-';
    }
};

} // namespace

class WidgetMenuTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rowsHearWhenTheHighlightComesAndGoes()
    {
        WidgetMenu menu;
        Row first(menu);
        Row second(menu);
        auto* const slider = new QSlider(Qt::Horizontal, second.getWidget()); // keeps its moves
        slider->setFixedSize(120, 30);
        first.changes.clear();
        second.changes.clear();
        menu.popup(QPoint(50, 50));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
        QCOMPARE(first.changes, u"+"_qs);
        const QImage picture = ui::test::renderWidget(menu);
        const QColor ground = menu.palette().color(QPalette::Highlight);
        QVERIFY(ui::test::closeTo(
            ui::test::pixelAt(picture, menu.actionGeometry(&first).center()), ground));
        ui::test::FakePointer pointer(&menu);
        QCursor::setPos(menu.mapToGlobal(menu.actionGeometry(&second).center()));
        pointer.moveTo(menu.actionGeometry(&second).center());
        QCOMPARE(menu.activeAction(), &second);
        QCOMPARE(first.changes + second.changes, u"+-+"_qs);
        menu.close();
        QCOMPARE(second.changes, u"+-"_qs);
    }

    void aWidgetMayBeExchangedOrDieWhileItIsShown()
    {
        WidgetMenu menu;
        auto* const row = new Row(menu);
        menu.popup(QPoint(50, 50));
        QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
        auto* const button = new ContextMenuButton;
        button->setFixedSize(300, 40);
        row->setWidget(button);
        QVERIFY(button->isHighlighted());
        button->setEnabled(false);
        QVERIFY(!button->isHighlighted() && !button->isButtonEnabled());
        QTRY_VERIFY(menu.width() >= 300);
        delete button;
        QCOMPARE(row->getWidget(), nullptr);
        QTest::keyClick(menu.windowHandle(), Qt::Key_Up);
        delete row;
        QTest::keyClick(menu.windowHandle(), Qt::Key_Up);
        QVERIFY(menu.actions().isEmpty());
    }

    void keysLeadIntoAFieldAndOutOfIt()
    {
        WidgetMenu menu;
        Row row(menu);
        QAction* const plain = menu.addAction(u"Plain"_qs);
        auto* const field = new QLineEdit(row.getWidget());
        const auto* const second = new QLineEdit(row.getWidget());
        menu.popup(QPoint(50, 50));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QTest::keyClick(menu.windowHandle(), Qt::Key_Down);
        QTest::keyClick(menu.windowHandle(), Qt::Key_A);
        QCOMPARE(field->text(), u"a"_qs);
        menu.setActiveAction(plain); // as the pointer does, which moves no focus
        QTRY_VERIFY(menu.hasFocus());
        QTest::keyClick(menu.windowHandle(), Qt::Key_Up);
        QVERIFY(field->hasFocus());
        QTest::keyClick(menu.windowHandle(), Qt::Key_Tab);
        QVERIFY(second->hasFocus());
        QTest::keyClick(menu.windowHandle(), Qt::Key_Tab);
        QVERIFY(menu.activeAction() == plain && !field->hasFocus());
    }
};

const ui::test::Registration<WidgetMenuTest> kRegistration;

#include "tst_widgetmenu.moc"
