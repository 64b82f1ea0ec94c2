// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/Recovery.h"

#include <MorrantUI/documents/savedfiles.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace {

constexpr QLatin1String kIndex("index.json");
constexpr QLatin1String kLock("lock");
constexpr QLatin1String kSuffix(".document");
constexpr QLatin1String kFingerprint("fingerprint"); ///< of the document's own file
constexpr QLatin1String kContents("contents");       ///< fingerprint of what is kept here
constexpr int kMostNames = 3;
constexpr auto kOwn = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// Nothing for a file that cannot be read to its end.
std::optional<QByteArray> contentsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray contents = file.readAll();
    return file.error() == QFile::NoError ? std::optional(std::move(contents)) : std::nullopt;
}

QByteArray fingerprintIn(const QJsonValue& entry, const QString& key)
{
    return QByteArray::fromBase64(entry[key].toString().toLatin1());
}

QString textOf(const QByteArray& fingerprint)
{
    return QString::fromLatin1(fingerprint.toBase64());
}

/// Those that are named as makeFolder() does, by the time at which they were finished, the last one
/// first. Others, and what is in them, are not ours to clear away, nor is what a link leads to.
std::multimap<QDateTime, QString, std::greater<>> runsIn(const QDir& all)
{
    static const QRegularExpression ours(QStringLiteral("^[0-9a-f]{32}-"));
    std::multimap<QDateTime, QString, std::greater<>> runs;
    for (const QString& name : all.entryList(QDir::Dirs | QDir::NoSymLinks)) {
        if (ours.match(name).hasMatch()) {
            const QString path = all.filePath(name);
            runs.emplace(QFileInfo(path + u'/' + kIndex).lastModified(), path);
        }
    }
    return runs;
}

/// What the names of a run's folders begin with.
QString runOf(const QString& folder)
{
    return QFileInfo(folder).fileName().section(u'-', 0, 0);
}

using IsDocument = std::function<bool(const QByteArray&)>;

/// Nothing where anything of a folder cannot be read.
std::optional<std::vector<UnsavedDocument>> documentsIn(
    const QDir& folder, const IsDocument& isDocument)
{
    std::vector<UnsavedDocument> documents;
    const QByteArray text = contentsOf(folder.filePath(kIndex)).value_or(QByteArray());
    const auto index = QJsonDocument::fromJson(text).array();
    for (const QJsonValue entry : index) {
        const QString file = QFileInfo(entry[u"file"].toString()).fileName();
        auto contents = contentsOf(folder.filePath(file));
        const QByteArray expected = fingerprintIn(entry, kContents);
        if (!contents || (!expected.isEmpty() && expected != ui::fingerprintOf(*contents))
            || (isDocument && !isDocument(*contents)))
        {
            return std::nullopt;
        }
        documents.push_back(
            {entry[u"title"].toString(),
             entry[u"path"].toString(),
             fingerprintIn(entry, kFingerprint),
             *std::move(contents)});
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
    if (lock->tryLock(0)) {
        return lock;
    }
    qint64 holder = 0; // by its number, which in a sandbox is the same for every run
    QString host;
    QString name;
    const bool mayBeOver =
        lock->getLockInfo(&holder, &host, &name) && holder == QCoreApplication::applicationPid();
    const bool isOver = mayBeOver && lock->removeStaleLockFile() && lock->tryLock(0);
    return isOver ? std::move(lock) : nullptr;
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
            {kFingerprint, textOf(document.fingerprint)},
            {kContents, textOf(ui::fingerprintOf(document.contents))}});
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
    , m_run(QUuid::createUuid().toString(QUuid::Id128))
{}

Recovery::~Recovery() = default;

std::vector<UnsavedDocument> Recovery::take(const IsDocument& isDocument)
{
    m_unreadable.clear();
    std::vector<UnsavedDocument> documents;
    std::vector<Held> unfinished; // the index is written last
    const auto isReplaced = [this](const QString& folder) {
        return std::any_of(m_taken.begin(), m_taken.end(), [&folder](const Held& other) {
            return runOf(other.folder) == runOf(folder)
                   && QFile::exists(QDir(other.folder).filePath(kIndex));
        });
    };
    for (const auto& [finished, path] : runsIn(m_folder)) {
        const QDir folder(path);
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
        if (!isReplaced(folder.path())) { // the power may have gone before it was cleared away
            std::move(found->begin(), found->end(), std::back_inserter(documents));
        }
        m_taken.push_back({folder.path(), std::move(lock)});
    }
    for (Held& one : unfinished) {
        if (isReplaced(one.folder)) { // or was to replace that
            m_taken.push_back(std::move(one));
        } else {
            m_unreadable.append(one.folder);
        }
    }
    m_isTakenOver = m_isTakenOver && documents.empty();
    return documents;
}

QString Recovery::keep(const std::vector<UnsavedDocument>& documents, bool isWhole)
{
    std::vector<Held> made;
    if (!documents.empty()) {
        made.push_back(makeFolder());
        if (!made.front().lock) {
            return notKeptIn(m_folder);
        }
        QString error = write(QDir(made.front().folder), documents);
        if (!error.isEmpty()) {
            drop(std::move(made));
            return error;
        }
    }
    drop(std::exchange(m_kept, std::move(made)));
    if (isWhole && m_isTakenOver) {
        drop(std::exchange(m_taken, {}));
    }
    return {};
}

/// Without a lock where there can be none. Another run may take a new folder while it is empty, and
/// clears it away later.
Recovery::Held Recovery::makeFolder() const
{
    const QDir all(m_folder);
    all.mkpath(QStringLiteral("."));
    Held made;
    for (int i = 0; i < kMostNames && !made.lock; ++i) {
        const QString name = m_run + u'-' + QUuid::createUuid().toString(QUuid::Id128);
        if (!all.mkdir(name, kOwn)) {
            continue;
        }
        made = {all.filePath(name), lockOf(QDir(all.filePath(name)))};
        if (!made.lock) {
            all.rmdir(name); // unless it is the other run's
        }
    }
    return made;
}

void Recovery::forget()
{
    drop(std::exchange(m_kept, {}));
    drop(std::exchange(m_taken, {}));
}

void Recovery::drop(std::vector<Held> held)
{
    for (Held& one : held) {
        QDir folder(one.folder);
        folder.remove(kIndex); // first, as nobody reads what goes
        for (const QString& file : folder.entryList({u'*' + kSuffix}, QDir::Files)) {
            folder.remove(file); // or it would be unfinished to a run that comes now
        }
        one.lock.reset(); // its file lies in the folder
        folder.removeRecursively();
    }
}
