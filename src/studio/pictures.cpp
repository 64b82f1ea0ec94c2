#include "pictures.h"

#include "Player.h"
#include "StudioWindow.h"
#include "gallery/GalleryPage.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSignalBlocker>

#include <cstdio>
#include <cstdlib>

namespace studio {

namespace {

constexpr int kFrames = 5; ///< pictures of the animation, from the first frame to the last

QString tr(const char* text)
{
    return QCoreApplication::translate("pictures", text);
}

/// Writes widgets into a folder and remembers the first failure.
class PictureFolder
{
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
    const FrameRange range = window.player().range();
    const int count = qMin(kFrames, range.count());
    for (int i = 0; i < count; ++i) {
        const qint64 offset = qint64(range.count() - 1) * i / qMax(1, count - 1);
        const int frame = range.first + static_cast<int>(offset);
        window.player().seek(frame);
        pictures.write(QStringLiteral("play-%1").arg(frame, 4, 10, QLatin1Char('0')), window);
    }
    window.player().seek(range.first + range.count() / 2);
}

void writeNotice(PictureFolder& pictures, StudioWindow& window)
{
    const QSignalBlocker blocker(window);
    window.openFile(QStringLiteral("no-such-file.json"));
    pictures.write(QStringLiteral("notice"), window);
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
    pictures.write(QStringLiteral("gallery"), page);
}

/// The device pixel ratio belongs to a process, so a second one renders the rest.
QString writeAtTwiceThePixels()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    std::fflush(stdout);
    process.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    const bool done = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit
                      && process.exitCode() == EXIT_SUCCESS;
    return done ? QString() : tr("The pictures at twice the pixels could not be rendered.");
}

} // namespace

QString writePictures(StudioWindow& window, const QString& folder)
{
    PictureFolder pictures(folder);
    window.show();
    writeFrames(pictures, window);
    writeNotice(pictures, window);
    writeEmpty(pictures, window.size());
    writeGallery(pictures);
    const bool isLast = window.devicePixelRatioF() > 1.0;
    return isLast || !pictures.error().isEmpty() ? pictures.error() : writeAtTwiceThePixels();
}

} // namespace studio
