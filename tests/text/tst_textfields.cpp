#include "controls/StyledApplication.h"
#include <MorrantUI/text/PlainTextEdit.h>
#include <MorrantUI/text/TimeCodeEdit.h>
#include <MorrantUI/text/TimeCodeField.h>
#include <MorrantUI/theme/colors.h>

#include <QtWidgets>

namespace {

/// Two fields in a window; the second takes the focus that the first gives up.
struct Form : QWidget
{
    Form()
    {
        auto* const column = new QVBoxLayout(this);
        column->addWidget(field);
        column->addWidget(other);
        show();
        activateWindow();
        field->setFocus();
        [this] { QTRY_VERIFY(field->hasFocus()); }();
    }

    /// Focuses the field and presses a key in it.
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) const
    {
        field->setFocus();
        QTest::keyClick(field, key, held);
    }

    QPointer<PlainTextEdit> field = new PlainTextEdit(this);
    QLineEdit* other = new QLineEdit(this);
    QSignalSpy reports{field, &PlainTextEdit::valueChanged};
};

void pasteText(QWidget& field, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

} // namespace

class TextFieldsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anEditIsReportedOnce()
    {
        Form form;
        QTest::keyClicks(form.field, u"abc"_qs);
        QCOMPARE(form.reports.count(), 0);
        form.press(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(form.reports.count(), 1);
        QVERIFY(!form.field->hasFocus());
        QCOMPARE(form.field->toPlainText(), u"abc"_qs);

        form.field->setFocus();
        form.other->setFocus();                        // untouched
        form.press(Qt::Key_Return);                    // breaks the line while nothing is edited
        form.press(Qt::Key_Return, Qt::ShiftModifier); // and so always
        QCOMPARE(form.reports.count(), 1);
        QCOMPARE(form.field->toPlainText(), u"abc\n\n"_qs);
        form.press(Qt::Key_Return); // the breaks were an edit
        QCOMPARE(form.reports.count(), 2);
        form.press(Qt::Key_Z, Qt::ControlModifier); // undone after the report
        form.other->setFocus();
        QCOMPARE(form.reports.count(), 3);

        form.field->setPlainText(u"the host's"_qs);
        form.field->setFocus();
        QInputMethodEvent composed;
        composed.setCommitString(u"é"_qs);
        QCoreApplication::sendEvent(form.field, &composed);
        QTest::mouseClick(form.other, Qt::LeftButton);
        QCOMPARE(form.reports.count(), 4);
    }

    void aSlotMayDoAnything()
    {
        Form form;
        connect(form.field, &PlainTextEdit::valueChanged, &form, [&form] {
            form.field->setPlainText(form.field->toPlainText().trimmed());
            form.other->setFocus();
        });
        QTest::keyClicks(form.field, u" a "_qs);
        form.press(Qt::Key_Return);
        QCOMPARE(form.field->toPlainText(), u"a"_qs);
        QCOMPARE(form.reports.count(), 1);

        for (const bool byKey : {true, false}) {
            Form mortal;
            connect(mortal.field, &PlainTextEdit::valueChanged, &mortal, [&mortal] {
                delete mortal.field;
            });
            QTest::keyClicks(mortal.field, u"x"_qs);
            byKey ? mortal.press(Qt::Key_Return) : mortal.other->setFocus();
            QVERIFY(!mortal.field);
        }
    }

    void groundAndKeysAreTheFieldsOwn()
    {
        PlainTextEdit field;
        const QColor ground = field.palette().color(QPalette::Disabled, QPalette::Base);
        QCOMPARE(ground, ui::colorQt(u"Window"_qs));
        const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
        const std::tuple<int, Qt::KeyboardModifiers, const char*, bool> cases[] = {
            {Qt::Key_C, ctrl, "\x03", true},
            {Qt::Key_A, ctrl, "", true},
            {Qt::Key_Left, {}, "", true},
            {Qt::Key_Down, Qt::ShiftModifier, "", true},
            {Qt::Key_Escape, {}, "\x1b", true},
            {Qt::Key_K, {}, "k", true},
            {Qt::Key_Q, ctrl | Qt::AltModifier, "@", true},
            {Qt::Key_S, ctrl | Qt::AltModifier, "\x13", false}, // a shortcut on this platform
            {Qt::Key_Tab, {}, "\t", true},
            {Qt::Key_F5, {}, "", false},
            {Qt::Key_S, ctrl, "\x13", false}, // Save
            {Qt::Key_Z, ctrl, "\x1a", false}, // the base keeps these two while it can be edited
            {Qt::Key_Z, ctrl | Qt::ShiftModifier, "\x1a", false}};
        for (const auto& [key, held, text, isKept] : cases) {
            field.setReadOnly(key == Qt::Key_Z);
            QKeyEvent event(QEvent::ShortcutOverride, key, held, QLatin1String(text));
            event.ignore();
            QCoreApplication::sendEvent(&field, &event);
            QVERIFY2(event.isAccepted() == isKept, QByteArray::number(key, 16));
        }
    }

    void onlyTimeCodesCanBePasted()
    {
        TimeCodeEdit field;
        QVERIFY(field.sizeHint().height() <= QLineEdit().sizeHint().height() + 2);
        field.show();
        for (const QString& text : {u"01:02:03"_qs, u"::"_qs, u"\uff11\u0661\U0001D7CF"_qs}) {
            field.clear();
            pasteText(field, text);
            QCOMPARE(field.toPlainText(), text);
        }
        const QString kept = field.toPlainText();
        for (const char* refused : {"01:02:03 ", "1.2", "12f", "-1", "1\n2", "²"}) {
            pasteText(field, QString::fromUtf8(refused));
            QCOMPARE(field.toPlainText(), kept);
        }
        // A drop comes the same way; one that is refused leaves its text where it came from.
        for (const bool isCode : {true, false}) {
            QMimeData data;
            data.setText(isCode ? u"5"_qs : u"five"_qs);
            QDragEnterEvent enter({5, 5}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(field.viewport(), &enter);
            QDropEvent drop({5, 5}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            drop.ignore();
            QCoreApplication::sendEvent(field.viewport(), &drop);
            QCOMPARE(drop.isAccepted(), isCode);
        }
        QCOMPARE(field.toPlainText().size(), kept.size() + 1);
    }

    void pastesOfEveryKindAreTaken()
    {
        PlainTextEdit field;
        field.show();
        QSignalSpy pasted(&field, &PlainTextEdit::textPasted);
        auto* const files = new QMimeData;
        files->setUrls({QUrl::fromLocalFile(u"/a.png"_qs)});
        QGuiApplication::clipboard()->setMimeData(files);
        field.paste();
        QGuiApplication::clipboard()->setImage(QImage(8, 8, QImage::Format_RGB32));
        field.paste();
        pasteText(field, (QString(1000, u'x') + u'\n').repeated(10'000)); // 10 MB
        QCOMPARE(pasted.count(), 3);
        QCOMPARE(field.blockCount(), 10'001);
        pasteText(field, QString(1'000'000, u'x')); // wrapped at words it takes minutes
        QCoreApplication::processEvents();
        QCOMPARE(field.wordWrapMode(), QTextOption::WrapAnywhere);
        field.setPlainText(u"some words "_qs.repeated(2000));
        QVERIFY(field.wordWrapMode() != QTextOption::WrapAnywhere);
    }

    void undoIsTheHostsWhereItIsLeftToIt()
    {
        Form form;
        const QShortcut shortcut(QKeySequence::Undo, &form);
        QSignalSpy undone(&shortcut, &QShortcut::activated);
        TimeCodeField code(&form);
        code.show();
        for (const bool left : {false, true}) {
            form.field->setUndoLeftToHost(left);
            form.press(Qt::Key_X);
            form.press(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(form.field->toPlainText(), left ? u"x"_qs : QString());
            QCOMPARE(undone.count(), left ? 1 : 0);
        }
        code.setFocus();
        QTest::keyClick(&code, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undone.count(), 2);
    }

    void aTimeCodeIsEnteredAsAFrame()
    {
        Form form;
        TimeCodeField code(&form);
        code.show();
        QSignalSpy changed(&code, &TimeCodeField::frameChanged);
        QSignalSpy entered(&code, &TimeCodeField::frameEntered);
        code.setFrame(27);
        QCOMPARE(code.toPlainText(), QString()); // without a rate
        code.setRate(10);
        QCOMPARE(code.toPlainText(), u"00:00:02:07"_qs);
        const auto type = [&code](const QString& text) {
            code.setFocus(Qt::TabFocusReason); // selects what was there
            QTest::keyClicks(&code, text);
        };
        type(u"5:3"_qs);
        code.setFrame(28); // as playing does: what is typed stays
        QCOMPARE(code.toPlainText(), u"5:3"_qs);
        QTest::keyClick(&code, Qt::Key_Return);
        QVERIFY(!code.hasFocus() && code.frame() == 53);
        type(u"12"_qs);
        form.other->setFocus();
        QCOMPARE(code.toPlainText(), u"00:00:01:02"_qs);
        type(u"12"_qs); // where it is already
        form.other->setFocus();
        QCOMPARE(entered.count(), 3);
        QCOMPARE(changed.count(), 4);
        type(u"7"_qs);
        QTest::keyClick(&code, Qt::Key_Escape);
        type(u"a b"_qs); // is none
        form.other->setFocus();
        QCOMPARE(code.toPlainText(), u"00:00:01:02"_qs);
        QVERIFY(entered.count() == 3 && code.property("frame") == 12);
    }
};

const ui::test::Registration<TextFieldsTest> kRegistration;

#include "tst_textfields.moc"
