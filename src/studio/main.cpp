// SPDX-License-Identifier: Apache-2.0
#include "StudioWindow.h"
#include "assetsfolder.h"
#include "commandline.h"
#include "pictures.h"
#include <MorrantUI/platform/TerminationWatch.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QApplication>
#include <QEvent>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// On one line, whatever a file is called.
void complain(QString sentence)
{
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    std::replace_if(sentence.begin(), sentence.end(), isControl, QChar(u'?'));
    std::fprintf(stderr, "studio: %s\n", qUtf8Printable(sentence));
}

void quitAfterFirstFrame(studio::StudioWindow& window)
{
    // The window is painted before its children, in one go: the end waits for the event loop.
    const auto quit = [](QObject*, QEvent* event) {
        if (event->type() == QEvent::Paint) {
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        }
        return false;
    };
    ui::installEventFilter(&window, quit, &window);
}

/// A file or folder of this program's own.
QString ownPath(QStandardPaths::StandardLocation place, const QString& name)
{
    return QStandardPaths::writableLocation(place) + u'/' + name;
}

/// @return the program's exit code
int run(const studio::CommandLine& wanted)
{
    studio::StudioWindow window;
    QObject::connect(&window, &studio::StudioWindow::failed, &window, complain);
    const bool isKept = wanted.picturesFolder.isEmpty() && !wanted.quitAfterFirstFrame;
    const bool isRestored = isKept
                            && window.keepUnsavedIn(ownPath(
                                QStandardPaths::AppLocalDataLocation, QStringLiteral("unsaved")));
    const QString file = wanted.file.isEmpty() ? studio::samplePaths().value(0) : wanted.file;
    const bool opened = (isRestored && wanted.file.isEmpty()) || window.openFile(file);

    if (!wanted.picturesFolder.isEmpty()) {
        const bool written = opened && studio::writePictures(window, wanted.picturesFolder);
        return written ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (wanted.quitAfterFirstFrame) {
        quitAfterFirstFrame(window);
    }
    if (isKept) {
        window.keepLayoutIn(
            ownPath(QStandardPaths::AppConfigLocation, QStringLiteral("layout.json")));
    }
    const morrant::TerminationWatch watch;
    QObject::connect(
        &watch, &morrant::TerminationWatch::requested, &window, &studio::StudioWindow::putAway);
    window.setGalleryShown(wanted.gallery);
    window.show();
    if (!wanted.gallery && !wanted.quitAfterFirstFrame) {
        window.player().play();
    }
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    if (studio::worksOffScreen(argc, argv)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Morrant"));
    QApplication::setApplicationName(QStringLiteral("studio"));
    QApplication::setApplicationDisplayName(QStringLiteral("Morrant Studio"));

    const studio::CommandLine wanted = studio::parseCommandLine(QApplication::arguments());
    if (!wanted.answer.isEmpty()) {
        std::fputs(qUtf8Printable(wanted.answer), stdout);
        return EXIT_SUCCESS;
    }
    if (!wanted.error.isEmpty()) {
        complain(wanted.error);
        return EXIT_FAILURE;
    }

    const QString assets =
        studio::findAssets(studio::assetsCandidates(QApplication::applicationDirPath()));
    if (assets.isEmpty()) {
        complain(QApplication::translate(
            "main", "The assets were not found; set MORRANT_ASSETS to their folder."));
        return EXIT_FAILURE;
    }
    const QString wantedAssets = qEnvironmentVariable("MORRANT_ASSETS");
    if (!wantedAssets.isEmpty() && studio::findAssets({wantedAssets}).isEmpty()) {
        complain(QApplication::translate(
                     "main", "MORRANT_ASSETS is “%1”, which holds no theme; using “%2”.")
                     .arg(wantedAssets, assets));
        qunsetenv("MORRANT_ASSETS"); // said once: processes that we start find the same folder
    }
    VisualDesignDark theme(assets);
    theme.applyAppStyle();
    return run(wanted);
}
