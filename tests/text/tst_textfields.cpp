// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

namespace {

/// Two fields in a window; the second takes the focus that the first gives up.
struct Form : QWidget
{
    Form()
    {
        auto* const column = new QVBoxLayout(this);
        column->addWidget(field);
        column->addWidget(other);
        ui::test::showActive(*this);
        field->setFocus();
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
        const QString undone = form.field->toPlainText();
        form.press(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(form.field->toPlainText() != undone);
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
            {Qt::Key_Y, ctrl, "\x19", true},
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
        QCOMPARE(ui::test::renderWidget(field).pixelColor(0, 0).alpha(), 0); // round corners
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
            QCOMPARE(ui::test::dropOn(*field.viewport(), data, Qt::MoveAction), isCode);
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
        bool isReady = true; // from the moment on at which the old text goes
        connect(field.document(), &QTextDocument::contentsChange, this, [&] {
            isReady = isReady && field.wordWrapMode() == QTextOption::WrapAnywhere;
        });
        field.setPlainText(QString(20'000, u'x'));
        QVERIFY(isReady);
    }

    void aTimeCodeIsEnteredAsAFrameAndUndoIsTheHosts()
    {
        Form form;
        QVERIFY(QTest::qWaitForWindowActive(&form)); // whose the shortcut is
        const QShortcut shortcut(QKeySequence::Undo, &form);
        QSignalSpy undone(&shortcut, &QShortcut::activated);
        form.field->setUndoLeftToHost(true);
        form.press(Qt::Key_Z, Qt::ControlModifier);
        TimeCodeField code(&form);
        code.show();
        QSignalSpy entered(&code, &TimeCodeField::frameEntered);
        code.setRate(10);
        const std::tuple<const char*, Qt::Key, int> edits[] = {
            {"5:3", Qt::Key_Return, 53},
            {"12", Qt::Key_Tab, 12},
            {"7", Qt::Key_Escape, 40},
            {"a b", Qt::Key_Tab, 40}};
        for (const auto& [typed, end, frame] : edits) {
            code.setFocus(Qt::TabFocusReason); // selects what was there
            QTest::keyClick(&code, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClicks(&code, QLatin1String(typed));
            code.setFrame(40); // as playing does: what is typed stays
            QCOMPARE(code.toPlainText(), QLatin1String(typed));
            QTest::keyClick(&code, end);
            QVERIFY(!code.hasFocus() && code.property("frame") == frame);
            QVERIFY(!code.textCursor().hasSelection());
            QCOMPARE(code.toPlainText(), ui::timeCode(frame, 10));
        }
        QVERIFY(entered.count() == 2 && undone.count() == 5);
    }
};

const ui::test::Registration<TextFieldsTest> kRegistration;

#include "tst_textfields.moc"
