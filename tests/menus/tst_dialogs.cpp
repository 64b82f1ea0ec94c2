// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/presetnames.h"
#include "MorrantUI/menus/weblinks.h"
#include "controls/StyledApplication.h"
#include "menus/answers.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/menus/ModalDialog.h>
#include <MorrantUI/menus/dialogs.h>

using ui::test::answerDialog;
using Box = QDialogButtonBox;
using Buttons = ModalDialog::Buttons;

namespace {

const QString kTitle = u"<b>Go on?</b>"_qs;

QLineEdit* fieldOf(const QDialog& dialog)
{
    return dialog.findChild<QLineEdit*>();
}

QPushButton* buttonOf(const QDialog& dialog, Box::StandardButton button)
{
    return dialog.findChild<Box*>()->button(button);
}

void answerWith(Qt::Key key)
{
    answerDialog([key](QDialog& dialog) { QTest::keyClick(&dialog, key); });
}

void answerWith(Box::StandardButton button)
{
    answerDialog([button](QDialog& dialog) { buttonOf(dialog, button)->click(); });
}

/// Types into the next dialog and confirms it.
void answerWith(const QString& typed)
{
    answerDialog([typed](QDialog& dialog) {
        QTest::keyClicks(fieldOf(dialog), typed); // replaces the selected text
        QTest::keyClick(fieldOf(dialog), Qt::Key_Return);
    });
}

} // namespace

class DialogsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theChosenButtonIsTheAnswerAndDismissingDeclines()
    {
        const std::pair<Buttons, ModalDialog::Button> dismissed[] = {
            {Box::Yes | Box::No, Box::No},
            {Box::Yes | Box::No | Box::Cancel, Box::Cancel},
            {Box::Save | Box::Discard | Box::Cancel, Box::Cancel},
            {Box::Ok, Box::Ok},
            {Box::Ok | Box::Apply, Box::NoButton},
            {Box::NoButton, Box::NoButton}};
        for (const auto& [buttons, expected] : dismissed) {
            answerWith(Qt::Key_Escape);
            QCOMPARE(ModalDialog::getChoice(kTitle, {}, buttons, Box::Yes), expected);
            answerDialog([](QDialog& dialog) { dialog.close(); });
            QCOMPARE(ModalDialog::getChoice(kTitle, {}, buttons, Box::Yes), expected);
        }
        QWidget window;
        window.show();
        const Buttons all = Box::Save | Box::Discard | Box::Cancel;
        for (const auto button : {Box::Save, Box::Discard, Box::Cancel}) {
            answerDialog([&](QDialog& dialog) {
                QCOMPARE(dialog.parentWidget(), &window);
                QCOMPARE(dialog.windowTitle(), kTitle);
                for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                    QCOMPARE(label->textFormat(), Qt::PlainText);
                }
                buttonOf(dialog, button)->click();
            });
            QCOMPARE(ModalDialog::getChoice(kTitle, kTitle, all, Box::Save, &window), button);
            answerWith(Qt::Key_Return); // presses the default
            QCOMPARE(ModalDialog::getChoice(kTitle, kTitle, all, button, &window), button);
        }
        QVERIFY(window.findChildren<QDialog*>().isEmpty());
    }

    void aTextIsTakenAsItWasEnteredUnlessItIsEmpty()
    {
        const QString text = u" <new> & old "_qs;
        const auto ask = [](const QString& initial) {
            return ui::getStringInput(kTitle, u"Name:"_qs, initial);
        };
        answerWith(text);
        QCOMPARE(ask(u"before"_qs), std::optional(text));
        answerWith(Box::Ok);
        QCOMPARE(ask(text), std::optional(text));
        answerWith(Box::Cancel);
        QVERIFY(!ask(text));
        answerDialog([](QDialog& dialog) {
            QLineEdit* const field = fieldOf(dialog);
            QCOMPARE(dialog.focusWidget(), field);
            QCOMPARE(field->accessibleName(), u"Name:"_qs);
            for (const QString& entered : {QString(), u"  "_qs}) {
                field->setText(entered);
                QTest::keyClick(field, Qt::Key_Return);
                QVERIFY(!buttonOf(dialog, Box::Ok)->isEnabled() && dialog.isVisible());
            }
        });
        QVERIFY(!ask({}));
    }

    void aNumberIsComputedAndLimited()
    {
        const std::tuple<const char*, int, int, int> cases[] = {
            {"", 0, 100, 7}, // as it was
            {"42", 0, 100, 42},
            {"6*8+2", 0, 100, 50},
            {"1000", 0, 100, 100},
            {"-5", 0, 100, 0},
            {"", 10, 100, 10}, // the initial one too
            {"", 50, 20, 50},  // crossed
            {"1e12", INT_MIN, INT_MAX, INT_MAX}};
        for (const auto& [typed, minimum, maximum, expected] : cases) {
            answerWith(QString::fromLatin1(typed));
            const auto answer = ui::getIntegerInput(kTitle, {}, 7, minimum, maximum);
            QVERIFY2(answer == expected, typed);
        }
        answerDialog([](QDialog& dialog) {
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            fieldOf(dialog)->clear();
            buttonOf(dialog, Box::Ok)->click(); // as by its mnemonic, with the focus in the field
        });
        QCOMPARE(ui::getIntegerInput(kTitle, {}, 7, 0, 9), std::optional(7));
        answerWith(Qt::Key_Escape);
        QVERIFY(!ui::getIntegerInput(kTitle, {}, 7, 0, 9));
    }

    void onlyWebAddressesAreLinksAndFileNamesPresets()
    {
        using Link = ui::links::Fault;
        const std::pair<const char*, Link> links[] = {
            {" https://sheets.example.com/d/1?x=a%20b#gid=0\n", Link::None},
            {"https://b\u00fccher.example/\u00fc", Link::None},
            {"https://a b.example", Link::HasSpace},
            {"ftp://example.com", Link::NotWeb},
            {"sheets.example.com/d/1", Link::NotWeb},
            {"https://", Link::NoHost},
            {"http:///path", Link::NoHost},
            {"https://example.com:99999/", Link::Malformed},
            {"https://a..b/", Link::Malformed}};
        for (const auto& [text, fault] : links) {
            const auto checked = ui::links::checkWebLink(QString::fromUtf8(text));
            QVERIFY2(checked.fault == fault, text);
            QCOMPARE(checked.url.isValid(), fault == Link::None);
        }
        using Name = ui::presets::Fault;
        const std::pair<QString, Name> names[] = {
            {u" Soft glow \u00fc.v2 "_qs, Name::None},
            {u"a/b"_qs, Name::HasForbidden},
            {u"a\tb"_qs, Name::HasForbidden},
            {u".."_qs, Name::EndsWithDot},
            {u"nul.txt"_qs, Name::IsReserved},
            {QString(100, QChar(0x4E00)), Name::TooLong}};
        for (const auto& [name, fault] : names) {
            QVERIFY2(ui::presets::checkName(name).fault == fault, qPrintable(name));
        }
    }

    void aLinkIsPastedAndChecked()
    {
        const QString link = u"https://sheets.example.com/d/1"_qs;
        answerDialog([&link](QDialog& dialog) {
            QLineEdit* const field = fieldOf(dialog);
            QCOMPARE(dialog.focusWidget(), field);
            QVERIFY(!buttonOf(dialog, Box::Ok)->isEnabled());
            QTest::keyClicks(field, u"ftp"_qs);
            QVERIFY(field->accessibleDescription().contains(u"https://"_qs));
            QTest::keyClick(field, Qt::Key_Return);
            QVERIFY(dialog.isVisible());
            field->selectAll();
            QGuiApplication::clipboard()->setText(u"  %1 \n"_qs.arg(link));
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(field->text(), link);
            QVERIFY(field->accessibleDescription().isEmpty());
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(ui::getSpreadsheetLink(kTitle, {}), std::optional(QUrl(link)));
        answerDialog([](QDialog& dialog) {
            QCOMPARE(dialog.height(), dialog.layout()->totalHeightForWidth(dialog.width()));
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QVERIFY(!ui::getSpreadsheetLink(kTitle, {}, QUrl(u"ftp://x"_qs)));
        const QUrl spaced(u"https://sheets.example.com/a%20b"_qs);
        answerWith(Qt::Key_Return);
        QCOMPARE(ui::getSpreadsheetLink(kTitle, {}, spaced), std::optional(spaced));
    }

    void aPresetIsReplacedOnlyWhenTheUserAgrees()
    {
        const QStringList existing{u"Bounce"_qs, u"Glow"_qs};
        answerDialog([](QDialog& dialog) {
            QLineEdit* const field = fieldOf(dialog);
            QTest::keyClicks(field, u"a:b"_qs);
            QVERIFY(field->accessibleDescription().contains(u':'));
            QVERIFY(!buttonOf(dialog, Box::Save)->isEnabled());
            QTest::keyClick(field, Qt::Key_Down);
            QCOMPARE(field->text(), u"Bounce"_qs);
            QTest::keyClick(field, Qt::Key_Down);
            QCOMPARE(field->text(), u"Glow"_qs);
            QTest::keyClicks(field, u"New "_qs);
            QVERIFY(dialog.findChild<QListWidget*>()->selectedItems().isEmpty());
            QTest::keyClick(field, Qt::Key_Return);
        });
        QCOMPARE(ui::getPresetName(kTitle, existing, u"Mine"_qs), std::optional(u"New"_qs));

        for (const auto agrees : {true, false}) {
            answerDialog([agrees](QDialog& dialog) {
                answerWith(agrees ? Box::Yes : Box::No);
                QTest::keyClick(fieldOf(dialog), Qt::Key_Return);
                QCOMPARE(dialog.isVisible(), !agrees); // to name it otherwise
            });
            const auto name = ui::getPresetName(kTitle, existing, u"glow"_qs);
            QCOMPARE(name, agrees ? std::optional(u"Glow"_qs) : std::nullopt);
        }
    }

    void theParentMayDieMeanwhile()
    {
        const auto mortal = [] {
            auto* const parent = new QWidget;
            answerDialog([parent](QDialog&) { delete parent; });
            return parent;
        };
        const auto choice =
            ModalDialog::getChoice(kTitle, {}, Box::Yes | Box::No, Box::Yes, mortal());
        QCOMPARE(choice, Box::No);
        QVERIFY(!ui::getStringInput(kTitle, kTitle, kTitle, mortal()));
        QVERIFY(!ui::getIntegerInput(kTitle, kTitle, 1, 0, 2, mortal()));
        QVERIFY(!ui::getSpreadsheetLink(kTitle, kTitle, {}, mortal()));
        QVERIFY(!ui::getPresetName(kTitle, {}, u"a"_qs, mortal()));
        auto* const parent = new QWidget; // dies behind the question of the dialog
        answerDialog([parent](QDialog& dialog) {
            answerDialog([parent](QDialog&) { delete parent; });
            QTest::keyClick(fieldOf(dialog), Qt::Key_Return);
        });
        QVERIFY(!ui::getPresetName(kTitle, {u"a"_qs}, u"a"_qs, parent));
    }

    void aDialogMayBeUsedAgain()
    {
        ModalDialog dialog(kTitle);
        dialog.setButtons(Box::Yes | Box::No, Box::Yes);
        auto* const first = new QWidget;
        dialog.setContent(first);
        answerWith(Qt::Key_Return);
        dialog.exec();
        QCOMPARE(dialog.chosen(), Box::Yes);
        answerDialog([](QDialog& open) { open.accept(); });
        dialog.exec();
        QCOMPARE(dialog.chosen(), Box::Yes);
        delete first; // by its owner's owner
        dialog.setContent(new QWidget);
        answerWith(Qt::Key_Escape);
        dialog.exec();
        QCOMPARE(dialog.chosen(), Box::No);
    }
};

const ui::test::Registration<DialogsTest> kRegistration;

#include "tst_dialogs.moc"
