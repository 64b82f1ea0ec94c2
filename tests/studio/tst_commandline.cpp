#include "assetsfolder.h"
#include "commandline.h"
#include "support/TestCase.h"
#include "support/paths.h"

#include <QDir>
#include <QTemporaryDir>

using namespace studio;

class CommandLineTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void optionsAndFileComeInAnyOrder();
    void misuseIsOneSentence_data();
    void misuseIsOneSentence();
    void helpAnswersEvenBesideMisuse();
    void onlyWhatNeedsNoScreenWorksOffScreen();
    void theFirstFolderWithAThemeHoldsTheAssets();
};

namespace {

CommandLine parse(const QStringList& arguments)
{
    return parseCommandLine(QStringList{u"studio"_qs} + arguments);
}

} // namespace

void CommandLineTest::optionsAndFileComeInAnyOrder()
{
    const CommandLine plain = parse({});
    QVERIFY(plain.error.isEmpty() && plain.answer.isEmpty());
    QVERIFY(plain.file.isEmpty() && plain.picturesFolder.isEmpty() && !plain.gallery);

    for (const QStringList& arguments :
         {QStringList{u"--pictures"_qs, u"out"_qs, u"a b.json"_qs, u"--gallery"_qs},
          QStringList{u"a b.json"_qs, u"--gallery"_qs, u"--pictures=out"_qs}})
    {
        const CommandLine wanted = parse(arguments);
        QCOMPARE(wanted.error, QString());
        QCOMPARE(wanted.file, u"a b.json"_qs);
        QCOMPARE(wanted.picturesFolder, u"out"_qs);
        QVERIFY(wanted.gallery && !wanted.quitAfterFirstFrame);
    }
    QVERIFY(parse({u"--quit-after-first-frame"_qs}).quitAfterFirstFrame);
    QCOMPARE(parse({u"--"_qs, u"--gallery"_qs}).file, u"--gallery"_qs);
}

void CommandLineTest::misuseIsOneSentence_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("unknown option") << QStringList{u"--picture"_qs, u"out"_qs};
    QTest::newRow("two files") << QStringList{u"a.json"_qs, u"b.json"_qs};
    QTest::newRow("no folder") << QStringList{u"a.json"_qs, u"--pictures"_qs};
    QTest::newRow("empty folder") << QStringList{u"--pictures="_qs};
    QTest::newRow("a value too many") << QStringList{u"--gallery=yes"_qs};
}

void CommandLineTest::misuseIsOneSentence()
{
    QFETCH(QStringList, arguments);
    const CommandLine wanted = parse(arguments);
    QVERIFY(wanted.error.endsWith(u'.'));
    QVERIFY(!wanted.error.contains(u'\n'));
    QCOMPARE(wanted.answer, QString());
}

void CommandLineTest::helpAnswersEvenBesideMisuse()
{
    const CommandLine help = parse({u"--nonsense"_qs, u"--help"_qs});
    QVERIFY(help.error.isEmpty());
    QVERIFY(help.answer.contains(u"--pictures <folder>"_qs));
    QVERIFY(parse({u"--version"_qs}).answer.startsWith(u"studio "_qs));
}

void CommandLineTest::onlyWhatNeedsNoScreenWorksOffScreen()
{
    const char* const pictures[] = {"studio", "a.json", "--pictures=out"};
    const char* const help[] = {"studio", "-h"};
    const char* const window[] = {"studio", "--gallery", "pictures.json"};
    QVERIFY(worksOffScreen(3, pictures));
    QVERIFY(worksOffScreen(2, help));
    QVERIFY(!worksOffScreen(3, window));
}

void CommandLineTest::theFirstFolderWithAThemeHoldsTheAssets()
{
    const QTemporaryDir empty;
    const QString assets = QDir(ui::test::assetsPath()).absolutePath();
    QCOMPARE(findAssets({empty.path(), assets, empty.path()}), assets);
    QCOMPARE(findAssets({empty.path()}), QString());

    qputenv("MORRANT_ASSETS", "elsewhere");
    QCOMPARE(assetsCandidates(u"bin"_qs).first(), u"elsewhere"_qs);
    qunsetenv("MORRANT_ASSETS");
    QCOMPARE(assetsCandidates(u"bin"_qs).first(), u"bin/../assets"_qs);
}

namespace {
const ui::test::Registration<CommandLineTest> kRegistration;
} // namespace

#include "tst_commandline.moc"
