// SPDX-License-Identifier: Apache-2.0
#include "saving/documentfile.h"

#include "texts.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace studio {

QByteArray fingerprint(const std::string& bytes)
{
    const auto size = static_cast<qsizetype>(bytes.size());
    return QCryptographicHash::hash(
        QByteArray::fromRawData(bytes.data(), size), QCryptographicHash::Sha256);
}

FileState stateOf(const QString& path, const QByteArray& known)
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

QString writeFile(const QString& path, const std::string& bytes)
{
    const QFileInfo info(path);
    const QString shown = QDir::toNativeSeparators(path);
    if (info.exists() && !info.isFile()) {
        return tr("“%1” was not saved: it is not a file.").arg(shown);
    }
    // Written beside the file that a link leads to, not in the link's place.
    const QString target = info.exists() ? info.canonicalFilePath() : path;
    QSaveFile file(target);
    const auto size = static_cast<qint64>(bytes.size());
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit();
    return isWritten ? QString() : tr("“%1” was not saved: %2.").arg(shown, file.errorString());
}

} // namespace studio
