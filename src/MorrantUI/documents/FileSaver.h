// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QString>

#include <functional>
#include <utility>

class FilePage;
class QWidget;

/// Saves documents into their files, and asks where to and over what. What cannot be saved stays
/// modified, and failed() says why. A file is replaced as a whole, or left as it was.
class MORRANT_UI_EXPORT FileSaver : public QObject
{
    Q_OBJECT

public:
    /// Whether a file belongs to another document, which refuses saveAs(); none by default.
    using IsTaken = std::function<bool(const FilePage& page, const QString& path)>;

    /// @param parent over whose window it asks; owns it
    /// @param isTaken holds beside that of setIsTaken()
    explicit FileSaver(QWidget* parent, IsTaken isTaken = {});
    ~FileSaver() override;

    /// What kind of file the user is offered.
    /// @param filter as QFileDialog has them; empty for all files
    /// @param suffix that a name without one gets, such as "json"; empty for none
    void setFileType(const QString& filter, const QString& suffix);

    /// Asks the user for a path; an empty one is none. May delete the page and the saver.
    using ChoosePath = std::function<QString(const QString& suggested)>;
    /// How the user is asked for a path: by default, and by an empty function, in a file dialog,
    /// which is followed by a question where there is such a file. A host's function asks that
    /// itself.
    void setChoosePath(ChoosePath choose) { m_choosePath = std::move(choose); }

    /// For documents that lie elsewhere, as in other windows.
    void setIsTaken(IsTaken isTaken) { m_isTaken = std::move(isTaken); }

    /// Saves a document where it comes from; one that comes from no file as saveAs() does. When the
    /// file is not what was read from it or written to it last, asks first.
    /// @return whether it was saved; the page may have been deleted meanwhile, which saves nothing
    bool save(FilePage& page);
    /// Asks for a file, which from then on is the document's. @return as save()
    bool saveAs(FilePage& page);

Q_SIGNALS:
    /// The user is about to be asked about a document, which had better be seen.
    void asking(FilePage* page);
    /// One sentence for the user.
    void failed(const QString& sentence);

private:
    QWidget* window() const;
    QString suggestionFor(const FilePage& page) const;
    QString chooseInDialog(const QString& title, const QString& suggested);
    QString askForPath(const FilePage& page);
    bool isTaken(const FilePage& page, const QString& path) const;
    bool writeTo(FilePage& page, const QString& path);

    QString m_filter;
    QString m_suffix;
    ChoosePath m_choosePath;
    const IsTaken m_isOpen;
    IsTaken m_isTaken;
};
