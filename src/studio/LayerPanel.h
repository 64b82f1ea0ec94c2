#pragma once

#include "Panel.h"

class QListWidget;

namespace studio {

struct Document;

/// The layers of the main composition, first on top, each with the icon of its kind.
class LayerPanel : public Panel
{
    Q_OBJECT

public:
    explicit LayerPanel(QWidget* parent = nullptr);

    /// Reads the layers once; the document may go afterwards.
    void setDocument(const Document& document);

private:
    QListWidget* m_list;
};

} // namespace studio
