// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/NamedLayouts.h"

#include "MorrantUI/log.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QUrl>

#include <algorithm>

namespace ui {

namespace {

const QString kSuffix = QStringLiteral(".layout.json");

} // namespace

NamedLayouts::NamedLayouts(const QString& folder)
    : m_folder(folder)
{}

QStringList NamedLayouts::names() const
{
    QStringList names;
    const auto files = QDir(m_folder).entryList({u'*' + kSuffix}, QDir::Files);
    for (const QString& file : files) {
        names.append(QUrl::fromPercentEncoding(file.chopped(kSuffix.size()).toUtf8()));
    }
    QCollator order;
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), order);
    return names;
}

bool NamedLayouts::save(const QString& name) const
{
    return save(name, saveLayout());
}

bool NamedLayouts::save(const QString& name, const QByteArray& layout) const
{
    if (name.trimmed().isEmpty() || !QDir().mkpath(m_folder)) {
        return false;
    }
    QSaveFile file(path(name));
    if (file.open(QIODevice::WriteOnly) && file.write(layout) == layout.size() && file.commit()) {
        return true;
    }
    log::warning("The layout could not be saved: {}", file.errorString().toStdString());
    return false;
}

bool NamedLayouts::restore(const QString& name, const PanelForName& panelForName) const
{
    return restoreLayout(layout(name), panelForName);
}

QByteArray NamedLayouts::layout(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool NamedLayouts::remove(const QString& name) const
{
    return QFile::remove(path(name));
}

/// What no file system takes is written in percent, so that any name can be used.
QString NamedLayouts::path(const QString& name) const
{
    return QDir(m_folder).filePath(
        QString::fromLatin1(QUrl::toPercentEncoding(name.trimmed(), " ", ".~")) + kSuffix);
}

} // namespace ui
