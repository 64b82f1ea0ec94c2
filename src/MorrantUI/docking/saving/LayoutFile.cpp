// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/LayoutFile.h"

#include <MorrantUI/docking/saving/LayoutWatch.h>
#include <MorrantUI/docking/saving/Workspace.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QScreen>

#include <utility>

namespace {

constexpr QSize kFrameRoom(16, 40); ///< logical pixels of a screen, for a window's frame

const QString kWindow = QStringLiteral("window");

bool isOwn(const QString& key)
{
    const QStringList layout{
        QStringLiteral("version"),
        QStringLiteral("root"),
        QStringLiteral("floating"),
        QStringLiteral("closed")};
    return key == kWindow || layout.contains(key);
}

} // namespace

LayoutFile::LayoutFile(const QString& path, Workspace& workspace, QWidget& window)
    : QObject(&window)
    , m_path(path)
    , m_workspace(&workspace)
    , m_window(window)
    , m_watch(new LayoutWatch(&window))
{
    connect(m_watch, &LayoutWatch::settled, this, &LayoutFile::save);
}

LayoutFile::~LayoutFile() = default;

void LayoutFile::restore()
{
    m_isRestored = true;
    QFile file(m_path);
    if (!file.exists() || !m_workspace) {
        const QSize most = m_window.screen()->availableSize() - kFrameRoom;
        m_window.resize(m_window.size().boundedTo(most));
        return;
    }
    const QByteArray saved = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    QString error;
    if (!m_workspace->setLayout(saved, &error)) {
        const QString kept = m_path + QStringLiteral(".bad"); // a new one will take its place
        QFile::remove(kept);
        QFile::copy(m_path, kept);
        Q_EMIT failed(tr("The layout in “%1” cannot be used: %2.")
                          .arg(QDir::toNativeSeparators(m_path), error));
        return;
    }
    m_values = QJsonDocument::fromJson(saved).object();
    const QByteArray place = m_values[kWindow].toString().toLatin1();
    m_window.restoreGeometry(QByteArray::fromBase64(place));
}

void LayoutFile::save()
{
    m_watch->forget();
    if (!m_isRestored) {
        return;
    }
    QJsonObject layout =
        QJsonDocument::fromJson(m_workspace ? m_workspace->layout() : QByteArray()).object();
    if (layout.isEmpty()) {
        return; // what was kept is better than nothing
    }
    for (auto value = m_values.constBegin(); value != m_values.constEnd(); ++value) {
        if (!isOwn(value.key())) {
            layout[value.key()] = value.value();
        }
    }
    layout[kWindow] = QString::fromLatin1(m_window.saveGeometry().toBase64());
    const QByteArray json = QJsonDocument(layout).toJson();
    QDir().mkpath(QFileInfo(m_path).path());
    QSaveFile file(m_path);
    const bool isSaved =
        file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.commit();
    if (!std::exchange(m_hasFailed, !isSaved) && !isSaved) { // it is tried again with every change
        Q_EMIT failed(tr("The layout was not saved: %1.").arg(file.errorString()));
    }
}

void LayoutFile::setValue(const QString& key, const QJsonValue& value)
{
    if (!isOwn(key) && m_values[key] != value) {
        m_values[key] = value;
        save();
    }
}
