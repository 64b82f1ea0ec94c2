// SPDX-License-Identifier: Apache-2.0
#include "saving/Recovery.h"

#include "saving/documentfile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <utility>

namespace studio {

namespace {

constexpr QLatin1String kIndex("index.json");
constexpr QLatin1String kLock("lock");
constexpr auto kOwn = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<UnsavedDocument> documentsIn(const QDir& folder)
{
    std::vector<UnsavedDocument> documents;
    const auto index = QJsonDocument::fromJson(contentsOf(folder.filePath(kIndex))).array();
    for (const QJsonValue entry : index) {
        const QString file = QFileInfo(entry[u"file"].toString()).fileName();
        const QByteArray bytes = contentsOf(folder.filePath(file));
        if (!bytes.isEmpty()) {
            documents.push_back(
                {entry[u"title"].toString(),
                 entry[u"path"].toString(),
                 QByteArray::fromBase64(entry[u"fingerprint"].toString().toLatin1()),
                 bytes.toStdString()});
        }
    }
    return documents;
}

/// A lock of another run is stale when that has ended, however old it is.
std::unique_ptr<QLockFile> lockOf(const QDir& folder)
{
    auto lock = std::make_unique<QLockFile>(folder.filePath(kLock));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

QString write(const QDir& folder, const std::vector<UnsavedDocument>& documents)
{
    QJsonArray index;
    for (const UnsavedDocument& document : documents) {
        const QString file = QStringLiteral("%1.json").arg(index.size() + 1);
        const QString error = writeFile(folder.filePath(file), document.bytes);
        if (!error.isEmpty()) {
            return error;
        }
        index.append(QJsonObject{
            {QStringLiteral("file"), file},
            {QStringLiteral("title"), document.title},
            {QStringLiteral("path"), document.path},
            {QStringLiteral("fingerprint"), QString::fromLatin1(document.fingerprint.toBase64())}});
    }
    return writeFile(folder.filePath(kIndex), QJsonDocument(index).toJson().toStdString());
}

} // namespace

Recovery::Recovery(const QString& folder)
    : m_folder(folder)
{}

Recovery::~Recovery() = default;

std::vector<UnsavedDocument> Recovery::take()
{
    std::vector<UnsavedDocument> documents;
    const QDir all(m_folder);
    for (const QString& name : all.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Time)) {
        const QDir folder(all.filePath(name));
        auto lock = lockOf(folder);
        if (!lock) {
            continue; // of a run that goes on
        }
        for (UnsavedDocument& document : documentsIn(folder)) {
            documents.push_back(std::move(document));
        }
        m_taken.push_back({folder.path(), std::move(lock)});
    }
    return documents;
}

QString Recovery::keep(const std::vector<UnsavedDocument>& documents)
{
    if (documents.empty()) {
        forget();
        return {};
    }
    const QDir all(m_folder);
    all.mkpath(QStringLiteral("."));
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    all.mkdir(name, kOwn);
    const QDir folder(all.filePath(name));
    auto lock = lockOf(folder);
    QString error = write(folder, documents);
    auto former = std::exchange(m_taken, {});
    m_taken.push_back({folder.path(), std::move(lock)});
    if (error.isEmpty()) {
        drop(std::move(former));
    } else {
        drop(std::exchange(m_taken, std::move(former)));
    }
    return error;
}

void Recovery::forget()
{
    drop(std::exchange(m_taken, {}));
}

void Recovery::drop(std::vector<Taken> taken)
{
    for (Taken& one : taken) {
        one.lock.reset(); // its file lies in the folder
        QDir(one.folder).removeRecursively();
    }
}

} // namespace studio
