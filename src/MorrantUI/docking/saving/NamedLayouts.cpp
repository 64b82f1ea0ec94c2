// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/NamedLayouts.h"

#include "MorrantUI/docking/saving/layoutjson.h"
#include "MorrantUI/docking/saving/wholefiles.h"
#include "MorrantUI/log.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QUrl>

#include <algorithm>

namespace ui {

namespace {

const QString kSuffix = QStringLiteral(".layout.json");

QString nameOf(const QString& file)
{
    return QUrl::fromPercentEncoding(file.chopped(kSuffix.size()).toUtf8())
        .normalized(QString::NormalizationForm_C);
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList({u'*' + kSuffix}, QDir::Files);
}

bool isVisible(uint sign)
{
    return QChar::isPrint(sign) && !QChar::isSpace(sign);
}

QString inPercent(QChar sign)
{
    QString text;
    for (const char byte : QString(sign).toUtf8()) {
        text += u'%' + QString::number(static_cast<uchar>(byte), 16).rightJustified(2, u'0');
    }
    return text;
}

/// What some file system does not take, or does not tell apart, is written in percent, so that any
/// name can be used; letters without case are not, as they would soon be too many.
QString fileOf(const QString& name)
{
    QString file;
    for (const QChar sign : name) {
        const bool isPlain = sign.category() != QChar::Other_Control
                             && sign.toUpper().toLower() == sign // as "ς" is not
                             && !QStringView(u"%/\\:*?\"<>|.~").contains(sign)
                             && !(file.isEmpty() && isDeviceName(name));
        file += isPlain ? QString(sign) : inPercent(sign);
    }
    return file + kSuffix;
}

} // namespace

NamedLayouts::NamedLayouts(const QString& folder)
    : m_folder(folder)
{}

QStringList NamedLayouts::names() const
{
    QStringList names;
    for (const QString& file : filesIn(m_folder)) {
        names.append(nameOf(file));
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
    const auto signs = name.toUcs4();
    if (std::none_of(signs.begin(), signs.end(), &isVisible)) {
        return false;
    }
    QString error;
    if (docking::readLayout(layout, &error)) {
        QDir().mkpath(m_folder); // where that fails, the file's error says why
        error = writeWhole(path(name), layout);
    }
    if (!error.isEmpty()) {
        log::warning("The layout could not be saved: {}", error.toStdString());
    }
    return error.isEmpty();
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

/// The file that has the name, however it is written in percent; else that of a new one.
QString NamedLayouts::path(const QString& name) const
{
    const QString wanted = name.trimmed().normalized(QString::NormalizationForm_C);
    const QStringList files = filesIn(m_folder);
    const auto found = std::find_if(files.begin(), files.end(), [&wanted](const QString& file) {
        return nameOf(file) == wanted;
    });
    return QDir(m_folder).filePath(found != files.end() ? *found : fileOf(wanted));
}

} // namespace ui
