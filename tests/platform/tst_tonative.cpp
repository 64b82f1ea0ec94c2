#include "support/TestCase.h"

#include <Core/native.h>

class ToNativeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wellFormedTextIsWhatQtMakesOfIt_data()
    {
        QTest::addColumn<QByteArray>("utf8");

        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("ASCII with a zero byte") << QByteArray("a\0b", 3);
        QTest::newRow("first and last of two bytes") << QByteArray("\xC2\x80\xDF\xBF");
        QTest::newRow("first and last of three bytes") << QByteArray("\xE0\xA0\x80\xEF\xBF\xBF");
        QTest::newRow("around the surrogates") << QByteArray("\xED\x9F\xBF\xEE\x80\x80");
        QTest::newRow("first and last of four bytes")
            << QByteArray("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
        QTest::newRow("several scripts")
            << QStringLiteral("R\u00e9ndu \u5b8c\u4e86 \u0413\u043e\u0442\u043e\u0432\u043e")
                   .toUtf8();
        QTest::newRow("1 MB") << QByteArray("\xF0\x9F\x8E\xAC").repeated(256 * 1024);
    }

    void wellFormedTextIsWhatQtMakesOfIt()
    {
        QFETCH(const QByteArray, utf8);

        QVERIFY(to_native(utf8.toStdString()) == QString::fromUtf8(utf8).toStdWString());
    }

    void eachIllFormedSequenceBecomesOneReplacement_data()
    {
        QTest::addColumn<QByteArray>("utf8");
        QTest::addColumn<QString>("expected");

        const auto row = [](const char* name, const char* utf8, const QString& expected) {
            QTest::newRow(name) << QByteArray(utf8) << expected;
        };
        row("lone continuation", "a\x80z", QStringLiteral("a\uFFFDz"));
        row("never a byte of UTF-8", "\xFE\xC0\xF5", QStringLiteral("\uFFFD\uFFFD\uFFFD"));
        row("overlong slash", "\xE0\x80\xAF", QStringLiteral("\uFFFD\uFFFD\uFFFD"));
        row("surrogate", "\xED\xA0\x80", QStringLiteral("\uFFFD\uFFFD\uFFFD"));
        row("beyond Unicode", "\xF4\x90\x80\x80", QStringLiteral("\uFFFD\uFFFD\uFFFD\uFFFD"));
        row("cut by a letter", "\xF0\x9F\x8Ez", QStringLiteral("\uFFFDz"));
        row("cut by the end", "a\xE2\x82", QStringLiteral("a\uFFFD"));
        row("cut by the next character", "\xE2\x82\xC3\xA9", QStringLiteral("\uFFFD\u00e9"));
    }

    void eachIllFormedSequenceBecomesOneReplacement()
    {
        QFETCH(const QByteArray, utf8);
        QFETCH(const QString, expected);

        QCOMPARE(QString::fromStdWString(to_native(utf8.toStdString())), expected);
    }
};

const ui::test::Registration<ToNativeTest> kRegistration;

#include "tst_tonative.moc"
