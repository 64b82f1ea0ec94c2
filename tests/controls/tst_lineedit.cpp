#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/LineEdit.h>
#include <MorrantUI/theme/colors.h>

#include <QDialog>
#include <QIntValidator>
#include <QMenu>
#include <QPointer>
#include <QShortcut>
#include <QSignalSpy>

#include <memory>

namespace {

/// A window with two fields, the first of which holds "old".
struct Form
{
    Form()
    {
        field->setGeometry(0, 0, 120, 24);
        other->setGeometry(0, 30, 120, 24);
        window.resize(120, 60);
        field->setText(QStringLiteral("old"));
        window.show();
        window.activateWindow();
    }

    bool isReady() { return QTest::qWaitForWindowActive(&window); }

    void type(const char* text)
    {
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(text));
    }

    QDialog window;
    LineEdit* field = new LineEdit(&window);
    LineEdit* other = new LineEdit(&window);
    QSignalSpy commits{field, &LineEdit::valueChanged};
};

QColor groundOf(QWidget& field)
{
    return ui::test::pixelAt(ui::test::renderWidget(field), QPointF(field.width() - 6, 6));
}

QColor edgeOf(QWidget& field)
{
    return ui::test::pixelAt(ui::test::renderWidget(field), QPointF(field.width() / 2.0, 0.5));
}

} // namespace

class LineEditTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void returnCommitsOnceAndTheLossOfFocusAddsNothing();
    void theLossOfFocusCommitsAChangeOnly();
    void anUndoAfterACommitIsAnEdit();
    void escapeTakesTheEditBackAndThenReachesTheWindow();
    void aFieldEnteredByMouseGivesTheFocusAway();
    void shortcutsOfTheWindowDoNotCutAnEditShort();
    void aTextTheValidatorRejectsIsNeverCommitted();
    void fixupHasTheLastWord();
    void theFieldsOwnMenuDoesNotEndTheEdit();
    void aSlotThatMovesTheFocusIsCalledOnce();
    void aSlotMayDeleteTheField();
    void colorsFollowTheThemeWithTheNextPaint();

private:
    ui::test::StyledApplication m_application;
};

void LineEditTest::returnCommitsOnceAndTheLossOfFocusAddsNothing()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    QCOMPARE(form.commits.size(), 0);
    QSignalSpy finished(form.field, &QLineEdit::editingFinished);
    QTest::keyClick(form.field, Qt::Key_Return);
    QTest::keyClick(form.field, Qt::Key_Enter);
    QCOMPARE(form.commits, QList<QVariantList>{{true}});
    QCOMPARE(form.field->selectedText(), QStringLiteral("new"));
    QVERIFY(form.field->hasFocus());
    form.other->setFocus();
    QCOMPARE(form.commits.size(), 1);
    QVERIFY(finished.size() >= 2);
}

void LineEditTest::theLossOfFocusCommitsAChangeOnly()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setFocus();
    form.other->setFocus();
    form.field->setFocus();
    form.type("new");
    form.type("old");
    form.other->setFocus();
    QCOMPARE(form.commits.size(), 0);
    form.field->setFocus();
    form.type("new");
    form.other->setFocus();
    QCOMPARE(form.commits, QList<QVariantList>{{true}});
}

void LineEditTest::anUndoAfterACommitIsAnEdit()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    QTest::keyClick(form.field, Qt::Key_Return);
    QVERIFY(!form.field->isModified());
    form.field->undo();
    form.type("two"); // which takes as many steps as the first edit did
    QTest::keyClick(form.field, Qt::Key_Return);
    QCOMPARE(form.commits.size(), 2);
    form.field->undo();
    QVERIFY(form.field->text() != QStringLiteral("two"));
    form.other->setFocus();
    QCOMPARE(form.commits.size(), 3);
}

void LineEditTest::escapeTakesTheEditBackAndThenReachesTheWindow()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    QTest::keyClick(form.field, Qt::Key_Escape);
    QCOMPARE(form.field->text(), QStringLiteral("old"));
    form.field->setText(QStringLiteral("host")); // committed from the start
    QTest::keyClicks(form.field, QStringLiteral("!"));
    QTest::keyClick(form.field, Qt::Key_Escape);
    QCOMPARE(form.field->text(), QStringLiteral("host"));
    QVERIFY(form.window.isVisible());
    QTest::keyClick(form.field, Qt::Key_Escape);
    QVERIFY(!form.window.isVisible());
    QCOMPARE(form.commits.size(), 0);
}

void LineEditTest::aFieldEnteredByMouseGivesTheFocusAway()
{
    Form form;
    QVERIFY(form.isReady());
    ui::test::FakePointer pointer(form.field);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        form.other->setFocus();
        pointer.moveTo({20, 10});
        pointer.press();
        pointer.release();
        QVERIFY(form.field->hasFocus());
        QTest::keyClick(form.field, key);
        QVERIFY(!form.field->hasFocus());
        QVERIFY(form.window.isVisible());
    }
}

