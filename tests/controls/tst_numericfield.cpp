#include "controls/NumericPanel.h"
#include "controls/StyledApplication.h"
#include "support/TestCase.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QMenu>
#include <QShortcut>

#include <clocale>
#include <limits>
#include <locale>
#include <string>
#include <utility>

using Panel = ui::test::NumericPanel;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    /// The paints since the last call.
    int take()
    {
        QCoreApplication::processEvents();
        return std::exchange(paints, 0);
    }

private:
    int paints = 0;
};

struct GermanNumbers : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Every locale of the process writes 1.234,5, as far as the system has one.
class GermanProcess
{
public:
    GermanProcess()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        std::locale::global(std::locale(std::locale::classic(), new GermanNumbers));
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }
    ~GermanProcess()
    {
        std::locale::global(std::locale::classic());
        QLocale::setDefault(m_before);
    }
    Q_DISABLE_COPY_MOVE(GermanProcess)

private:
    QLocale m_before;
};

} // namespace

class NumericFieldTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void limitsAndKindMayComeInAnyOrder();
    void anyTextBecomesANumberAtOnce_data();
    void anyTextBecomesANumberAtOnce();
    void anEmptyTextIsNotCommitted();
    void tabEditsEverythingAndLeavingEndsTheEdit();
    void stepsByKeyAreCommittedOnce();
    void stepsThatChangeNothingAreNotCommitted();
    void whatTheHostSetsAfterAStepStays();
    void anUndoAfterACommitIsReported();
    void escapeTakesStepsBackWhateverTheHostEchoes();
    void arrowsKeepTheSelectionAndWinOverShortcuts();
    void nothingIsPaintedWithoutAChange();
    void screenReadersReadAndSetTheNumber();

private:
    ui::test::StyledApplication m_application;
};

void NumericFieldTest::limitsAndKindMayComeInAnyOrder()
{
    QCOMPARE(NumericField(-0.5).text(), QStringLiteral("-1"));
    QCOMPARE(NumericField(1e12).value(), 2147483647.0);
    NumericField field;
    QVERIFY(field.hasMouseTracking());
    QCOMPARE(field.focusPolicy(), Qt::TabFocus);
    QCOMPARE(field.backgroundColor(), QStringLiteral("Window"));
    QCOMPARE(field.textColor(), QStringLiteral("Text"));
    QCOMPARE(field.frameColor(), QStringLiteral("WindowText"));
    QSignalSpy values(&field, &LineEdit::valueChanged);
    field.setMin(-1e12);
    QCOMPARE(field.getMin(), -2147483648.0);
    field.setFieldType(NumericField::FloatingPoint);
    field.setMax(1e12);
    field.setValue(5e11);
    field.setFieldType(NumericField::Integer); // limits and text stay as they are
    QCOMPARE(field.getMax(), 1e12);
    QCOMPARE(field.text(), QStringLiteral("500000000000.0"));
    field.setValue(field.value());
    QCOMPARE(field.text(), QStringLiteral("500000000000"));

    field.setMin(10);
    field.setMax(-10);
    field.setValue(3);
    QCOMPARE(field.value(), -10.0);

    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    field.setMin(kNaN);
    field.setMax(kNaN);
    field.setSoftMin(kNaN);
    field.setSoftMax(kNaN);
    field.setDragMultiplier(kInfinity);
    QCOMPARE(field.getMin(), 10.0);
    QCOMPARE(field.getMax(), -10.0);
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

void NumericFieldTest::anyTextBecomesANumberAtOnce_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isError");
    const auto row = [](const QString& typed, const char* shown, bool isError = false) {
        QTest::addRow("%.40s", qPrintable(typed)) << typed << QString::fromLatin1(shown) << isError;
    };
    row(u"7"_qs, "7.0");
    row(u"1,5*2"_qs, "3.0");
    row(u"(1+2)*3-2^3"_qs, "1.0");
    row(u"-0,25e1"_qs, "-2.5");
    row(u"min(1;2)"_qs, "1.0");
    row(u"1,234"_qs, "1.234"); // the comma is never a grouping mark
    row(u"200"_qs, "100.0");   // limited
    row(u"   "_qs, "0.0", true);
    row(u"12+"_qs, "12.0", true);
    row(u"3px"_qs, "3.0", true);
    row(u"abc"_qs, "0.0", true);
    row(u"1,234.5"_qs, "1.234", true);
    row(u"(1+2"_qs, "0.0", true);
    row(u"1/0"_qs, "1.0", true);
    row(u"inf"_qs, "0.0", true);
    row(u"nan"_qs, "0.0", true);
    row(u"\u0663\u0664"_qs, "0.0", true); // digits, but not ours
    row(u"1\u00a0000"_qs, "1.0", true);
    row(u"4"_qs + QChar(0xd83d), "4.0", true); // half a surrogate pair
    row(QString(20000, u'9'), "0.0", true);
    row(u"1+"_qs.repeated(10000), "100.0", true);
    row(QString(20000, u'('), "0.0", true);
    row(QString(20000, u'-'), "0.0", true);
    row(QString(20000, u','), "0.0", true);
}

