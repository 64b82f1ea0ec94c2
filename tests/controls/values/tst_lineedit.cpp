// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;
using Form = Bench<LineEdit>;

namespace {

const QSize kSize(120, 24);

QColor groundOf(QWidget& field)
{
    return pixelAt(renderWidget(field), QPointF(field.width() - 6, 6));
}

QColor edgeOf(QWidget& field)
{
    return pixelAt(renderWidget(field), QPointF(field.width() / 2.0, 0.5));
}

} // namespace

/// What a field of text has beyond the rules for all entries, which are CommitTest's.
class LineEditTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void returnAndEscapeAreTheFieldsWhileItHasUseForThem()
    {
        Form form(kSize);
        QStringList activated;
        for (const char* const keys : {"Return", "Esc", "Ctrl+Return", "Num+Enter"}) {
            const QString name = QLatin1String(keys);
            auto* shortcut = new QShortcut(QKeySequence(name), form.window.get());
            connect(
                shortcut, &QShortcut::activated, this, [&activated, name] { activated << name; });
        }
        form.follow(
            {{"in =zero ^Ctrl+Return", ""}, // the window's
             {"^Num+Enter", "C"},
             {"=one ^Return", "C"},
             {"=two ^Escape", "", "one"}});
        QCOMPARE(activated, QStringList{u"Ctrl+Return"_qs});
        form.play("^Escape"); // nothing left to take back
        QCOMPARE(activated.last(), u"Esc"_qs);

        Bench<LineEdit, QDialog> dialog(kSize);
        dialog.play("in =new Escape");
        QVERIFY(dialog.window->isVisible());
        dialog.play("click Escape in Escape");
        QVERIFY(!dialog.window->isVisible());
    }

    void aTextTheValidatorRejectsIsNeverCommitted()
    {
        Form form(kSize);
        LineEdit& field = *form.control;
        field.setValidator(new QIntValidator(10, 99, &field));
        field.setText(u"old"_qs);
        QVERIFY(field.looksInvalid());
        field.setText(u"42"_qs);
        QVERIFY(!field.looksInvalid());
        form.play("in =5");
        const QColor edge = edgeOf(field);
        QVERIFY(edge.red() > 2 * edge.blue() && edge.hue() - ui::colorQt(u"Red"_qs).hue() < 10);
        form.follow({{"Return", "", "5"}});
        QVERIFY(field.hasFocus());
        form.follow({{"out", "", "42"}});
        field.enterText(u"7"_qs);
        form.follow({{"", "", "42"}});
        field.setInvalid(true);
        QVERIFY(field.looksInvalid());
    }

    void fixupHasTheLastWordAndTheFieldsMenuNone()
    {
        class Upper : public LineEdit
        {
        public:
            using LineEdit::LineEdit;
            void fixup(QString& text) override { text = text.toUpper(); }
        };
        Bench<Upper> form(kSize);
        QString finished;
        connect(form.control, &QLineEdit::editingFinished, this, [&] {
            finished = form.control->text();
        });
        form.play("in =abc Return");
        QCOMPARE(finished, u"ABC"_qs);      // not the text before fixup
        form.control->enterText(u"abc"_qs); // nothing changes
        form.follow({{"", "C", "ABC"}});

        form.play("=new");
        for (QWidget* const owner : {static_cast<QWidget*>(form.control), form.window.get()}) {
            QMenu menu(owner);
            menu.addAction(u"Paste"_qs);
            menu.popup(form.control->mapToGlobal(QPoint(5, 5)));
            QVERIFY(QTest::qWaitForWindowExposed(&menu));
            QCOMPARE(form.said(), QByteArray(owner == form.control.data() ? "" : "C"));
        }
    }

    void aSlotMayMoveTheFocus()
    {
        Form form(kSize);
        form.record.onSignal = [&form] { form.other->setFocus(); };
        QCOMPARE(form.after("click =new Return in =newer out"), QByteArray("CC"));
        QVERIFY(form.other->hasFocus() && form.control->cursorPosition() == 0);
    }

    void colorsFollowTheThemeWithTheNextPaint()
    {
        Form form(kSize);
        form.control->setColors(u"Ground"_qs, u"Ink"_qs, u"Line"_qs);
        theme().setColor(u"Ink"_qs, Qt::white);
        form.play("~0,60"); // beside the field, whose edge is another under the pointer
        for (const QColor ground : {QColor(40, 80, 120), QColor(120, 40, 80)}) {
            theme().setColor(u"Ground"_qs, ground);
            theme().setColor(u"Line"_qs, ground.lighter(150));
            QVERIFY(closeTo(groundOf(*form.control), ground));
            QVERIFY(edgeOf(*form.control).value() > ground.value());
        }
        const QColor rest = groundOf(*form.control);
        form.play("in");
        QVERIFY(groundOf(*form.control).value() < rest.value());
        form.play("out");
        QCOMPARE(groundOf(*form.control), rest);
    }
};

const Registration<LineEditTest> kRegistration;

#include "tst_lineedit.moc"
