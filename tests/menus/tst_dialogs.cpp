#include "MorrantUI/menus/presetnames.h"
#include "MorrantUI/menus/weblinks.h"
#include "controls/StyledApplication.h"
#include "menus/answers.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/menus/ModalDialog.h>
#include <MorrantUI/menus/dialogs.h>

#include <QtWidgets>

using ui::test::answerDialog;
using Box = QDialogButtonBox;

class DialogsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void dismissingStandsForTheButtonThatDeclines();
    void theChosenButtonIsTheAnswer();
    void aTextIsTakenAsItWasEntered();
    void anEmptyTextCannotBeConfirmed();
    void aNumberIsComputedAndLimited_data();
    void aNumberIsComputedAndLimited();
    void onlyAWebAddressIsALink();
    void aLinkIsPastedAndChecked();
    void aPresetNameIsAFileNameEverywhere();
    void aPresetIsReplacedOnlyWhenTheUserAgrees();
    void theParentMayDieMeanwhile();
    void aDialogMayBeUsedAgain();

private:
    ui::test::StyledApplication m_application;
};

void DialogsTest::dismissingStandsForTheButtonThatDeclines()
{
    const std::pair<ModalDialog::Buttons, ModalDialog::Button> answers[] = {
        {Box::Yes | Box::No, Box::No},
        {Box::Yes | Box::No | Box::Cancel, Box::Cancel},
        {Box::Save | Box::Discard | Box::Cancel, Box::Cancel},
        {Box::Ok, Box::Ok},
        {Box::Ok | Box::Apply, Box::NoButton},
        {Box::NoButton, Box::NoButton},
    };
    for (const auto& [buttons, expected] : answers) {
        answerDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        const QString title = QStringLiteral("Go on?");
        QCOMPARE(ModalDialog::getChoice(title, QString(), buttons, Box::Yes), expected);
        answerDialog([](QDialog& dialog) { dialog.close(); });
        QCOMPARE(ModalDialog::getChoice(title, QString(), buttons, Box::Yes), expected);
    }
}

void DialogsTest::theChosenButtonIsTheAnswer()
{
    QWidget window;
    window.show();
    const auto ask = [&window](ModalDialog::Button preset) {
        return ModalDialog::getChoice(
            QStringLiteral("<b>Save?</b>"),
            QStringLiteral("<i>It</i> has changed."),
            Box::Save | Box::Discard | Box::Cancel,
            preset,
            &window);
    };
    for (const auto button : {Box::Save, Box::Discard, Box::Cancel}) {
        answerDialog([&](QDialog& dialog) {
            QCOMPARE(dialog.parentWidget(), &window);
            QCOMPARE(dialog.windowTitle(), QStringLiteral("<b>Save?</b>"));
            for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                QCOMPARE(label->textFormat(), Qt::PlainText);
            }
            dialog.findChild<Box*>()->button(button)->click();
        });
        QCOMPARE(ask(Box::Save), button);
        answerDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
        QCOMPARE(ask(button), button); // Return presses the default
    }
    QVERIFY(window.findChildren<QDialog*>().isEmpty());
}

void DialogsTest::aTextIsTakenAsItWasEntered()
{
    const auto ask = [](const QString& initial) {
        return ui::getStringInput(
            QStringLiteral("Preset"), QStringLiteral("Name:"), initial, nullptr);
    };
    answerDialog([](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>();
        QCOMPARE(dialog.focusWidget(), field);
        QCOMPARE(field->accessibleName(), QStringLiteral("Name:"));
        QTest::keyClicks(field, QStringLiteral(" <new> & old ")); // replaces the selected text
        QTest::keyClick(field, Qt::Key_Return);
    });
    QCOMPARE(ask(QStringLiteral("before")), std::optional(QStringLiteral(" <new> & old ")));
    answerDialog([](QDialog& dialog) { dialog.findChild<Box*>()->button(Box::Ok)->click(); });
    QCOMPARE(ask(QStringLiteral("as it was")), std::optional(QStringLiteral("as it was")));
    answerDialog([](QDialog& dialog) { dialog.findChild<Box*>()->button(Box::Cancel)->click(); });
    QVERIFY(!ask(QStringLiteral("before")));
}

