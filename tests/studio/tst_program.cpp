// SPDX-License-Identifier: Apache-2.0
#include "assetsfolder.h"
#include "commandline.h"
#include "support/TestCase.h"

using namespace studio;

namespace {

struct Ended
{
    int exitCode = -1;
    QStringList output;
    QStringList errors;
};

QStringList linesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)
               : QStringList();
}

/// What Qt says about the machine is left out; a second line of ours is not.
QStringList withoutQt(const QStringList& lines)
{
    QStringList ours = lines;
    ours.removeIf([](const QString& line) {
        return line.startsWith(u"QStandardPaths:") || line.startsWith(u"This plugin does not");
    });
    return ours;
}

QProcessEnvironment studioEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MORRANT_ASSETS"_qs, ui::test::assetsPath());
    return environment;
}

Ended runStudio(const QStringList& arguments)
{
    // Files, not pipes, whose reader under Wine misses what comes after a pause of some seconds;
    // and beside the program, where nobody has to delete them while the studio still closes them.
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString output = folder.filePath(u"studio-output.txt"_qs);
    const QString errors = folder.filePath(u"studio-errors.txt"_qs);
    QProcess process;
    process.setProcessEnvironment(studioEnvironment());
    process.setStandardOutputFile(output);
    process.setStandardErrorFile(errors);
    process.start(folder.filePath(u"studio"_qs), arguments);
    if (!process.waitForFinished(120'000) || process.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {process.exitCode(), linesOf(output), withoutQt(linesOf(errors))};
}

QString written(const QTemporaryDir& folder, const QString& name, const QByteArray& text)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? path : QString();
}

/// The program as its user starts it.
class ProgramTest : public ui::test::TestCase
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

    void picturesOfAGoodFileAreWrittenAtBothRatios()
    {
        const QTemporaryDir folder;
        const QString file = written(
            folder,
            u"two.json"_qs,
            R"({"fr":10,"ip":0,"op":2,"w":20,"h":10,"layers":[{"nm":"T","ty":5,"ip":0,"op":2}]})");
        const QString pictures = folder.filePath(u"pictures"_qs);

        const Ended ended = runStudio({u"--pictures"_qs, pictures, file});

        QCOMPARE(ended.errors, QStringList());
        QCOMPARE(ended.exitCode, 0);
        const QStringList files = QDir(pictures).entryList(QDir::Files, QDir::Name);
        QCOMPARE(ended.output.size(), files.size());
        for (const QString& name : {u"play-0000"_qs, u"play-0001"_qs, u"notice"_qs, u"gallery"_qs})
        {
            const QImage once(QDir(pictures).filePath(name + u".png"_qs));
            const QImage twice(QDir(pictures).filePath(name + u"@2x.png"_qs));
            QVERIFY2(!once.isNull() && twice.size() == once.size() * 2, qPrintable(name));
        }
    }

    void whoeverIsToldToEndLosesNothing()
    {
#ifdef Q_OS_UNIX
        const QTemporaryDir home;
        QProcessEnvironment environment = studioEnvironment();
        environment.insert(u"HOME"_qs, home.path());
        environment.insert(u"XDG_CONFIG_HOME"_qs, home.path());
        environment.insert(u"QT_QPA_PLATFORM"_qs, u"offscreen"_qs);
        QProcess studio;
        studio.setProcessEnvironment(environment);
        studio.start(QCoreApplication::applicationDirPath() + u"/studio"_qs, {});
        QFile layout(home.filePath(u"Morrant/studio/layout.json"_qs));
        QTRY_VERIFY_WITH_TIMEOUT(layout.exists(), 60'000); // the window has come to rest
        QVERIFY(layout.remove());
        studio.terminate();
        QVERIFY(studio.waitForFinished(60'000));
        QVERIFY(studio.exitStatus() == QProcess::NormalExit && studio.exitCode() == 0);
        QVERIFY(layout.exists());
#endif
    }

    void failuresAreOneLine()
    {
        const QByteArray good = R"({"fr":10,"ip":0,"op":2,"w":20,"h":10,"layers":[]})";
        std::vector<std::tuple<QByteArray, QString, QString>> cases{
            {"[]", u"bad.json"_qs, u"out"_qs},
            {good, u"good.json"_qs, u"good.json"_qs}}; // a folder that is a file
        if (QSysInfo::kernelType() != u"winnt") {      // where no file can be called so
            cases.emplace_back("[]", u"a\nb.json"_qs, u"out"_qs);
        }
        for (const auto& [text, fileName, folderName] : cases) {
            const QTemporaryDir folder;
            const QString file = written(folder, fileName, text);
            const Ended ended = runStudio({u"--pictures"_qs, folder.filePath(folderName), file});
            QCOMPARE(ended.exitCode, 1);
            QCOMPARE(ended.output, QStringList());
            QCOMPARE(ended.errors.size(), 1);
            const QString name = QString(fileName).replace(u'\n', u'?');
            QVERIFY2(ended.errors.first().contains(name), qPrintable(ended.errors.first()));
            QCOMPARE(
                QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
        }
    }
};

const ui::test::Registration<ProgramTest> kRegistration;
} // namespace

#include "tst_program.moc"
