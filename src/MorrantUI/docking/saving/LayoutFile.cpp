// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/LayoutFile.h"

#include "MorrantUI/docking/saving/layoutnode.h"
#include "MorrantUI/docking/saving/wholefiles.h"
#include <MorrantUI/docking/saving/LayoutWatch.h>
#include <MorrantUI/docking/saving/Workspace.h>
#include <MorrantUI/theme/screens.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QScreen>

#include <utility>

namespace {

constexpr QMargins kFrameRoom(8, 32, 8, 8); ///< logical pixels of a screen, for a window's frame

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

/// What a screen has for a window without its frame.
QRect roomOn(const QScreen& screen)
{
    return screen.availableGeometry().marginsRemoved(kFrameRoom);
}

/// Where a window was, which Qt does not shrink for a screen that is smaller now.
/// @return false without a place that can be used
bool place(QWidget& window, const QByteArray& saved)
{
    if (!window.restoreGeometry(saved)) {
        return false;
    }
    const QScreen* const screen = getClosestScreenAt(window.geometry().center());
    const bool fillsScreen = window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (screen && !fillsScreen && !screen->availableGeometry().contains(window.geometry())) {
        window.setGeometry(ui::docking::within(window.geometry(), roomOn(*screen)));
    }
    return true;
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
    QFile file(m_path);
    if (!file.exists() || !m_workspace) {
        m_mayWrite = true;
        fitScreen();
        return;
    }
    const QByteArray saved = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QString shown = QDir::toNativeSeparators(m_path);
    m_mayWrite = file.error() == QFile::NoError; // it may only be locked for a moment
    if (!m_mayWrite) {
        Q_EMIT failed(tr("The layout in “%1” cannot be read: %2.").arg(shown, file.errorString()));
        return;
    }
    const QJsonObject all = QJsonDocument::fromJson(saved).object();
    takeValues(all);
    QString error;
    if (m_workspace->setLayout(saved, &error)) {
        const QByteArray window = all[kWindow].toString().toLatin1();
        place(m_window, QByteArray::fromBase64(window)) ? void() : fitScreen();
        return;
    }
    m_mayWrite = ui::writeWhole(m_path + QStringLiteral(".bad"), saved).isEmpty();
    Q_EMIT failed(tr("The layout in “%1” cannot be used: %2.").arg(shown, error));
}

void LayoutFile::fitScreen()
{
    m_window.resize(m_window.size().boundedTo(roomOn(*m_window.screen()).size()));
}

/// Those that have not been set meanwhile.
void LayoutFile::takeValues(const QJsonObject& saved)
{
    for (auto value = saved.constBegin(); value != saved.constEnd(); ++value) {
        if (!isOwn(value.key()) && !m_values.contains(value.key())) {
            m_values[value.key()] = value.value();
        }
    }
}

void LayoutFile::save()
{
    m_watch->forget();
    if (!m_mayWrite) {
        return;
    }
    QJsonObject layout =
        QJsonDocument::fromJson(m_workspace ? m_workspace->layout() : QByteArray()).object();
    if (layout.isEmpty()) {
        return; // what was kept is better than nothing
    }
    for (auto value = m_values.constBegin(); value != m_values.constEnd(); ++value) {
        layout[value.key()] = value.value();
    }
    layout[kWindow] = QString::fromLatin1(m_window.saveGeometry().toBase64());
    const QByteArray json = QJsonDocument(layout).toJson();
    QDir().mkpath(QFileInfo(m_path).path());
    const QString error = ui::writeWhole(m_path, json);
    const bool isTold = std::exchange(m_hasFailed, !error.isEmpty());
    if (m_hasFailed && !isTold) { // it is tried again with every change
        Q_EMIT failed(tr("The layout was not saved: %1.").arg(error));
    }
}

void LayoutFile::setValue(const QString& key, const QJsonValue& value)
{
    if (!isOwn(key) && m_values[key] != value) {
        m_values[key] = value;
        m_watch->note();
    }
}
