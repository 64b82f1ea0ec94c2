// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

#include <functional>

namespace studio {

class DocumentPage;
class DocumentTabs;

/// Saves documents into their files, and asks where to and over what. What cannot be saved stays
/// modified, and failed() says why.
class DocumentSaver : public QObject
{
    Q_OBJECT

public:
    /// @param documents owns it
    explicit DocumentSaver(DocumentTabs& documents);

    /// How the user is asked for a path, by default in a file dialog. An empty one is none.
    using ChoosePath = std::function<QString(const QString& suggested)>;
    void setChoosePath(ChoosePath choose) { m_choosePath = std::move(choose); }

    /// Saves a document where it comes from; one that comes from no file as saveAs() does. When the
    /// file is not what was read from it or written to it last, asks first.
    /// @return whether it was saved
    bool save(DocumentPage& page);
    /// Asks for a file, which from then on is the document's.
    bool saveAs(DocumentPage& page);

Q_SIGNALS:
    /// One sentence for the user.
    void failed(const QString& sentence);

private:
    QString askForPath(const QString& suggested);
    bool writeTo(DocumentPage& page, const QString& path);

    DocumentTabs& m_documents;
    ChoosePath m_choosePath;
};

} // namespace studio
