// SPDX-License-Identifier: Apache-2.0
#include "pictures.h"

#include "StudioWindow.h"
#include "gallery/GalleryPage.h"
#include "texts.h"
#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/timeline/PlaybackClock.h>

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSignalBlocker>

#include <cstdio>
#include <cstdlib>

namespace studio {

namespace {

/// Tells a process that it is one of those that render, each at its own device ratio.
constexpr char kRatio[] = "MORRANT_PICTURES_RATIO";

constexpr int kFrames = 5; ///< pictures of the animation, from the first frame to the last

/// Writes widgets into a folder and remembers the first failure.
class PictureFolder
{
    Q_DECLARE_TR_FUNCTIONS(studio)

public:
    explicit PictureFolder(const QString& path)
        : m_folder(path)
    {
        if (!QDir().mkpath(path)) {
            m_error = tr("The folder %1 could not be made.").arg(path);
        }
    }

    void write(const QString& name, QWidget& widget)
    {
        if (!m_error.isEmpty()) {
            return;
        }
        const QString suffix = widget.devicePixelRatioF() > 1.0 ? QStringLiteral("@2x") : QString();
        const QString path = m_folder.filePath(name + suffix + QStringLiteral(".png"));
        QCoreApplication::sendPostedEvents();
        if (widget.grab().save(path, "PNG")) {
            std::printf("%s\n", qUtf8Printable(QDir::toNativeSeparators(path)));
        } else {
            m_error = tr("The picture %1 could not be written.").arg(path);
        }
    }

    QString error() const { return m_error; }

private:
    QDir m_folder;
    QString m_error;
};

void writeFrames(PictureFolder& pictures, StudioWindow& window)
{
    const auto [first, last] = window.player().frameRange();
    const int count = qMin(kFrames, last - first + 1);
    for (int i = 0; i < count; ++i) {
        const qint64 offset = qint64(last - first) * i / qMax(1, count - 1);
        const int frame = first + static_cast<int>(offset);
        window.player().seek(frame);
        pictures.write(QStringLiteral("play-%1").arg(frame, 4, 10, QLatin1Char('0')), window);
    }
    window.player().seek(first + (last - first + 1) / 2);
}

void writeNotice(PictureFolder& pictures, StudioWindow& window)
{
    const QSignalBlocker blocker(window);
    window.fail(tr("“no-such-file.json” cannot be opened: No such file or directory."));
    pictures.write(QStringLiteral("notice"), window);
}

/// A second document, panels as tabs, and one that floats.
void writeArranged(PictureFolder& pictures, StudioWindow& window)
{
    window.openFile(samplePaths().last());
    window.selectLayer(0);
    Workspace& workspace = window.workspace();
    DockableWindow* attributes = workspace.windowOf(QStringLiteral("attributes"));
    DockableWindow* layers = workspace.windowOf(QStringLiteral("layers"));
    layers->undock(true);
    workspace.windowOf(QStringLiteral("viewport"))->dockInArea(layers, DockableArea::Bottom);
    attributes->undock(true);
    pictures.write(QStringLiteral("arranged"), window);
    pictures.write(QStringLiteral("floating"), *attributes);
    workspace.reset();
}

void writeEmpty(PictureFolder& pictures, QSize size)
{
    StudioWindow window;
    window.resize(size);
    window.show();
    pictures.write(QStringLiteral("empty"), window);
}

void writeGallery(PictureFolder& pictures)
{
    GalleryPage page;
    page.resize(page.fullSize());
    page.show();
    page.activateWindow(); // only then a control looks focused
    QCoreApplication::processEvents();
    pictures.write(QStringLiteral("gallery"), page);
}

QString writeAll(StudioWindow& window, const QString& folder)
{
    PictureFolder pictures(folder);
    window.show();
    window.selectLayer(0);
    writeFrames(pictures, window);
    writeNotice(pictures, window);
    writeArranged(pictures, window);
    writeEmpty(pictures, window.size());
    writeGallery(pictures);
    return pictures.error();
}

/// @return whether the process has ended by itself: it has then said what went wrong
bool runAtRatio(const QString& ratio, int& exitCode)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("QT_SCREEN_SCALE_FACTORS"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), ratio);
    environment.insert(QLatin1String(kRatio), ratio);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    const bool ended = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
    exitCode = process.exitCode();
    return ended;
}

} // namespace

bool writePictures(StudioWindow& window, const QString& folder)
{
    if (qEnvironmentVariableIsSet(kRatio)) {
        const QString error = writeAll(window, folder);
        if (!error.isEmpty()) {
            window.fail(error);
        }
        return error.isEmpty();
    }
    for (const QString& ratio : {QStringLiteral("1"), QStringLiteral("2")}) {
        int exitCode = EXIT_FAILURE;
        if (!runAtRatio(ratio, exitCode)) {
            window.fail(tr("The pictures at device ratio %1 could not be rendered.").arg(ratio));
            return false;
        }
        if (exitCode != EXIT_SUCCESS) {
            return false;
        }
    }
    return true;
}

} // namespace studio
