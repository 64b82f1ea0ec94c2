#pragma once

#include "Panel.h"

#include <QStringList>

#include <vector>

class QTreeWidget;

namespace studio {

struct MissingFeature;

struct MissingOfLayer
{
    QString layer;
    QStringList features;

    bool operator==(const MissingOfLayer&) const = default;
};

/// Gathers features by layer, twins of one name apart, both in order of first appearance.
std::vector<MissingOfLayer> byLayer(const std::vector<MissingFeature>& missing);

/// What the document asks for and the viewport does not draw.
class MissingPanel : public Panel
{
    Q_OBJECT

public:
    explicit MissingPanel(QWidget* parent = nullptr);

    void setMissing(const std::vector<MissingFeature>& missing);

private:
    QTreeWidget* m_tree;
};

} // namespace studio
