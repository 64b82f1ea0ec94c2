#include "NoticeBar.h"
#include "Player.h"
#include "StudioWindow.h"
#include "Viewport.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include "support/themes.h"
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QWheelEvent>

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

Ended runStudio(const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MORRANT_ASSETS"_qs, ui::test::assetsPath());
    // Files, not pipes, whose reader under Wine misses what comes after a pause of some seconds;
    // and beside the program, where nobody has to delete them while the studio still closes them.
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString output = folder.filePath(u"studio-output.txt"_qs);
    const QString errors = folder.filePath(u"studio-errors.txt"_qs);
    QProcess process;
    process.setProcessEnvironment(environment);
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

void show(StudioWindow& window)
{
    QVERIFY(window.openFile(samplePaths().first()));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

} // namespace

namespace {

/// The program as its user starts it, and what its keys and buttons do away from the editor.
class ProgramTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        ui::test::makeTheme<VisualDesignDark>(ui::test::assetsPath()).applyAppStyle();
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

    void failuresAreOneLine_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("folderName");
        QTest::newRow("a bad file") << QByteArray("[]") << u"bad.json"_qs << u"out"_qs;
        if (QSysInfo::kernelType() != u"winnt") { // where no file can be called so
            QTest::newRow("a name of two lines")
                << QByteArray("[]") << u"a\nb.json"_qs << u"out"_qs;
        }
        QTest::newRow("a folder that is a file")
            << QByteArray(R"({"fr":10,"ip":0,"op":2,"w":20,"h":10,"layers":[]})") << u"good.json"_qs
            << u"good.json"_qs;
    }

    void failuresAreOneLine()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, fileName);
        QFETCH(QString, folderName);
        const QTemporaryDir folder;
        const QString file = written(folder, fileName, text);
        const QString out = folder.filePath(folderName);

        const Ended ended = runStudio({u"--pictures"_qs, out, file});

        QCOMPARE(ended.exitCode, 1);
        QCOMPARE(ended.output, QStringList());
        QCOMPARE(ended.errors.size(), 1);
        QVERIFY2(
            ended.errors.first().contains(QString(fileName).replace(u'\n', u'?')),
            qPrintable(ended.errors.first()));
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    }

    void keysOfTheEditorRestInTheGallery()
    {
        StudioWindow window;
        show(window);
        window.setGalleryShown(true);
        const double scale = window.viewport().mapping().scale;
        QTest::keyClick(&window, Qt::Key_Space);
        QTest::keyClick(&window, Qt::Key_End);
        QTest::keyClick(&window, Qt::Key_Plus);
        QVERIFY(!window.player().isPlaying());
        QCOMPARE(window.player().frame(), window.player().range().first);
        QCOMPARE(window.viewport().mapping().scale, scale);

        window.setGalleryShown(false);
        QTest::keyClick(&window, Qt::Key_Space);
        QVERIFY(window.player().isPlaying());
    }

    void aNoticeIsSeenInTheGallery()
    {
        StudioWindow window;
        show(window);
        window.setGalleryShown(true);
        QVERIFY(!window.openFile(u":/samples"_qs));
        QVERIFY(window.notice().isVisible());
        QVERIFY(!window.viewport().isVisible());
    }

    void onlyTurningTheWheelUpOrDownZooms()
    {
        StudioWindow window;
        show(window);
        Viewport& viewport = window.viewport();
        const auto turn = [&viewport](QPoint delta) {
            const QPointF at(50, 50);
            QWheelEvent event(
                at,
                viewport.mapToGlobal(at),
                {},
                delta,
                Qt::NoButton,
                Qt::NoModifier,
                Qt::NoScrollPhase,
                false);
            QApplication::sendEvent(&viewport, &event);
        };
        const double before = viewport.mapping().scale;
        turn({120, 0});
        window.resize(window.size() - QSize(200, 200));
        QTRY_VERIFY(viewport.mapping().scale < before); // still fitted
        const double fittedScale = viewport.mapping().scale;
        turn({0, 120});
        QCOMPARE(viewport.mapping().scale, fittedScale * 1.2);
    }

    void aPanEndsWithItsButtonOrTheFocus()
    {
        StudioWindow window;
        show(window);
        Viewport& viewport = window.viewport();
        ui::test::FakePointer pointer(&viewport);
        pointer.moveTo({50, 50});
        pointer.press();
        pointer.press(Qt::MiddleButton);
        pointer.release();
        const QPointF origin = viewport.mapping().origin;
        pointer.moveTo({90, 90}); // with the other button still down
        QCOMPARE(viewport.mapping().origin, origin);
        pointer.release(Qt::MiddleButton);

        pointer.press();
        viewport.clearFocus();
        pointer.moveTo({20, 20});
        QCOMPARE(viewport.mapping().origin, origin);
        QCOMPARE(viewport.cursor().shape(), Qt::OpenHandCursor);
        pointer.release();
    }
};

const ui::test::Registration<ProgramTest> kRegistration;
} // namespace

#include "tst_program.moc"
