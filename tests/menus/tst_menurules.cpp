// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/commandsearch.h"
#include "MorrantUI/menus/menusearch.h"
#include "support/TestCase.h"

using namespace ui::menus;

class MenuRulesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTextIsSearchedFor()
    {
        const Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
        const std::tuple<int, Qt::KeyboardModifiers, QString, MenuKey> cases[] = {
            {Qt::Key_Enter, Qt::KeypadModifier, u"\r"_qs, MenuKey::Trigger},
            {Qt::Key_Down, Qt::NoModifier, u""_qs, MenuKey::Next},
            {Qt::Key_Up, Qt::ShiftModifier, u""_qs, MenuKey::Previous},
            {Qt::Key_S, Qt::ShiftModifier, u"S"_qs, MenuKey::Search},
            {Qt::Key_Space, Qt::NoModifier, u" "_qs, MenuKey::Search},
            {Qt::Key_At, altGr, u"@"_qs, MenuKey::Search},
            {0, Qt::NoModifier, u"´é"_qs, MenuKey::Search},
            {Qt::Key_S, Qt::ControlModifier, u"s"_qs, MenuKey::Other},
            {Qt::Key_S, Qt::AltModifier, u"s"_qs, MenuKey::Other},
            {Qt::Key_S, Qt::MetaModifier, u"s"_qs, MenuKey::Other},
            {Qt::Key_At, altGr | Qt::MetaModifier, u"@"_qs, MenuKey::Other},
            {Qt::Key_Escape, Qt::NoModifier, u"\u001b"_qs, MenuKey::Other},
            {0, Qt::NoModifier, u"a\t"_qs, MenuKey::Other},
        };
        for (const auto& [key, modifiers, text, meaning] : cases) {
            QVERIFY2(menuKey(key, modifiers, text) == meaning, qPrintable(text));
        }
    }

    void aRowIsFoundByItsBeginning()
    {
        const std::pair<QString, QString> found[] = {
            {u"Save"_qs, u"sa"_qs},
            {u"&Save\tCtrl+S"_qs, u"&s"_qs}, // as it is written
            {u"S&ave\tCtrl+S"_qs, u"save"_qs},
            {u"Cut && Paste"_qs, u"cut & p"_qs},
            {u"İzmir"_qs, u"İ"_qs.toLower()},
            {u"Last&"_qs, u"last&"_qs},
            {u"E\u0301tat"_qs, u"\u00e9t"_qs}, // accents apart, as files are named on some systems
        };
        for (const auto& [text, typed] : found) {
            QVERIFY2(isFoundBy(text, typed), qPrintable(text));
        }
        QVERIFY(!isFoundBy(u"Save"_qs, u"ave"_qs) && !isFoundBy(u"S&ave\tCtrl+S"_qs, u"savec"_qs));
        QCOMPARE(displayedText(u"A&&B &C\tX"_qs), u"A&B C"_qs);
        QList<int> asked;
        const auto never = [&asked](int row) { return asked.append(row), false; };
        QVERIFY(firstRow(3, 1, 1, never) == -1 && asked == QList<int>({2, 0, 1}));
    }

    void theCommandThatFitsBestComesFirst()
    {
        const QStringList best{
            u"View: Zoom In"_qs,
            u"View: Zoom Out In"_qs,
            u"View: A Zoom In"_qs,
            u"View: Rezoom In"_qs,
            u"Zoom: Go In"_qs,
            u"Unzoom: Go In"_qs};
        QList<int> ranks;
        for (const QString& text : best) {
            ranks << matchCommand(text, text.indexOf(u": ") + 2, u" zoom  IN"_qs).value().rank;
        }
        const auto unsorted =
            std::adjacent_find(ranks.begin(), ranks.end(), std::greater_equal<>());
        QVERIFY(unsorted == ranks.end());
        QVERIFY(!matchCommand(u"Zoom In"_qs, 0, u"zoom out"_qs) && matchCommand({}, 0, {}));
        const QString accented = u"Vue: Une e\u0301cole \u00dcber Alles"_qs;
        const QList<Letters> marks{{9, 3}, {16, 2}};
        QCOMPARE(matchCommand(accented, 5, u"\u00c9c ub"_qs).value().marks, marks);
        QCOMPARE(withoutLastLetter(u"ae\u0301"_qs) + withoutLastLetter({}), u"a"_qs);
        QCOMPARE(withoutLastLetter(u"a\U0001D49C"_qs) + withoutLastWord(u"b in "_qs), u"ab "_qs);
    }
};

const ui::test::Registration<MenuRulesTest> kRegistration;

#include "tst_menurules.moc"
