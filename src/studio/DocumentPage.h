// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include "timeline/DopeSheetState.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace studio {

class DocumentEditor;
class Viewport;

/// An open document: its history, its picture, and where its user is in it.
class DocumentPage : public QWidget
{
    Q_OBJECT

public:
    explicit DocumentPage(QWidget* parent = nullptr);
    ~DocumentPage() override;

    /// @param path where it was read from; empty for a document of no file
    void setDocument(std::shared_ptr<Document> document, const QString& title, const QString& path);

    /// Null until there is one.
    const Document* document() const;
    const QString& title() const { return m_title; }
    const QString& path() const { return m_path; }
    /// Of what its file held when it was read or written last.
    const QByteArray& fingerprint() const { return m_fingerprint; }
    /// The document is now what a file holds, and no longer modified. Another file than before
    /// gives it its name.
    void setSaved(const QString& path, const QByteArray& fingerprint);
    /// The document has changes that are not in its file, whose contents were others than it is.
    void setUnsaved(const QByteArray& fingerprint);
    DocumentEditor& editor() { return *m_editor; }
    /// Its frame is the document's.
    Viewport& viewport() { return *m_viewport; }

    /// The layer to be selected while the page is in front; -1 for none.
    int layer = -1;
    /// How it is seen over time while the page is in front.
    DopeSheetState dopeSheet;
    /// What is not drawn: as read, and found while drawing.
    const std::vector<MissingFeature>& notDrawn() const { return m_notDrawn; }

Q_SIGNALS:
    void notDrawnChanged();
    void saved(); ///< title and path may be others

private:
    void followLayers();
    void listUnfinished(const MissingFeature& found);

    DocumentEditor* m_editor;
    Viewport* m_viewport;
    QString m_title;
    QString m_path;
    QByteArray m_fingerprint;
    std::vector<MissingFeature> m_notDrawn;
};

} // namespace studio
