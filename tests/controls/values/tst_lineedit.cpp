#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/theme/colors.h>

#include <QDialog>
#include <QIntValidator>
#include <QMenu>
#include <QPointer>
#include <QShortcut>
#include <QSignalSpy>

namespace {

/// An active window with two fields, the first of which holds "old".
struct Form
{
    Form()
    {
        field->setGeometry(0, 0, 120, 24);
        other->setGeometry(0, 30, 120, 24);
        window.resize(120, 60);
        field->setText(u"old"_qs);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    void type(const char* text)
    {
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(text));
    }
    void key(Qt::Key key) { QTest::keyClick(field, key); }

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

class LineEditTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void returnAndTheLossOfFocusCommitAChangeOnce();
    void anUndoAfterACommitIsAnEdit();
    void escapeTakesTheEditBackAndThenReachesTheWindow();
    void aFieldEnteredByMouseGivesTheFocusAway();
    void shortcutsOfTheWindowDoNotCutAnEditShort();
    void aTextTheValidatorRejectsIsNeverCommitted();
    void fixupHasTheLastWord();
    void theFieldsOwnMenuDoesNotEndTheEdit();
    void aSlotMayMoveTheFocusOrDeleteTheField();
    void colorsFollowTheThemeWithTheNextPaint();
};

void LineEditTest::returnAndTheLossOfFocusCommitAChangeOnce()
{
    Form form;
    QSignalSpy finished(form.field, &QLineEdit::editingFinished);
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    QCOMPARE(form.commits.size(), 0);
    form.key(Qt::Key_Return);
    form.key(Qt::Key_Enter);
    QCOMPARE(form.commits, QList<QVariantList>{{true}});
    QCOMPARE(form.field->selectedText(), u"new"_qs);
    QVERIFY(form.field->hasFocus() && finished.size() >= 2);
    form.other->setFocus();
    form.field->setFocus();
    form.type("old");
    form.type("new");
    form.other->setFocus();
    QCOMPARE(form.commits.size(), 1);
    form.field->setFocus();
    form.type("old");
    form.other->setFocus();
    QCOMPARE(form.commits, (QList<QVariantList>{{true}, {true}}));
}

void LineEditTest::anUndoAfterACommitIsAnEdit()
{
    Form form;
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    form.key(Qt::Key_Return);
    QVERIFY(!form.field->isModified());
    form.field->undo();
    form.type("two"); // which takes as many steps as the first edit did
    form.key(Qt::Key_Return);
    QCOMPARE(form.commits.size(), 2);
    form.field->undo();
    QVERIFY(form.field->text() != u"two"_qs);
    form.other->setFocus();
    QCOMPARE(form.commits.size(), 3);
}

void LineEditTest::escapeTakesTheEditBackAndThenReachesTheWindow()
{
    Form form;
    form.field->setFocus(Qt::TabFocusReason);
    form.type("new");
    form.key(Qt::Key_Escape);
    QCOMPARE(form.field->text(), u"old"_qs);
    form.field->setText(u"host"_qs); // committed from the start
    QTest::keyClicks(form.field, u"!"_qs);
    form.key(Qt::Key_Escape);
    QCOMPARE(form.field->text(), u"host"_qs);
    QVERIFY(form.window.isVisible());
    form.key(Qt::Key_Escape);
    QVERIFY(!form.window.isVisible());
    QCOMPARE(form.commits.size(), 0);
}

void LineEditTest::aFieldEnteredByMouseGivesTheFocusAway()
{
    Form form;
    ui::test::FakePointer pointer(form.field);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        form.other->setFocus();
        pointer.moveTo({20, 10});
        pointer.press();
        pointer.release();
        QVERIFY(form.field->hasFocus());
        form.key(key);
        QVERIFY(!form.field->hasFocus());
        QVERIFY(form.window.isVisible());
    }
}

void LineEditTest::shortcutsOfTheWindowDoNotCutAnEditShort()
{
    Form form;
    QStringList activated;
    for (const char* const keys : {"Return", "Esc", "Ctrl+Return", "Num+Enter"}) {
        const QString name = QLatin1String(keys);
        auto* shortcut = new QShortcut(QKeySequence(name), &form.window);
        connect(shortcut, &QShortcut::activated, this, [&activated, name] { activated << name; });
    }
    QWindow* const window = form.window.windowHandle();
    form.field->setFocus(Qt::TabFocusReason);
    form.type("zero");
    QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier); // the window's
    QCOMPARE(form.commits.size(), 0);
    QTest::keyClick(window, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(form.commits.size(), 1);
    form.type("one");
    QTest::keyClick(window, Qt::Key_Return);
    QCOMPARE(form.commits.size(), 2);
    form.type("two");
    QTest::keyClick(window, Qt::Key_Escape);
    QCOMPARE(form.field->text(), u"one"_qs);
    QCOMPARE(activated, QStringList{u"Ctrl+Return"_qs});
    QTest::keyClick(window, Qt::Key_Escape); // nothing left to take back
    QCOMPARE(activated.last(), u"Esc"_qs);
}

