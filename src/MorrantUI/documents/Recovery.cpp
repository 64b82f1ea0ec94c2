// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/Recovery.h"

#include <MorrantUI/documents/savedfiles.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr QLatin1String kIndex("index.json");
constexpr QLatin1String kLock("lock");
constexpr QLatin1String kSuffix(".document");
constexpr int kMostNames = 3;
constexpr auto kOwn = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

using IsDocument = std::function<bool(const QByteArray&)>;

/// Nothing where anything of a folder cannot be read.
std::optional<std::vector<UnsavedDocument>> documentsIn(
    const QDir& folder, const IsDocument& isDocument)
{
    std::vector<UnsavedDocument> documents;
    const auto index = QJsonDocument::fromJson(contentsOf(folder.filePath(kIndex))).array();
    for (const QJsonValue entry : index) {
        const QString file = QFileInfo(entry[u"file"].toString()).fileName();
        UnsavedDocument document{
            entry[u"title"].toString(),
            entry[u"path"].toString(),
            QByteArray::fromBase64(entry[u"fingerprint"].toString().toLatin1()),
            contentsOf(folder.filePath(file))};
        if (isDocument && !isDocument(document.contents)) {
            return std::nullopt;
        }
        documents.push_back(std::move(document));
    }
    const bool isWhole =
        !documents.empty() || folder.entryList({kIndex, u'*' + kSuffix}, QDir::Files).isEmpty();
    return isWhole ? std::optional(std::move(documents)) : std::nullopt;
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
        const QString file = QString::number(index.size() + 1) + kSuffix;
        const QString error = ui::replaceFile(folder.filePath(file), document.contents);
        if (!error.isEmpty()) {
            return error;
        }
        index.append(QJsonObject{
            {QStringLiteral("file"), file},
            {QStringLiteral("title"), document.title},
            {QStringLiteral("path"), document.path},
            {QStringLiteral("fingerprint"), QString::fromLatin1(document.fingerprint.toBase64())}});
    }
    return ui::replaceFile(folder.filePath(kIndex), QJsonDocument(index).toJson());
}

QString notKeptIn(const QString& folder)
{
    return QCoreApplication::translate("Recovery", "Unsaved changes cannot be kept in “%1”.")
        .arg(QDir::toNativeSeparators(folder));
}

} // namespace

Recovery::Recovery(const QString& folder)
    : m_folder(folder)
{}

Recovery::~Recovery() = default;

std::vector<UnsavedDocument> Recovery::take(const IsDocument& isDocument)
{
    m_unreadable.clear();
    std::vector<UnsavedDocument> documents;
    std::vector<Taken> unfinished; // the index is written last
    const QDir all(m_folder);
    for (const QString& name : all.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Time)) {
        const QDir folder(all.filePath(name));
        auto lock = lockOf(folder);
        if (!lock) {
            continue; // of a run that goes on
        }
        auto found = documentsIn(folder, isDocument);
        if (!found && !folder.exists(kIndex)) {
            unfinished.push_back({folder.path(), std::move(lock)});
            continue;
        }
        if (!found) {
            m_unreadable.append(folder.path());
            continue;
        }
        std::move(found->begin(), found->end(), std::back_inserter(documents));
        m_taken.push_back({folder.path(), std::move(lock)});
    }
    for (Taken& one : unfinished) {
        if (documents.empty()) {
            m_unreadable.append(one.folder);
        } else { // what its run had kept before is among them
            m_taken.push_back(std::move(one));
        }
    }
    return documents;
}

QString Recovery::keep(const std::vector<UnsavedDocument>& documents)
{
    if (documents.empty()) {
        forget();
        return {};
    }
    std::vector<Taken> made;
    made.push_back(makeFolder());
    if (!made.front().lock) {
        return notKeptIn(m_folder);
    }
    QString error = write(QDir(made.front().folder), documents);
    if (error.isEmpty()) {
        std::swap(made, m_taken);
    }
    drop(std::move(made));
    return error;
}

/// Without a lock where there can be none. Another run may take a new folder while it is empty, and
/// clears it away later.
Recovery::Taken Recovery::makeFolder() const
{
    const QDir all(m_folder);
    all.mkpath(QStringLiteral("."));
    Taken made;
    for (int i = 0; i < kMostNames && !made.lock; ++i) {
        const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
        all.mkdir(name, kOwn);
        made = {all.filePath(name), lockOf(QDir(all.filePath(name)))};
        if (!made.lock) {
            all.rmdir(name); // unless it is the other run's
        }
    }
    return made;
}

void Recovery::forget()
{
    drop(std::exchange(m_taken, {}));
}

void Recovery::drop(std::vector<Taken> taken)
{
    for (Taken& one : taken) {
        QFile::remove(QDir(one.folder).filePath(kIndex)); // nobody reads what goes
        one.lock.reset();                                 // its file lies in the folder
        QDir(one.folder).removeRecursively();
    }
}
