// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/savedfiles.h"

#include "MorrantUI/docking/saving/wholefiles.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace ui {

namespace {

constexpr qsizetype kLongestName = 200; ///< bytes in UTF-8: file systems take 255 with the ending

/// For what may not exist itself.
QDir spelledAlike(const QFileInfo& file)
{
    const QString folder = QDir(file.absolutePath()).canonicalPath();
    return QDir(QDir::cleanPath(
        folder.isEmpty() ? file.absoluteFilePath() : folder + u'/' + file.fileName()));
}

QString withoutEnd(QString name)
{
    while (name.endsWith(u'.') || name.endsWith(u' ')) {
        name.chop(1);
    }
    return name;
}

} // namespace

QByteArray fingerprintOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

FileState fileState(const QString& path, const QByteArray& known)
{
    QFile file(path);
    if (!QFileInfo::exists(path)) {
        return FileState::Gone;
    }
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool isRead =
        QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) && hash.addData(&file);
    return isRead && hash.result() == known ? FileState::Known : FileState::Changed;
}

bool isOnDisk(const QString& path)
{
    return !path.isEmpty() && !path.startsWith(u':');
}

bool isSameFile(const QString& one, const QString& other)
{
    const QFileInfo first(one);
    const QFileInfo second(other);
    if (one.isEmpty() || other.isEmpty() || first.exists() != second.exists()) {
        return false;
    }
    return first.exists() ? first == second // all that do not exist count as equal there
                          : spelledAlike(first) == spelledAlike(second);
}

QString fileNameFor(const QString& title)
{
    QString name = title;
    for (QChar& sign : name) {
        if (sign.category() == QChar::Other_Control) {
            sign = u' ';
        } else if (QStringView(u"/\\:*?\"<>|").contains(sign)) {
            sign = u'-';
        }
    }
    name = name.simplified();
    name.truncate(kLongestName);
    while (name.toUtf8().size() > kLongestName
           || (!name.isEmpty() && name.back().isHighSurrogate())) {
        name.chop(1); // never half a character
    }
    name = withoutEnd(name);
    if (name.isEmpty()) {
        return QCoreApplication::translate("ui::documents", "Untitled");
    }
    return isDeviceName(name) ? u'_' + name : name;
}

QString replaceFile(const QString& path, const QByteArray& bytes)
{
    const QFileInfo info(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (info.exists() && !info.isFile()) {
        return QCoreApplication::translate("ui::documents", "“%1” was not saved: it is not a file.")
            .arg(shown);
    }
    // Written beside the file that a link leads to, not in the link's place.
    const QString target = info.exists() ? info.canonicalFilePath() : path;
    const QString error = writeWhole(target, bytes);
    return error.isEmpty() ? QString()
                           : QCoreApplication::translate("ui::documents", "“%1” was not saved: %2.")
                                 .arg(shown, error);
}

} // namespace ui
