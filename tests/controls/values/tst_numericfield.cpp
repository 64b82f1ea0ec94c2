#include "controls/PaintCounter.h"
#include "controls/StyledApplication.h"
#include "controls/values/NumericPanel.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QMenu>
#include <QShortcut>

#include <limits>
#include <tuple>

using Panel = ui::test::NumericPanel;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

class NumericFieldTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void limitsAndKindMayComeInAnyOrder();
    void anyTextBecomesANumberAtOnce();
    void tabEditsEverythingAndLeavingEndsTheEdit();
    void stepsByKeyAreCommittedOnce();
    void whatChangesNothingIsNotCommittedAndAnUndoIs();
    void escapeTakesStepsBackWhateverTheHostEchoes();
    void arrowsKeepTheSelectionAndWinOverShortcuts();
    void nothingIsPaintedWithoutAChange();
    void screenReadersReadAndSetTheNumber();
};

void NumericFieldTest::limitsAndKindMayComeInAnyOrder()
{
    QCOMPARE(NumericField(-0.5).text(), u"-1"_qs);
    QCOMPARE(NumericField(1e12).value(), 2147483647.0);
    NumericField field;
    QSignalSpy values(&field, &LineEdit::valueChanged);
    field.setMin(-1e12);
    QCOMPARE(field.getMin(), -2147483648.0);
    field.setFieldType(NumericField::FloatingPoint);
    field.setMax(1e12);
    field.setValue(5e11);
    field.setFieldType(NumericField::Integer); // limits and text stay as they are
    QCOMPARE(field.getMax(), 1e12);
    QCOMPARE(field.text(), u"500000000000.0"_qs);
    field.setValue(field.value());
    QCOMPARE(field.text(), u"500000000000"_qs);

    field.setMin(10);
    field.setMax(-10);
    field.setValue(3);
    QCOMPARE(field.value(), -10.0);
    field.setMin(kNaN);
    field.setMax(kNaN);
    field.setSoftMin(kNaN);
    field.setSoftMax(kNaN);
    field.setDragMultiplier(kInfinity);
    QVERIFY(field.getMin() == 10.0 && field.getMax() == -10.0);
    QCOMPARE(field.softMin(), std::numeric_limits<double>::lowest());
    QCOMPARE(field.softMax(), std::numeric_limits<double>::max());
    QCOMPARE(field.dragMultiplier(), 1.0);
    for (const QString& text : {u"no number"_qs, u"nan"_qs}) {
        field.setText(text);
        QCOMPARE(field.value(), 0.0);
    }
    field.setStartValue(kInfinity);
    QCOMPARE(field.startValue(), -10.0);
    QCOMPARE(values.size(), 0);
}

void NumericFieldTest::anyTextBecomesANumberAtOnce()
{
    const QString halfAPair = u"4"_qs + QChar(0xd83d); // of surrogates
    const std::tuple<QString, const char*, bool> cases[] = {
        {u"7"_qs, "7.0", true},
        {u"1,5*2"_qs, "3.0", true},
        {u"1,234"_qs, "1.234", true}, // the comma is never a grouping mark
        {u"200"_qs, "100.0", true},   // limited
        {u"   "_qs, "0.0", false},
        {u"12+"_qs, "12.0", false},
        {u"abc"_qs, "0.0", false},
        {u"1,234.5"_qs, "1.234", false},
        {u"1/0"_qs, "1.0", false},
        {u"inf"_qs, "0.0", false},
        {u"nan"_qs, "0.0", false},
        {u"\u0663\u0664"_qs, "0.0", false}, // digits, but not ours
        {halfAPair, "4.0", false},
        {QString(20000, u'9'), "0.0", false},
        {QString(20000, u','), "0.0", false}};
    for (const auto& [typed, shown, isGood] : cases) {
        Panel panel(9.0);
        panel.field->setMax(100);
        panel.enterByTab();
        panel.field->insert(typed);
        QElapsedTimer timer;
        timer.start();
        panel.key(Qt::Key_Return);
        QVERIFY(timer.elapsed() < 2000);
        QCOMPARE(panel.field->text(), QLatin1String(shown));
        panel.other->setFocus();
        QCOMPARE(panel.values, QList<QVariantList>{{true}});

        const QStringList log = takeLog();
        QCOMPARE(log.size(), isGood ? 0 : 1);
        QVERIFY(isGood || log.front().startsWith(u"error: Inline Expression Error: "_qs));
        QVERIFY(!panel.field->looksInvalid()); // errors are the log's alone
    }
}