void LineEditTest::aTextTheValidatorRejectsIsNeverCommitted()
{
    Form form;
    form.field->setValidator(new QIntValidator(10, 99, form.field));
    QVERIFY(form.field->looksInvalid()); // "old"
    form.field->setText(u"42"_qs);
    QVERIFY(!form.field->looksInvalid());
    form.field->setFocus(Qt::TabFocusReason);
    form.type("5");
    const QColor red = ui::colorQt(u"Red"_qs);
    const QColor edge = edgeOf(*form.field);
    QVERIFY2(edge.red() > 2 * edge.blue() && edge.hue() - red.hue() < 10, qPrintable(edge.name()));
    form.key(Qt::Key_Return);
    QCOMPARE(form.field->text(), u"5"_qs);
    QVERIFY(form.field->hasFocus());
    form.other->setFocus();
    QCOMPARE(form.field->text(), u"42"_qs);
    form.field->enterText(u"7"_qs);
    QCOMPARE(form.field->text(), u"42"_qs);
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
        void fixup(QString& text) override { text = text.toUpper(); }
    };
    Upper field;
    field.setText(u"AB"_qs);
    QSignalSpy commits(&field, &LineEdit::valueChanged);
    QString finished;
    connect(&field, &QLineEdit::editingFinished, this, [&] { finished = field.text(); });
    QTest::keyClicks(&field, u"c"_qs);
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(finished, u"ABC"_qs); // not the text before fixup
    QCOMPARE(commits.size(), 1);
    field.enterText(u"abc"_qs); // nothing changes
    QCOMPARE(field.text(), u"ABC"_qs);
    QCOMPARE(commits.size(), 1);
}

void LineEditTest::theFieldsOwnMenuDoesNotEndTheEdit()
{
    Form form;
    form.field->setFocus();
    form.type("new");
    for (LineEdit* owner : {form.field, form.other}) {
        QMenu menu(owner);
        menu.addAction(u"Paste"_qs);
        menu.popup(form.field->mapToGlobal(QPoint(5, 5)));
        QVERIFY(QTest::qWaitForWindowExposed(&menu));
        QCOMPARE(form.commits.size(), owner == form.field ? 0 : 1);
    }
}

void LineEditTest::aSlotMayMoveTheFocusOrDeleteTheField()
{
    for (const bool byReturn : {true, false}) {
        for (const bool deletes : {true, false}) {
            Form form;
            const QPointer<LineEdit> field = form.field;
            connect(field, &LineEdit::valueChanged, &form.window, [&] {
                deletes ? delete form.field : form.other->setFocus();
            });
            field->setFocus(Qt::MouseFocusReason);
            form.type("new");
            if (byReturn) {
                QTest::keyPress(form.field, Qt::Key_Return);
            } else {
                form.other->setFocus();
            }
            QCOMPARE(field.isNull(), deletes);
            QCOMPARE(form.commits.size(), 1);
        }
    }
}

void LineEditTest::colorsFollowTheThemeWithTheNextPaint()
{
    Form form;
    form.other->setFocus();
    form.field->setColors(u"Ground"_qs, u"Ink"_qs, u"Line"_qs);
    for (const QColor ground : {QColor(40, 80, 120), QColor(120, 40, 80)}) {
        theme().setColor(u"Ground"_qs, ground);
        theme().setColor(u"Line"_qs, ground.lighter(150));
        QVERIFY(ui::test::closeTo(groundOf(*form.field), ground));
        QVERIFY(edgeOf(*form.field).value() > ground.value());
    }
    const QColor rest = groundOf(*form.field);
    form.field->setFocus();
    QVERIFY(groundOf(*form.field).value() < rest.value());
    form.other->setFocus();
    QCOMPARE(groundOf(*form.field), rest);
}

const ui::test::Registration<LineEditTest> kRegistration;

#include "tst_lineedit.moc"
