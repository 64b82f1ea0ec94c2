// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/FileSaver.h"

#include <MorrantUI/documents/FilePage.h>
#include <MorrantUI/documents/questions.h>
#include <MorrantUI/documents/savedfiles.h>
#include <MorrantUI/theme/OverrideCursor.h>

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QStandardPaths>

FileSaver::FileSaver(QWidget* parent)
    : QObject(parent)
{}

FileSaver::~FileSaver() = default;

void FileSaver::setFileType(const QString& filter, const QString& suffix)
{
    m_filter = filter;
    m_suffix = suffix;
}

bool FileSaver::save(FilePage& page)
{
    page.finishEditing();
    if (!ui::isOnDisk(page.path())) {
        return saveAs(page);
    }
    const ui::FileState state = ui::fileState(page.path(), page.fingerprint());
    if (state == ui::FileState::Known) {
        return writeTo(page, page.path());
    }
    const QPointer<FilePage> asked(&page);
    const QString name = QFileInfo(page.path()).fileName();
    const ui::Overwriting answer = ui::askToOverwrite(
        state == ui::FileState::Gone ? tr("Save “%1” again?").arg(name)
                                     : tr("Overwrite “%1”?").arg(name),
        state == ui::FileState::Gone
            ? tr("The file has been moved or deleted since it was opened.")
            : tr("Another program has changed the file since it was opened. Its changes would be "
                 "lost."),
        window());
    if (!asked || answer == ui::Overwriting::Cancel) {
        return false;
    }
    return answer == ui::Overwriting::SaveAs ? saveAs(page) : writeTo(page, page.path());
}

bool FileSaver::saveAs(FilePage& page)
{
    page.finishEditing();
    const QPointer<FilePage> asked(&page);
    const QString suggested = suggestionFor(page);
    const QString path = m_choosePath ? m_choosePath(suggested) : askForPath(suggested);
    if (!asked || path.isEmpty()) {
        return false;
    }
    if (m_isTaken && m_isTaken(page, path)) {
        Q_EMIT failed(tr("“%1” was not saved: it is open in another tab.")
                          .arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return writeTo(page, path);
}

QWidget* FileSaver::window() const
{
    const auto* widget = qobject_cast<QWidget*>(parent());
    return widget ? widget->window() : nullptr;
}

/// Its file, or else its title as a file name that is one everywhere.
QString FileSaver::suggestionFor(const FilePage& page) const
{
    if (ui::isOnDisk(page.path())) {
        return page.path();
    }
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QString name = page.title();
    for (const QChar sign : QStringLiteral("/\\:*?\"<>|")) {
        name.replace(sign, u'-');
    }
    return folder.filePath(m_suffix.isEmpty() ? name : name + u'.' + m_suffix);
}

QString FileSaver::askForPath(const QString& suggested)
{
    QFileDialog dialog(window(), tr("Save As"), {}, m_filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(m_suffix);
    dialog.selectFile(suggested);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool FileSaver::writeTo(FilePage& page, const QString& path)
{
    const ui::OverrideCursor busy(Qt::WaitCursor);
    const auto contents = page.contents();
    QString error;
    if (!contents || !page.canBeRead(*contents)) { // better no file than one that nobody can open
        error = tr("“%1” was not saved: the document could not be read again.")
                    .arg(QDir::toNativeSeparators(path));
    } else {
        error = ui::replaceFile(path, *contents);
    }
    if (!error.isEmpty()) {
        Q_EMIT failed(error);
        return false;
    }
    page.setSaved(path, ui::fingerprintOf(*contents));
    return true;
}
