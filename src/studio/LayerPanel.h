#pragma once

#include "Panel.h"

class QListWidget;

namespace studio {

struct Document;

/// The layers of the main composition, first on top, each with the icon of its kind. One of them
/// can be selected.
class LayerPanel : public Panel
{
    Q_OBJECT

public:
    explicit LayerPanel(QWidget* parent = nullptr);

    /// Reads the layers once; the document may go afterwards.
    void setDocument(const Document& document);
    /// Selects a layer by its place; -1 selects none. layerSelected() follows if that is a change.
    void selectLayer(int layer);

Q_SIGNALS:
    /// -1: none. Comes with every document, since its layers are others.
    void layerSelected(int layer);

private:
    QListWidget* m_list;
};

} // namespace studio
