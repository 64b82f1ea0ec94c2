// SPDX-License-Identifier: Apache-2.0
#include "DocumentSaver.h"

#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "discarding.h"
#include "editing/DocumentEditor.h"
#include "lottie/reader.h"
#include "saving/documentfile.h"
#include "saving/documentwriter.h"
#include <MorrantUI/theme/OverrideCursor.h>

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QStandardPaths>

namespace studio {

namespace {

QString suggestionFor(const DocumentPage& page)
{
    if (isOnDisk(page.path())) {
        return page.path();
    }
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QString name = page.title();
    for (const QChar sign : QStringLiteral("/\\:*?\"<>|")) {
        name.replace(sign, u'-');
    }
    return folder.filePath(name + QStringLiteral(".json"));
}

} // namespace

DocumentSaver::DocumentSaver(DocumentTabs& documents)
    : QObject(&documents)
    , m_documents(documents)
    , m_choosePath([this](const QString& suggested) { return askForPath(suggested); })
{}

bool DocumentSaver::save(DocumentPage& page)
{
    page.editor().commit();
    if (!isOnDisk(page.path())) {
        return saveAs(page);
    }
    const FileState state = stateOf(page.path(), page.fingerprint());
    if (state == FileState::Known) {
        return writeTo(page, page.path());
    }
    const QPointer<DocumentPage> asked(&page);
    const QString name = QFileInfo(page.path()).fileName();
    const Overwriting answer = askToOverwrite(
        state == FileState::Gone ? tr("Save “%1” again?").arg(name)
                                 : tr("Overwrite “%1”?").arg(name),
        state == FileState::Gone
            ? tr("The file has been moved or deleted since it was opened.")
            : tr("Another program has changed the file since it was opened. Its changes would be "
                 "lost."),
        m_documents.window());
    if (!asked || answer == Overwriting::Cancel) {
        return false;
    }
    return answer == Overwriting::SaveAs ? saveAs(page) : writeTo(page, page.path());
}

bool DocumentSaver::saveAs(DocumentPage& page)
{
    page.editor().commit();
    const QPointer<DocumentPage> asked(&page);
    const QString path = m_choosePath(suggestionFor(page));
    if (!asked || path.isEmpty()) {
        return false;
    }
    const DocumentPage* other = m_documents.pageOf(path);
    if (other && other != &page) {
        Q_EMIT failed(tr("“%1” was not saved: it is open in another tab.")
                          .arg(QDir::toNativeSeparators(path)));
        return false;
    }
    return writeTo(page, path);
}

QString DocumentSaver::askForPath(const QString& suggested)
{
    QFileDialog dialog(
        m_documents.window(), tr("Save As"), {}, tr("Lottie animations (*.json);;All files (*)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave); // which asks before an existing file is taken
    dialog.setDefaultSuffix(QStringLiteral("json"));
    dialog.selectFile(suggested);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool DocumentSaver::writeTo(DocumentPage& page, const QString& path)
{
    const ui::OverrideCursor busy(Qt::WaitCursor);
    const auto bytes = write(*page.document());
    QString error;
    if (!bytes || !read(*bytes)) { // better no file than one that nobody can open
        error = tr("“%1” was not saved: the document could not be read again.")
                    .arg(QDir::toNativeSeparators(path));
    } else {
        error = writeFile(path, *bytes);
    }
    if (!error.isEmpty()) {
        Q_EMIT failed(error);
        return false;
    }
    page.setSaved(path, fingerprint(*bytes));
    return true;
}

} // namespace studio