void NumericFieldTest::anyTextBecomesANumberAtOnce()
{
    QFETCH(QString, typed);
    QFETCH(bool, isError);
    const GermanProcess german;
    Panel panel(9.0);
    QVERIFY(panel.isReady());
    panel.field->setMax(100);
    panel.enterByTab();
    panel.field->insert(typed);
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(panel.field, Qt::Key_Return);
    QVERIFY(timer.elapsed() < 2000);
    QTEST(panel.field->text(), "shown");
    panel.other->setFocus();
    QCOMPARE(panel.values, QList<QVariantList>{{true}});

    const QStringList log = takeLog();
    QCOMPARE(log.size(), isError ? 1 : 0);
    QVERIFY(!isError || log.front().startsWith(u"error: Inline Expression Error: "_qs));
    QVERIFY(!panel.field->looksInvalid()); // errors are the log's alone
}

void NumericFieldTest::anEmptyTextIsNotCommitted()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.enterByTab();
    panel.field->clear();
    QTest::keyClick(panel.field, Qt::Key_Return);
    QCOMPARE(panel.field->text(), QString());
    QCOMPARE(panel.field->value(), 0.0);
    panel.other->setFocus();
    QCOMPARE(panel.field->text(), QStringLiteral("5.0"));
    QCOMPARE(panel.values.size(), 0);
}

void NumericFieldTest::tabEditsEverythingAndLeavingEndsTheEdit()
{
    Panel panel;
    QVERIFY(panel.isReady());
    for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::BacktabFocusReason}) {
        panel.field->setFocus(reason);
        QVERIFY(!panel.field->isReadOnly());
        QCOMPARE(panel.field->selectedText(), QStringLiteral("5.0"));
        QMenu menu(panel.field); // the field's own leaves it in edit mode, for its Paste
        menu.addAction(QStringLiteral("Paste"));
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
    QVERIFY(panel.isReady());
    panel.enterByTab();
    QTest::keyClick(panel.field, Qt::Key_Up);
    QTest::keyClick(panel.field, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(panel.field, Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(panel.field->text(), QStringLiteral("15.9"));
    panel.other->setFocus();
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {false}, {false}, {true}}));

    QTest::keyClick(panel.field, Qt::Key_Up); // at rest, without the focus
    QCOMPARE(panel.field->text(), QStringLiteral("16.9"));
    panel.enterByTab();
    panel.other->setFocus();
    QCOMPARE(panel.values.size(), 5);
}

void NumericFieldTest::stepsThatChangeNothingAreNotCommitted()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.field->setMax(6);
    panel.enterByTab();
    QTest::keyClick(panel.field, Qt::Key_Up);
    QTest::keyClick(panel.field, Qt::Key_Return);
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {true}}));
    QTest::keyClick(panel.field, Qt::Key_Up); // at the maximum
    panel.other->setFocus();
    panel.enterByTab();
    QTest::keyClick(panel.field, Qt::Key_Down);
    QTest::keyClick(panel.field, Qt::Key_Up); // and back
    panel.other->setFocus();
    QCOMPARE(panel.values.mid(2), QList<QVariantList>(3, {false}));
}

void NumericFieldTest::whatTheHostSetsAfterAStepStays()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.enterByTab();
    QTest::keyClick(panel.field, Qt::Key_Up);
    panel.field->setValue(80);
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QCOMPARE(panel.field->text(), QStringLiteral("80.0"));
    panel.other->setFocus();
    QCOMPARE(panel.values, QList<QVariantList>{{false}});
}

void NumericFieldTest::anUndoAfterACommitIsReported()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.enterByTab();
    QTest::keyClicks(panel.field, QStringLiteral("12.0")); // which fixup() has nothing to add to
    QTest::keyClick(panel.field, Qt::Key_Return);
    QCOMPARE(panel.values.size(), 1);
    QTest::keySequence(panel.field, QKeySequence::Undo);
    QCOMPARE(panel.field->text(), QStringLiteral("5.0"));
    panel.other->setFocus();
    QCOMPARE(panel.values, (QList<QVariantList>{{true}, {true}}));
}

