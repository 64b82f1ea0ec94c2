// SPDX-License-Identifier: Apache-2.0
#include "assetsfolder.h"
#include "commandline.h"
#include "support/TestCase.h"

using namespace studio;

class CommandLineTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void optionsAreReadAndMisuseIsOneSentence()
    {
        const auto parse = [](const QString& arguments) {
            return parseCommandLine((u"studio "_qs + arguments).split(u' '));
        };
        const CommandLine wanted = parse(u"--pictures out a.json --gallery"_qs);
        QCOMPARE(wanted.error + wanted.answer, QString());
        QCOMPARE(wanted.file, u"a.json"_qs);
        QCOMPARE(wanted.picturesFolder, u"out"_qs);
        QVERIFY(wanted.gallery && !wanted.quitAfterFirstFrame);

        for (const QString& misuse : {u"--picture out"_qs, u"a b"_qs, u"--pictures="_qs}) {
            const QString error = parse(misuse).error;
            QVERIFY(error.endsWith(u'.') && !error.contains(u'\n'));
        }
        const CommandLine help = parse(u"--nonsense --help"_qs);
        QVERIFY(help.error.isEmpty() && help.answer.contains(u"--pictures <folder>"_qs));
    }

    void onlyWhatNeedsNoScreenWorksOffScreen()
    {
        const char* const pictures[] = {"studio", "a.json", "--pictures=out"};
        const char* const window[] = {"studio", "--gallery", "pictures.json"};
        QVERIFY(worksOffScreen(3, pictures) && !worksOffScreen(3, window));
    }

    void theFirstFolderWithAThemeHoldsTheAssets()
    {
        const QString assets = QDir(ui::test::assetsPath()).absolutePath();
        QCOMPARE(findAssets({u":/samples"_qs, assets, u":/samples"_qs}), assets);

        qputenv("MORRANT_ASSETS", "elsewhere");
        QCOMPARE(assetsCandidates(u"bin"_qs).first(), u"elsewhere"_qs);
        qunsetenv("MORRANT_ASSETS");
        QCOMPARE(assetsCandidates(u"bin"_qs).first(), u"bin/../assets"_qs);
    }
};

const ui::test::Registration<CommandLineTest> kRegistration;

#include "tst_commandline.moc"