void DialogsTest::anEmptyTextCannotBeConfirmed()
{
    answerDialog([](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>();
        const auto* const ok = dialog.findChild<Box*>()->button(Box::Ok);
        QVERIFY(!ok->isEnabled());
        field->setText(QStringLiteral("  "));
        QVERIFY(!ok->isEnabled());
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        field->setText(QStringLiteral("x"));
        QVERIFY(ok->isEnabled());
    });
    QVERIFY(!ui::getStringInput(QStringLiteral("Preset"), QStringLiteral("Name:")));
}

void DialogsTest::aNumberIsComputedAndLimited_data()
{
    QTest::addColumn<QString>("typed"); // empty: confirmed as it is
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("expected");
    QTest::newRow("as it was") << QString() << 0 << 100 << 7;
    QTest::newRow("typed") << QStringLiteral("42") << 0 << 100 << 42;
    QTest::newRow("computed") << QStringLiteral("6*8+2") << 0 << 100 << 50;
    QTest::newRow("above") << QStringLiteral("1000") << 0 << 100 << 100;
    QTest::newRow("below") << QStringLiteral("-5") << 0 << 100 << 0;
    QTest::newRow("the initial one too") << QString() << 10 << 100 << 10;
    QTest::newRow("crossed") << QString() << 50 << 20 << 50;
    QTest::newRow("widest") << QStringLiteral("1e12") << INT_MIN << INT_MAX << INT_MAX;
}

void DialogsTest::aNumberIsComputedAndLimited()
{
    QFETCH(QString, typed);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, expected);
    answerDialog([&typed](QDialog& dialog) {
        auto* const field = dialog.findChild<NumericField*>();
        if (!typed.isEmpty()) {
            QTest::keyClicks(field, typed);
        }
        QTest::keyClick(field, Qt::Key_Return);
    });
    const auto answer = ui::getIntegerInput(
        QStringLiteral("Frame"), QStringLiteral("Go to:"), 7, minimum, maximum, nullptr);
    QCOMPARE(answer, std::optional(expected));
    answerDialog([](QDialog& dialog) { dialog.reject(); });
    QVERIFY(!ui::getIntegerInput(QStringLiteral("Frame"), QString(), 7, 0, 9, nullptr));
}

void DialogsTest::onlyAWebAddressIsALink()
{
    using ui::links::Fault;
    const std::pair<const char*, Fault> links[] = {
        {" https://sheets.example.com/d/1?x=a%20b#gid=0\n", Fault::None},
        {"https://b\u00fccher.example/\u00fc", Fault::None},
        {"https://a b.example", Fault::HasSpace},
        {"ftp://example.com", Fault::NotWeb},
        {"sheets.example.com/d/1", Fault::NotWeb},
        {"https://", Fault::NoHost},
        {"http:///path", Fault::NoHost},
        {"https://example.com:99999/", Fault::Malformed},
        {"https://a..b/", Fault::Malformed},
    };
    for (const auto& [text, fault] : links) {
        const auto checked = ui::links::checkWebLink(QString::fromUtf8(text));
        QVERIFY2(checked.fault == fault, text);
        QCOMPARE(checked.url.isValid(), fault == Fault::None);
    }
}

void DialogsTest::aLinkIsPastedAndChecked()
{
    const auto ask = [](const QUrl& initial = {}) {
        return ui::getSpreadsheetLink(QStringLiteral("Link"), QStringLiteral("Sheet:"), initial);
    };
    const QString link = QStringLiteral("https://sheets.example.com/d/1");
    answerDialog([&link](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>();
        const auto* const ok = dialog.findChild<Box*>()->button(Box::Ok);
        QCOMPARE(dialog.focusWidget(), field);
        QVERIFY(!ok->isEnabled());
        QTest::keyClicks(field, QStringLiteral("ftp"));
        QVERIFY(field->accessibleDescription().contains(QStringLiteral("https://")));
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        field->selectAll();
        QGuiApplication::clipboard()->setText(QStringLiteral("  %1 \n").arg(link));
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(field->text(), link);
        QVERIFY(field->accessibleDescription().isEmpty());
        QTest::keyClick(field, Qt::Key_Return);
    });
    QCOMPARE(ask(), std::optional(QUrl(link)));
    answerDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(!ask(QUrl(link)));
}