void NumericFieldTest::escapeTakesStepsBackWhateverTheHostEchoes()
{
    Panel panel;
    QVERIFY(panel.isReady());
    connect(panel.field, &LineEdit::valueChanged, panel.field, [&] {
        panel.field->setValue(
            std::min(panel.field->value(), 5.5)); // a host with a limit of its own
    });
    panel.enterByTab();
    panel.field->setValue(5.0);
    QCOMPARE(panel.field->selectedText(), QStringLiteral("5.0")); // nothing has changed
    QTest::keyClick(panel.field, Qt::Key_Up);
    QCOMPARE(panel.field->text(), QStringLiteral("5.5"));
    QTest::keyClicks(panel.field, QStringLiteral("1/3"));
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QCOMPARE(panel.field->text(), QStringLiteral("5.0"));
    QCOMPARE(panel.values, (QList<QVariantList>{{false}, {false}})); // the host follows
    QTest::keyClick(panel.field, Qt::Key_Escape);
    QCOMPARE(panel.values.size(), 2);

    QTest::keyClick(panel.field, Qt::Key_Up);
    QTest::keyClick(panel.field, Qt::Key_Return);
    QCOMPARE(panel.field->text(), QStringLiteral("5.5"));
    QCOMPARE(panel.values.last(), QVariantList{true});
}

void NumericFieldTest::arrowsKeepTheSelectionAndWinOverShortcuts()
{
    Panel panel(99.5);
    QVERIFY(panel.isReady());
    const QShortcut up(Qt::Key_Up, panel.window.get());
    QSignalSpy activated(&up, &QShortcut::activated);
    panel.enterByTab();
    QTest::keyClick(panel.window->windowHandle(), Qt::Key_Up);
    QCOMPARE(activated.size(), 0);
    QCOMPARE(panel.field->selectedText(), QStringLiteral("100.5"));
    panel.field->setSelection(1, 2);
    QTest::keyClick(panel.field, Qt::Key_Down);
    QCOMPARE(panel.field->selectionStart(), 1);
    QCOMPARE(panel.field->selectedText(), QStringLiteral("9."));
}

void NumericFieldTest::nothingIsPaintedWithoutAChange()
{
    Panel panel;
    QVERIFY(panel.isReady());
    PaintCounter counter(panel.field);
    counter.take();
    panel.field->setValue(5.0001);
    panel.field->setInvalid(false);
    QCOMPARE(counter.take(), 0);
    panel.field->setValue(6);
    panel.field->setValue(7);
    QCOMPARE(counter.take(), 1);
    m_application.theme().setColor(QStringLiteral("Text"), QColor(1, 2, 3));
    panel.field->update();
    counter.take();
    QCOMPARE(panel.field->palette().color(QPalette::Text), QColor(1, 2, 3));
    QCOMPARE(counter.take(), 0);
}

void NumericFieldTest::screenReadersReadAndSetTheNumber()
{
    Panel panel;
    QVERIFY(panel.isReady());
    panel.field->setMin(-10);
    panel.field->setMax(100);
    panel.field->setDragMultiplier(-0.5);
    panel.field->setToolTip(QStringLiteral("Opacity"));
    QAccessibleInterface* const spinBox = QAccessible::queryAccessibleInterface(panel.field);
    QVERIFY(spinBox && spinBox->valueInterface() && spinBox->textInterface());
    QCOMPARE(spinBox->role(), QAccessible::SpinBox);
    QCOMPARE(spinBox->text(QAccessible::Name), QStringLiteral("Opacity"));
    QCOMPARE(spinBox->text(QAccessible::Value), QStringLiteral("5.0"));
    QAccessibleValueInterface& number = *spinBox->valueInterface();
    QCOMPARE(number.currentValue().toDouble(), 5.0);
    QCOMPARE(number.minimumValue().toDouble(), -10.0);
    QCOMPARE(number.maximumValue().toDouble(), 100.0);
    QCOMPARE(number.minimumStepSize().toDouble(), 0.5);

    number.setCurrentValue(-1.25e-1);
    QCOMPARE(panel.field->text(), QStringLiteral("-0.125"));
    number.setCurrentValue(1e20);
    QCOMPARE(panel.field->value(), 100.0);
    QCOMPARE(panel.values, (QList<QVariantList>{{true}, {true}}));

    QAccessibleTextInterface& text = *spinBox->textInterface();
    text.setSelection(0, 1, 3);
    QCOMPARE(panel.field->selectedText(), text.text(1, 3));
    QCOMPARE(text.offsetAtPoint(text.characterRect(0).center() - QPoint(1, 0)), 0);
}

namespace {
const ui::test::Registration<NumericFieldTest> kRegistration;
} // namespace

#include "tst_numericfield.moc"
