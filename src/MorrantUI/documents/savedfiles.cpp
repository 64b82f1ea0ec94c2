// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/savedfiles.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace ui {

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
    QSaveFile file(target);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    return isWritten ? QString()
                     : QCoreApplication::translate("ui::documents", "“%1” was not saved: %2.")
                           .arg(shown, file.errorString());
}

} // namespace ui
