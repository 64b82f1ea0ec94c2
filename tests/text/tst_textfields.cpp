#include "controls/StyledApplication.h"
#include <MorrantUI/text/PlainTextEdit.h>
#include <MorrantUI/text/TimeCodeEdit.h>
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
    void anEditIsReportedOnce();
    void aSlotMayDoAnything();
    void groundAndKeysAreTheFieldsOwn();
    void onlyTimeCodesCanBePasted();
    void pastesOfEveryKindAreTaken();
};

void TextFieldsTest::anEditIsReportedOnce()
{
    Form form;
    QTRY_VERIFY(form.field->hasFocus());
    QTest::keyClicks(form.field, QStringLiteral("abc"));
    QCOMPARE(form.reports.count(), 0);
    QTest::keyClick(form.field, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(form.reports.count(), 1);
    QVERIFY(!form.field->hasFocus());
    QCOMPARE(form.field->toPlainText(), QStringLiteral("abc"));

    form.field->setFocus();
    form.other->setFocus(); // untouched
    QCOMPARE(form.reports.count(), 1);
    form.field->setFocus();
    QTest::keyClick(form.field, Qt::Key_Return); // breaks the line while nothing is edited
    QTest::keyClick(form.field, Qt::Key_Return, Qt::ShiftModifier); // and so always
    QCOMPARE(form.reports.count(), 1);
    QCOMPARE(form.field->toPlainText(), QStringLiteral("abc\n\n"));
    QTest::keyClick(form.field, Qt::Key_Return); // the breaks were an edit
    QCOMPARE(form.reports.count(), 2);
    form.field->setFocus();
    QTest::keyClick(form.field, Qt::Key_Z, Qt::ControlModifier); // undone after the report
    form.other->setFocus();
    QCOMPARE(form.reports.count(), 3);

    form.field->setPlainText(QStringLiteral("the host's"));
    form.field->setFocus();
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u00e9"));
    QCoreApplication::sendEvent(form.field, &composed);
    QTest::mouseClick(form.other, Qt::LeftButton);
    QCOMPARE(form.reports.count(), 4);
}

void TextFieldsTest::aSlotMayDoAnything()
{
    Form form;
    QTRY_VERIFY(form.field->hasFocus());
    QObject::connect(form.field, &PlainTextEdit::valueChanged, &form, [&form] {
        form.field->setPlainText(form.field->toPlainText().trimmed());
        form.other->setFocus();
    });
    QTest::keyClicks(form.field, QStringLiteral(" a "));
    QTest::keyClick(form.field, Qt::Key_Return);
    QCOMPARE(form.field->toPlainText(), QStringLiteral("a"));
    QCOMPARE(form.reports.count(), 1);

    for (const bool byKey : {true, false}) {
        Form mortal;
        QTRY_VERIFY(mortal.field->hasFocus());
        QObject::connect(mortal.field, &PlainTextEdit::valueChanged, &mortal, [&mortal] {
            delete mortal.field;
        });
        QTest::keyClicks(mortal.field, QStringLiteral("x"));
        if (byKey) {
            QTest::keyClick(mortal.field, Qt::Key_Return);
        } else {
            mortal.other->setFocus();
        }
        QVERIFY(!mortal.field);
    }
}

void TextFieldsTest::groundAndKeysAreTheFieldsOwn()
{
    PlainTextEdit field;
    const QColor ground = field.palette().color(QPalette::Disabled, QPalette::Base);
    QCOMPARE(ground, ui::colorQt(QStringLiteral("Window")));
    const auto keeps = [&field](int key, Qt::KeyboardModifiers held = {}, const char* text = "") {
        QKeyEvent event(QEvent::ShortcutOverride, key, held, QLatin1String(text));
        event.ignore();
        QCoreApplication::sendEvent(&field, &event);
        return event.isAccepted();
    };
    const Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
    QVERIFY(keeps(Qt::Key_C, Qt::ControlModifier, "\x03"));
    QVERIFY(keeps(Qt::Key_A, Qt::ControlModifier));
    QVERIFY(keeps(Qt::Key_Left));
    QVERIFY(keeps(Qt::Key_Down, Qt::ShiftModifier));
    QVERIFY(keeps(Qt::Key_Escape, Qt::NoModifier, "\x1b"));
    QVERIFY(keeps(Qt::Key_K, Qt::NoModifier, "k"));
    QVERIFY(keeps(Qt::Key_Q, altGr, "@"));
    QVERIFY(!keeps(Qt::Key_F5));
    QVERIFY(!keeps(Qt::Key_S, Qt::ControlModifier, "\x13")); // Save
    field.setReadOnly(true); // the base keeps these two while it can be edited
    QVERIFY(!keeps(Qt::Key_Z, Qt::ControlModifier, "\x1a"));
    QVERIFY(!keeps(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "\x1a"));
}

void TextFieldsTest::onlyTimeCodesCanBePasted()
{
    TimeCodeEdit field;
    QVERIFY(field.sizeHint().height() <= QLineEdit().sizeHint().height() + 2);
    field.show();
    const QString taken[] = {
        QStringLiteral("01:02:03"), QStringLiteral("::"), QStringLiteral("\uff11\u0661")};
    for (const QString& text : taken) {
        field.clear();
        pasteText(field, text);
        QCOMPARE(field.toPlainText(), text);
    }
    const QString kept = field.toPlainText();
    for (const char* refused : {"01:02:03 ", "1.2", "12f", "-1", "1\n2", "\u00b2", "\U0001D7CF"}) {
        pasteText(field, QString::fromUtf8(refused));
        QCOMPARE(field.toPlainText(), kept);
    }
    // A drop comes the same way; one that is refused leaves its text where it came from.
    for (const bool isCode : {true, false}) {
        QMimeData data;
        data.setText(isCode ? QStringLiteral("5") : QStringLiteral("five"));
        QDragEnterEvent enter({5, 5}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(field.viewport(), &enter);
        QDropEvent drop({5, 5}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        drop.ignore();
        QCoreApplication::sendEvent(field.viewport(), &drop);
        QCOMPARE(drop.isAccepted(), isCode);
    }
    QCOMPARE(field.toPlainText().size(), kept.size() + 1);
}

void TextFieldsTest::pastesOfEveryKindAreTaken()
{
    PlainTextEdit field;
    field.show();
    QSignalSpy pasted(&field, &PlainTextEdit::textPasted);
    auto* const files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(QStringLiteral("/a.png"))});
    QGuiApplication::clipboard()->setMimeData(files);
    field.paste();
    QGuiApplication::clipboard()->setImage(QImage(8, 8, QImage::Format_RGB32));
    field.paste();
    pasteText(field, (QString(1000, u'x') + u'\n').repeated(10'000)); // 10 MB
    QCOMPARE(pasted.count(), 3);
    QCOMPARE(field.blockCount(), 10'001);
}

const ui::test::Registration<TextFieldsTest> kRegistration;

#include "tst_textfields.moc"