void DialogsTest::aPresetNameIsAFileNameEverywhere()
{
    using ui::presets::Fault;
    const std::pair<QString, Fault> names[] = {
        {QStringLiteral(" Soft glow \u00fc.v2 "), Fault::None},
        {QStringLiteral("a/b"), Fault::HasForbidden},
        {QStringLiteral("a\tb"), Fault::HasForbidden},
        {QStringLiteral(".."), Fault::EndsWithDot},
        {QStringLiteral("nul.txt"), Fault::IsReserved},
        {QString(100, QChar(0x4E00)), Fault::TooLong},
    };
    for (const auto& [name, fault] : names) {
        QVERIFY2(ui::presets::checkName(name).fault == fault, qPrintable(name));
    }
}

void DialogsTest::aPresetIsReplacedOnlyWhenTheUserAgrees()
{
    const QStringList existing{QStringLiteral("Bounce"), QStringLiteral("Glow")};
    const auto ask = [&existing](const QString& initial) {
        return ui::getPresetName(QStringLiteral("Save preset"), existing, initial);
    };
    answerDialog([](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>();
        QTest::keyClicks(field, QStringLiteral("a:b"));
        QVERIFY(field->accessibleDescription().contains(u':'));
        QVERIFY(!dialog.findChild<Box*>()->button(Box::Save)->isEnabled());
        QTest::keyClick(field, Qt::Key_Down);
        QCOMPARE(field->text(), QStringLiteral("Bounce"));
        QTest::keyClick(field, Qt::Key_Down);
        QCOMPARE(field->text(), QStringLiteral("Glow"));
        QTest::keyClicks(field, QStringLiteral("New "));
        QVERIFY(dialog.findChild<QListWidget*>()->selectedItems().isEmpty());
        QTest::keyClick(field, Qt::Key_Return);
    });
    QCOMPARE(ask(QStringLiteral("Mine")), std::optional(QStringLiteral("New")));

    for (const Qt::Key answer : {Qt::Key_Y, Qt::Key_N}) {
        answerDialog([answer](QDialog& dialog) {
            answerDialog([answer](QDialog& question) {
                const auto chosen = answer == Qt::Key_Y ? Box::Yes : Box::No;
                question.findChild<Box*>()->button(chosen)->click();
            });
            QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
            QCOMPARE(dialog.isVisible(), answer == Qt::Key_N); // to name it otherwise
        });
        const auto expected =
            answer == Qt::Key_Y ? std::optional(QStringLiteral("Glow")) : std::nullopt;
        QCOMPARE(ask(QStringLiteral("glow")), expected);
    }
}

void DialogsTest::theParentMayDieMeanwhile()
{
    const auto mortal = [] {
        auto* const parent = new QWidget;
        answerDialog([parent](QDialog&) { delete parent; });
        return parent;
    };
    const QString title = QStringLiteral("Title");
    QCOMPARE(
        ModalDialog::getChoice(title, QString(), Box::Yes | Box::No, Box::Yes, mortal()), Box::No);
    QVERIFY(!ui::getStringInput(title, title, title, mortal()));
    QVERIFY(!ui::getIntegerInput(title, title, 1, 0, 2, mortal()));
    QVERIFY(!ui::getSpreadsheetLink(title, title, {}, mortal()));
    QVERIFY(!ui::getPresetName(title, {title}, title, mortal()));
    auto* const parent = new QWidget; // dies behind the question of the dialog
    answerDialog([parent](QDialog& dialog) {
        answerDialog([parent](QDialog&) { delete parent; });
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    QVERIFY(!ui::getPresetName(title, {title}, title, parent));
}

void DialogsTest::aDialogMayBeUsedAgain()
{
    ModalDialog dialog(QStringLiteral("Again?"));
    dialog.setButtons(Box::Yes | Box::No, Box::Yes);
    auto* const first = new QWidget;
    dialog.setContent(first);
    answerDialog([](QDialog& open) { QTest::keyClick(&open, Qt::Key_Return); });
    dialog.exec();
    QCOMPARE(dialog.chosen(), Box::Yes);
    delete first; // by its owner's owner
    dialog.setContent(new QWidget);
    answerDialog([](QDialog& open) { QTest::keyClick(&open, Qt::Key_Escape); });
    dialog.exec();
    QCOMPARE(dialog.chosen(), Box::No);
}

const ui::test::Registration<DialogsTest> kRegistration;

#include "tst_dialogs.moc"
