// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"
#include "timeline/DopeSheetState.h"
#include <MorrantUI/documents/FilePage.h>

#include <memory>
#include <vector>

namespace studio {

class DocumentEditor;
class Viewport;

/// An open document: its history, its picture, and where its user is in it.
class DocumentPage : public FilePage
{
    Q_OBJECT

public:
    explicit DocumentPage(QWidget* parent = nullptr);
    ~DocumentPage() override;

    /// @param path where it was read from; empty for a document of no file
    void setDocument(std::shared_ptr<Document> document, const QString& title, const QString& path);

    /// Null until there is one.
    const Document* document() const;
    DocumentEditor& editor() { return *m_editor; }
    /// Its frame is the document's.
    Viewport& viewport() { return *m_viewport; }

    /// The layer to be selected while the page is in front; -1 for none.
    int layer = -1;
    /// How it is seen over time while the page is in front.
    DopeSheetState dopeSheet;
    /// What is not drawn: as read, and found while drawing.
    const std::vector<MissingFeature>& notDrawn() const { return m_notDrawn; }

    bool isModified() const override;
    std::optional<QByteArray> contents() override;
    bool canBeRead(const QByteArray& contents) const override;
    void finishEditing() override;

Q_SIGNALS:
    void notDrawnChanged();

protected:
    void setModified(bool modified) override;

private:
    void followLayers();
    void listUnfinished(const MissingFeature& found);

    DocumentEditor* m_editor;
    Viewport* m_viewport;
    std::vector<MissingFeature> m_notDrawn;
};

} // namespace studio