void NumericFieldTest::tabEditsEverythingAndLeavingEndsTheEdit()
{
    Panel panel;
    for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::BacktabFocusReason}) {
        panel.field->setFocus(reason);
        QVERIFY(!panel.field->isReadOnly());
        QCOMPARE(panel.field->selectedText(), u"5.0"_qs);
        QMenu menu(panel.field); // the field's own leaves it in edit mode, for its Paste
        menu.addAction(u"Paste"_qs);
        menu.popup(panel.field->mapToGlobal(QPoint(5, 5)));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QVERIFY(!panel.field->isReadOnly());
        menu.close();
        panel.other->setFocus();
        QVERIFY(panel.field->isReadOnly());
    }
    panel.field->setFocus(Qt::OtherFocusReason);
    QVERIFY(panel.field->isReadOnly());
    const QColor rest = panel.field->palette().color(QPalette::Base);
    panel.click({5, 10});
    QVERIFY(panel.field->palette().color(QPalette::Base).value() < rest.value());
}

void NumericFieldTest::stepsByKeyAreCommittedOnce()
{
    Panel panel;
    panel.enterByTab();
    panel.key(Qt::Key_Up);
    panel.key(Qt::Key_Up, Qt::ShiftModifier);
    panel.key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(panel.field->text(), u"15.9"_qs);
    panel.other->setFocus();
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {false}, {false}, {true}}));

    panel.key(Qt::Key_Up); // at rest, without the focus
    QCOMPARE(panel.field->text(), u"16.9"_qs);
    panel.enterByTab();
    panel.other->setFocus();
    QCOMPARE(panel.values.size(), 5);
}

void NumericFieldTest::whatChangesNothingIsNotCommittedAndAnUndoIs()
{
    Panel panel;
    panel.field->setMax(6);
    panel.enterByTab();
    panel.field->clear();
    panel.key(Qt::Key_Return);
    QVERIFY(panel.field->text().isEmpty() && panel.field->value() == 0.0);
    panel.other->setFocus();
    QCOMPARE(panel.field->text(), u"5.0"_qs);
    QCOMPARE(panel.values.size(), 0);
    panel.enterByTab();
    panel.key(Qt::Key_Up);
    panel.key(Qt::Key_Return);
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {true}}));
    panel.key(Qt::Key_Up); // at the maximum
    panel.other->setFocus();
    panel.enterByTab();
    panel.key(Qt::Key_Down);
    panel.key(Qt::Key_Up); // and back
    panel.other->setFocus();
    panel.enterByTab();
    panel.key(Qt::Key_Down);
    panel.field->setValue(4); // by the host, after a step
    panel.key(Qt::Key_Escape);
    QCOMPARE(panel.field->text(), u"4.0"_qs);
    QCOMPARE(panel.values.mid(2), QList<QVariantList>(4, {false}));

    panel.values.clear();
    panel.field->selectAll();
    QTest::keyClicks(panel.field, u"2.0"_qs); // which fixup() has nothing to add to
    panel.key(Qt::Key_Return);
    QCOMPARE(panel.values.size(), 1);
    QTest::keySequence(panel.field, QKeySequence::Undo);
    QVERIFY(panel.field->text() != u"2.0"_qs);
    panel.other->setFocus();
    QCOMPARE(panel.values, (QList<QVariantList>{{true}, {true}}));
}

