// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/documents/FileTabs.h>

#include <memory>

enum class CanvasBackdrop;

namespace studio {

class DocumentPage;
struct Document;

/// The open documents. Before the first one an empty page shows how to open one.
class DocumentTabs : public FileTabs
{
    Q_OBJECT

public:
    explicit DocumentTabs(QWidget* parent = nullptr);

    /// The page in front.
    DocumentPage& current();

    /// Brings a new page to the front.
    /// @param path where the document was read from; empty for a document of no file
    void open(std::shared_ptr<Document> document, const QString& title, const QString& path);

    /// Of all pages.
    void setBackdrop(CanvasBackdrop backdrop);

Q_SIGNALS:
    /// Undo or redo has changed something in a layer of the page in front.
    void restored(int layer);
    void notDrawnChanged(); ///< of the page in front
    void scaleChanged(double scale);
    void layerClicked(int layer); ///< in the picture of the page in front; -1 for none

private:
    DocumentPage* makePage();

    CanvasBackdrop m_backdrop{};
};

} // namespace studio