void LineEditTest::shortcutsOfTheWindowDoNotCutAnEditShort()
{
    Form form;
    QVERIFY(form.isReady());
    const QShortcut onReturn(Qt::Key_Return, &form.window);
    const QShortcut onEscape(Qt::Key_Escape, &form.window);
    const QShortcut onControlReturn(Qt::CTRL | Qt::Key_Return, &form.window);
    const QShortcut onEnter(Qt::KeypadModifier | Qt::Key_Enter, &form.window);
    QSignalSpy controlReturns(&onControlReturn, &QShortcut::activated);
    QSignalSpy enters(&onEnter, &QShortcut::activated);
    QSignalSpy returns(&onReturn, &QShortcut::activated);
    QSignalSpy escapes(&onEscape, &QShortcut::activated);
    form.field->setFocus(Qt::TabFocusReason);
    QWindow* const window = form.window.windowHandle();
    form.type("zero");
    QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier); // the window's
    QCOMPARE(controlReturns.size(), 1);
    QCOMPARE(form.commits.size(), 0);
    QTest::keyClick(window, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(enters.size(), 0);
    QCOMPARE(form.commits.size(), 1);
    form.type("one");
    QTest::keyClick(window, Qt::Key_Return);
    QCOMPARE(form.commits.size(), 2);
    form.type("two");
    QTest::keyClick(window, Qt::Key_Escape);
    QCOMPARE(form.field->text(), QStringLiteral("one"));
    QCOMPARE(returns.size() + escapes.size(), 0);
    QTest::keyClick(window, Qt::Key_Escape); // nothing left to take back
    QCOMPARE(escapes.size(), 1);
}

void LineEditTest::aTextTheValidatorRejectsIsNeverCommitted()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setValidator(new QIntValidator(10, 99, form.field));
    QVERIFY(form.field->looksInvalid()); // "old"
    form.field->setText(QStringLiteral("42"));
    QVERIFY(!form.field->looksInvalid());
    form.field->setFocus(Qt::TabFocusReason);
    form.type("5");
    const QColor red = ui::colorQt(QStringLiteral("Red"));
    const QColor edge = edgeOf(*form.field);
    QVERIFY2(edge.red() > 2 * edge.blue() && edge.hue() - red.hue() < 10, qPrintable(edge.name()));
    QTest::keyClick(form.field, Qt::Key_Return);
    QCOMPARE(form.field->text(), QStringLiteral("5"));
    QVERIFY(form.field->hasFocus());
    form.other->setFocus();
    QCOMPARE(form.field->text(), QStringLiteral("42"));
    form.field->enterText(QStringLiteral("7"));
    QCOMPARE(form.field->text(), QStringLiteral("42"));
    QCOMPARE(form.commits.size(), 0);

    form.field->setInvalid(true);
    QVERIFY(form.field->looksInvalid());
}

void LineEditTest::fixupHasTheLastWord()
{
    class Upper : public LineEdit
    {
    public:
        using LineEdit::LineEdit;
        void fixup(QString& text) override
        {
            ++calls;
            text = text.toUpper();
        }
        int calls = 0;
    };
    Upper field;
    field.setText(QStringLiteral("AB"));
    QSignalSpy commits(&field, &LineEdit::valueChanged);
    QString finished;
    connect(&field, &QLineEdit::editingFinished, this, [&] { finished = field.text(); });
    QTest::keyClicks(&field, QStringLiteral("c"));
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(finished, QStringLiteral("ABC")); // not the text before fixup
    QCOMPARE(commits.size(), 1);
    field.setText(QStringLiteral("ABC"));
    field.enterText(QStringLiteral("abc")); // nothing changes
    QCOMPARE(field.text(), QStringLiteral("ABC"));
    QCOMPARE(commits.size(), 1);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(field.calls, 2);
}

void LineEditTest::theFieldsOwnMenuDoesNotEndTheEdit()
{
    Form form;
    QVERIFY(form.isReady());
    form.field->setFocus();
    form.type("new");
    {
        QMenu menu(form.field);
        menu.addAction(QStringLiteral("Paste"));
        menu.popup(form.field->mapToGlobal(QPoint(5, 5)));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QCOMPARE(form.commits.size(), 0);
    }
    QMenu menu(form.other);
    menu.addAction(QStringLiteral("Other"));
    menu.popup(form.field->mapToGlobal(QPoint(5, 5)));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QCOMPARE(form.commits.size(), 1);
}

void LineEditTest::aSlotThatMovesTheFocusIsCalledOnce()
{
    Form form;
    QVERIFY(form.isReady());
    connect(form.field, &LineEdit::valueChanged, form.other, [&] { form.other->setFocus(); });
    form.field->setFocus();
    form.type("new");
    QTest::keyClick(form.field, Qt::Key_Return);
    QCOMPARE(form.commits.size(), 1);
    QVERIFY(form.other->hasFocus());
}

void LineEditTest::aSlotMayDeleteTheField()
{
    for (const bool byReturn : {true, false}) {
        Form form;
        QVERIFY(form.isReady());
        const QPointer<LineEdit> field = form.field;
        connect(field, &LineEdit::valueChanged, &form.window, [&] { delete form.field; });
        field->setFocus(Qt::MouseFocusReason);
        form.type("new");
        if (byReturn) {
            QTest::keyPress(form.field, Qt::Key_Return);
        } else {
            form.other->setFocus();
        }
        QVERIFY(!field);
    }
}

void LineEditTest::colorsFollowTheThemeWithTheNextPaint()
{
    Form form;
    QVERIFY(form.isReady());
    form.other->setFocus();
    form.field->setColors(QStringLiteral("Ground"), QStringLiteral("Ink"), QStringLiteral("Line"));
    for (const QColor ground : {QColor(40, 80, 120), QColor(120, 40, 80)}) {
        m_application.theme().setColor(QStringLiteral("Ground"), ground);
        m_application.theme().setColor(QStringLiteral("Line"), ground.lighter(150));
        QVERIFY(ui::test::closeTo(groundOf(*form.field), ground));
        QVERIFY(edgeOf(*form.field).value() > ground.value());
    }
    const QColor rest = groundOf(*form.field);
    form.field->setFocus();
    QVERIFY(groundOf(*form.field).value() < rest.value());
    form.other->setFocus();
    QCOMPARE(groundOf(*form.field), rest);
}

namespace {
const ui::test::Registration<LineEditTest> kRegistration;
} // namespace

#include "tst_lineedit.moc"