void NumericFieldTest::escapeTakesStepsBackWhateverTheHostEchoes()
{
    Panel panel;
    connect(panel.field, &LineEdit::valueChanged, panel.field, [&] {
        panel.field->setValue(
            std::min(panel.field->value(), 5.5)); // a host with a limit of its own
    });
    panel.enterByTab();
    panel.field->setValue(5.0);
    QCOMPARE(panel.field->selectedText(), u"5.0"_qs); // nothing has changed
    panel.key(Qt::Key_Up);
    QCOMPARE(panel.field->text(), u"5.5"_qs);
    QTest::keyClicks(panel.field, u"1/3"_qs);
    panel.key(Qt::Key_Escape);
    QCOMPARE(panel.field->text(), u"5.0"_qs);
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {false}})); // the host follows
    panel.key(Qt::Key_Escape);
    QCOMPARE(panel.values.size(), 2);

    panel.key(Qt::Key_Up);
    panel.key(Qt::Key_Return);
    QCOMPARE(panel.field->text(), u"5.5"_qs);
    QCOMPARE(panel.values.last(), QVariantList{true});
}

void NumericFieldTest::arrowsKeepTheSelectionAndWinOverShortcuts()
{
    Panel panel(99.5);
    const QShortcut up(Qt::Key_Up, panel.window.get());
    QSignalSpy activated(&up, &QShortcut::activated);
    panel.enterByTab();
    QTest::keyClick(panel.window->windowHandle(), Qt::Key_Up);
    QCOMPARE(activated.size(), 0);
    QCOMPARE(panel.field->selectedText(), u"100.5"_qs);
    panel.field->setSelection(1, 2);
    panel.key(Qt::Key_Down);
    QCOMPARE(panel.field->selectionStart(), 1);
    QCOMPARE(panel.field->selectedText(), u"9."_qs);
}

void NumericFieldTest::nothingIsPaintedWithoutAChange()
{
    Panel panel;
    ui::test::PaintCounter paints(panel.field);
    paints.take();
    panel.field->setValue(5.0001);
    panel.field->setInvalid(false);
    QCOMPARE(paints.take(), 0);
    panel.field->setValue(6);
    panel.field->setValue(7);
    QCOMPARE(paints.take(), 1);
    theme().setColor(u"Text"_qs, QColor(1, 2, 3));
    panel.field->update();
    paints.take();
    QCOMPARE(panel.field->palette().color(QPalette::Text), QColor(1, 2, 3));
    QCOMPARE(paints.take(), 0);
}

void NumericFieldTest::screenReadersReadAndSetTheNumber()
{
    Panel panel;
    panel.field->setMin(-10);
    panel.field->setMax(100);
    panel.field->setDragMultiplier(-0.5);
    panel.field->setToolTip(u"Opacity"_qs);
    QAccessibleInterface* const spinBox = QAccessible::queryAccessibleInterface(panel.field);
    QCOMPARE(spinBox->role(), QAccessible::SpinBox);
    QCOMPARE(spinBox->text(QAccessible::Name), u"Opacity"_qs);
    QCOMPARE(spinBox->text(QAccessible::Value), u"5.0"_qs);
    QAccessibleValueInterface& number = *spinBox->valueInterface();
    const QVariantList numbers{
        number.currentValue(),
        number.minimumValue(),
        number.maximumValue(),
        number.minimumStepSize()};
    QCOMPARE(numbers, (QVariantList{5.0, -10.0, 100.0, 0.5}));

    number.setCurrentValue(-1.25e-1);
    QCOMPARE(panel.field->text(), u"-0.125"_qs);
    number.setCurrentValue(1e20);
    QCOMPARE(panel.field->value(), 100.0);
    QCOMPARE(panel.values, (QList<QVariantList>{{true}, {true}}));

    QAccessibleTextInterface& text = *spinBox->textInterface();
    text.setSelection(0, 1, 3);
    QCOMPARE(panel.field->selectedText(), text.text(1, 3));
    QCOMPARE(text.offsetAtPoint(text.characterRect(0).center() - QPoint(1, 0)), 0);
}

const ui::test::Registration<NumericFieldTest> kRegistration;

#include "tst_numericfield.moc"
