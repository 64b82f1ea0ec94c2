// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/FilePage.h"

#include <QFileInfo>
#include <QPointer>

FilePage::FilePage(QWidget* parent)
    : QWidget(parent)
{}

FilePage::~FilePage() = default;

void FilePage::setFile(const QString& title, const QString& path, const QByteArray& fingerprint)
{
    m_title = title;
    m_path = path;
    m_fingerprint = fingerprint;
    const QPointer<FilePage> alive(this);
    Q_EMIT changed(); // so that it is shown under its name
    if (alive) {
        Q_EMIT documentSet();
    }
}

void FilePage::setSaved(const QString& path, const QByteArray& fingerprint)
{
    if (m_path != path) {
        m_path = path;
        const QFileInfo file(path);
        const bool isAllEnding = file.completeBaseName().isEmpty(); // as of ".json"
        m_title = isAllEnding ? file.fileName() : file.completeBaseName();
    }
    m_fingerprint = fingerprint;
    setModified(false);
    Q_EMIT changed();
}

void FilePage::setUnsaved(const QByteArray& fingerprint)
{
    m_fingerprint = fingerprint;
    setModified(true);
    Q_EMIT changed();
}

bool FilePage::canBeRead(const QByteArray&) const
{
    return true;
}
