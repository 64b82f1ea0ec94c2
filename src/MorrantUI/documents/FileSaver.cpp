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

FileSaver::FileSaver(QWidget* parent, IsTaken isTaken)
    : QObject(parent)
    , m_isOpen(std::move(isTaken))
{}

FileSaver::~FileSaver() = default;

void FileSaver::setFileType(const QString& filter, const QString& suffix)
{
    m_filter = filter;
    m_suffix = suffix;
}

bool FileSaver::save(FilePage& page)
{
    const QPointer<FileSaver> alive(this); // whatever is asked, its parent may go meanwhile
    const QPointer<FilePage> asked(&page);
    page.finishEditing();
    if (!alive || !asked) {
        return false;
    }
    if (!ui::isOnDisk(page.path())) {
        return saveAs(page);
    }
    const ui::FileState state = ui::fileState(page.path(), page.fingerprint());
    if (state == ui::FileState::Known) {
        return writeTo(page, page.path());
    }
    Q_EMIT asking(&page);
    if (!alive || !asked) {
        return false;
    }
    const QString name = QFileInfo(page.path()).fileName();
    const ui::Overwriting answer = ui::askToOverwrite(
        state == ui::FileState::Gone ? tr("Save “%1” again?").arg(name)
                                     : tr("Overwrite “%1”?").arg(name),
        state == ui::FileState::Gone
            ? tr("The file has been moved or deleted since it was opened.")
            : tr("Another program has changed the file since it was opened. Its changes would be "
                 "lost."),
        window());
    if (!alive || !asked || answer == ui::Overwriting::Cancel) {
        return false;
    }
    return answer == ui::Overwriting::SaveAs ? saveAs(page) : writeTo(page, page.path());
}

bool FileSaver::saveAs(FilePage& page)
{
    const QPointer<FileSaver> alive(this);
    const QPointer<FilePage> asked(&page);
    page.finishEditing();
    if (alive && asked) {
        Q_EMIT asking(&page);
    }
    if (!alive || !asked) {
        return false;
    }
    const ChoosePath choose = m_choosePath; // stays whole while it runs
    const QString path = choose ? choose(suggestionFor(page)) : askForPath(page);
    if (!alive || !asked || path.isEmpty()) {
        return false;
    }
    if (isTaken(page, path)) {
        Q_EMIT failed(tr("“%1” was not saved: it is open in another tab or window.")
                          .arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return writeTo(page, path);
}

bool FileSaver::isTaken(const FilePage& page, const QString& path) const
{
    return (m_isOpen && m_isOpen(page, path)) || (m_isTaken && m_isTaken(page, path));
}

QWidget* FileSaver::window() const
{
    const auto* widget = qobject_cast<QWidget*>(parent());
    return widget ? widget->window() : nullptr;
}

/// Its file, or else its title as a file name.
QString FileSaver::suggestionFor(const FilePage& page) const
{
    if (ui::isOnDisk(page.path())) {
        return page.path();
    }
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString name = ui::fileNameFor(page.title());
    return folder.filePath(m_suffix.isEmpty() ? name : name + u'.' + m_suffix);
}

/// Empty when it was dismissed, or has gone with its window.
QString FileSaver::chooseInDialog(const QString& title, const QString& suggested)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(window(), title, {}, m_filter);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(m_suffix);
    dialog->setOption(QFileDialog::DontConfirmOverwrite); // asked about the path that it comes to
    dialog->selectFile(suggested);
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    const QString path = dialog && isChosen ? dialog->selectedFiles().value(0) : QString();
    delete dialog.data(); // here, since the parent may go before the loop comes round
    return path;
}

QString FileSaver::askForPath(const FilePage& page)
{
    const QPointer<FileSaver> alive(this);
    const QString title = page.title().isEmpty()
                              ? tr("Save As")
                              : tr("Save “%1” As").arg(ui::shortTitle(page.title()));
    QString path = suggestionFor(page);
    for (;;) {
        path = chooseInDialog(title, path);
        if (!alive || path.isEmpty() || !QFileInfo::exists(path)) {
            return path;
        }
        const ui::Overwriting answer = ui::askToOverwrite(
            tr("Overwrite “%1”?").arg(QFileInfo(path).fileName()),
            tr("There is such a file already. What it holds would be lost."),
            window());
        if (!alive || answer == ui::Overwriting::Cancel) {
            return {};
        }
        if (answer == ui::Overwriting::Overwrite) {
            return path;
        }
    }
}

bool FileSaver::writeTo(FilePage& page, const QString& path)
{
    std::optional<QByteArray> contents;
    QString error;
    {
        const ui::OverrideCursor busy(Qt::WaitCursor); // not over what failed() may ask
        contents = page.contents();
        const bool isReadable = contents && page.canBeRead(*contents);
        error = isReadable // better no file than one that nobody can open
                    ? ui::replaceFile(path, *contents)
                    : tr("“%1” was not saved: the document could not be read again.")
                          .arg(QDir::toNativeSeparators(path));
    }
    if (!error.isEmpty()) {
        Q_EMIT failed(error);
        return false;
    }
    page.setSaved(path, ui::fingerprintOf(*contents));
    return true;
}
