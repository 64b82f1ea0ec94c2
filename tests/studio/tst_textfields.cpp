#include "DocumentTabs.h"
#include "FrameField.h"
#include "studiotest.h"
#include <MorrantUI/text/PlainTextEdit.h>

using namespace studio;

namespace {

/// A hundred frames at ten a second.
struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        open(u"one"_qs);
        studio::test::showActive(*this);
    }

    void open(const QString& title)
    {
        const Document document = studio::test::documentOf(studio::test::layer(R"("ty":3)"));
        openDocument(std::make_shared<Document>(document), title);
    }

    FrameField& code() { return *findChild<FrameField*>(); }
    PlainTextEdit& notes() { return *findChild<PlainTextEdit*>(); }
};

void type(QWidget& field, const QString& text)
{
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, text);
}

} // namespace

/// The time code of the transport, and the notes of a document.
class TextFieldsTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTimeCodeIsEnteredByReturnAndByLeaving()
    {
        OpenWindow window;
        window.player().seek(27);
        QCOMPARE(window.code().toPlainText(), u"00:00:02:07"_qs);
        type(window.code(), u"5:3"_qs);
        window.player().seek(28); // as playing does: what is typed stays
        QCOMPARE(window.code().toPlainText(), u"5:3"_qs);
        QTest::keyClick(&window.code(), Qt::Key_Return);
        QCOMPARE(window.player().frame(), 53);
        QVERIFY(!window.code().hasFocus());

        type(window.code(), u"12"_qs);
        window.viewport().setFocus();
        QCOMPARE(window.player().frame(), 12);
        type(window.code(), u"9:0:0"_qs); // beyond the last frame
        QTest::keyClick(&window.code(), Qt::Key_Enter);
        QCOMPARE(window.player().frame(), 99);

        type(window.code(), u"7"_qs);
        QTest::keyClick(&window.code(), Qt::Key_Escape);
        QCOMPARE(window.code().toPlainText(), u"00:00:09:09"_qs);
        type(window.code(), u"a b"_qs); // Space plays nothing meanwhile
        QVERIFY(!window.player().isPlaying());
        window.viewport().setFocus();
        QCOMPARE(window.code().toPlainText(), u"00:00:09:09"_qs);
        QCOMPARE(window.player().frame(), 99);
    }

    void notesBelongToTheirDocumentAndAnEditIsOneStep()
    {
        OpenWindow window;
        window.workspace().setPanelOpen(u"notes"_qs, true);
        type(window.notes(), u"one"_qs);
        QTest::keyClick(&window.notes(), Qt::Key_Return);
        QCOMPARE(window.document()->notes, u"one"_qs);
        window.notes().moveCursor(QTextCursor::End);
        type(window.notes(), u" two"_qs);
        window.open(u"other"_qs); // before anything else has taken over what was typed
        QCOMPARE(window.notes().toPlainText(), QString());
        QVERIFY(!window.editor().canUndo());

        window.documents().setTab(0);
        QCOMPARE(window.notes().toPlainText(), u"one two"_qs);
        window.notes().setFocus();
        for (const QString& text : {u"one"_qs, QString()}) {
            QTest::keyClick(&window.notes(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(window.notes().toPlainText(), text);
            QCOMPARE(window.document()->notes, text);
        }
        QVERIFY(!window.editor().isModified());
    }
};

const ui::test::Registration<TextFieldsTest> kRegistration;

#include "tst_textfields.moc"
