#include "support/TestCase.h"
#include "support/paths.h"

#include <Core/FontRegistry.h>

#include <QFile>
#include <QTemporaryDir>

using Paths = std::vector<std::string>;

const std::string& testFont()
{
    static const std::string path =
        (ui::test::dataPath(u"theme"_qs) + u"/MorrantTest.ttf"_qs).toStdString();
    return path;
}

class FontRegistryTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFontIsReadOnceAndFoundByItsFamily();
    void pathsAreUtf8();
    void whatIsNoFontIsNeitherKeptNorReported_data();
    void whatIsNoFontIsNeitherKeptNorReported();
    void eachFileIsReportedOnce();
    void aCallbackMayUseTheRegistry();
    void theGlobalRegistryIsReady();
};

void FontRegistryTest::aFontIsReadOnceAndFoundByItsFamily()
{
    morrant::FontRegistry registry;
    const auto typeface = registry.addFont(testFont());
    QVERIFY(typeface);
    QCOMPARE(registry.addFont(testFont()), typeface);
    QCOMPARE(registry.families(), std::vector<std::string>{"Morrant Test"});
    QCOMPARE(registry.typefaces("Morrant Test"), std::vector{typeface});
    QVERIFY(registry.typefaces("morrant test").empty());
}

void FontRegistryTest::pathsAreUtf8()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Schrift \u00e4\u5b57.ttf"_qs);
    QVERIFY(QFile::copy(QString::fromStdString(testFont()), path));

    morrant::FontRegistry registry;
    QVERIFY(registry.addFont(path.toStdString()));
}

void FontRegistryTest::whatIsNoFontIsNeitherKeptNorReported_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("missing file") << QByteArray();
    QTest::newRow("text") << QByteArray("no font");
    QTest::newRow("cut short") << QByteArray("\0\1\0\0\0\5\0\0\0\0\0\0glyf", 16);
}

void FontRegistryTest::whatIsNoFontIsNeitherKeptNorReported()
{
    QFETCH(const QByteArray, content);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"font.ttf"_qs);
    if (!content.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    morrant::FontRegistry registry;
    Paths reported;
    registry.setFontFileCallback([&](const std::string& file) { reported.push_back(file); });
    QVERIFY(!registry.addFont(path.toStdString()));
    QVERIFY(!registry.addFont(folder.path().toStdString()));
    QVERIFY(!registry.addFont({}));
    QVERIFY(reported.empty());
    QVERIFY(registry.families().empty());

    // A font that takes the place of the bad file is found.
    QFile::remove(path);
    QVERIFY(QFile::copy(QString::fromStdString(testFont()), path));
    QVERIFY(registry.addFont(path.toStdString()));
    QCOMPARE(reported, Paths{path.toStdString()});
}

void FontRegistryTest::eachFileIsReportedOnce()
{
    morrant::FontRegistry registry;
    QVERIFY(registry.addFont(testFont()));

    Paths first;
    registry.setFontFileCallback([&](const std::string& file) { first.push_back(file); });
    QVERIFY(first.empty());
    registry.addFont(testFont());
    registry.addFont(testFont());
    QCOMPARE(first, Paths{testFont()});

    Paths second;
    registry.setFontFileCallback([&](const std::string& file) { second.push_back(file); });
    registry.addFont(testFont());
    QVERIFY(second.empty());

    registry.setFontFileCallback({});
    QVERIFY(registry.addFont(testFont()));
}

void FontRegistryTest::aCallbackMayUseTheRegistry()
{
    morrant::FontRegistry registry;
    Paths reported;
    const std::string marker(100, 'x'); // long enough for the heap, where a freed copy is noticed
    registry.setFontFileCallback([&registry, &reported, marker](const std::string& file) {
        registry.setFontFileCallback({});
        registry.addFont(file);
        reported.push_back(file + marker);
    });
    QVERIFY(registry.addFont(testFont()));
    QCOMPARE(reported, Paths{testFont() + marker});
}

void FontRegistryTest::theGlobalRegistryIsReady()
{
    QVERIFY(morrant::gFontRegistry.addFont(testFont()));
}

const ui::test::Registration<FontRegistryTest> kRegistration;

#include "tst_fontregistry.moc"
