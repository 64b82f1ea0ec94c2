// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <Core/native.h>

class ToNativeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wellFormedTextIsWhatQtMakesOfIt()
    {
        const QByteArray texts[] = {
            "",
            QByteArray("a\0b", 3),
            "\xC2\x80\xDF\xBF",                 // the first and last of two bytes
            "\xE0\xA0\x80\xEF\xBF\xBF",         // of three
            "\xED\x9F\xBF\xEE\x80\x80",         // around the surrogates
            "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", // of four
            QByteArray("\xF0\x9F\x8E\xAC").repeated(256 * 1024)};
        for (const QByteArray& text : texts) {
            QVERIFY(to_native(text.toStdString()) == QString::fromUtf8(text).toStdWString());
        }
    }

    void eachIllFormedSequenceBecomesOneReplacement()
    {
        const std::pair<const char*, QString> cases[] = {
            {"a\x80z", u"a\uFFFDz"_qs},
            {"\xFE\xC0\xF5", u"\uFFFD\uFFFD\uFFFD"_qs},           // never bytes of UTF-8
            {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"_qs},           // an overlong slash
            {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"_qs},           // a surrogate
            {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"_qs}, // beyond Unicode
            {"\xF0\x9F\x8Ez", u"\uFFFDz"_qs},                     // cut by a letter
            {"a\xE2\x82", u"a\uFFFD"_qs},                         // by the end
            {"\xE2\x82\xC3\xA9", u"\uFFFD\u00e9"_qs}};            // by the next character
        for (const auto& [utf8, expected] : cases) {
            QCOMPARE(QString::fromStdWString(to_native(utf8)), expected);
        }
    }
};

const ui::test::Registration<ToNativeTest> kRegistration;

#include "tst_tonative.moc"
