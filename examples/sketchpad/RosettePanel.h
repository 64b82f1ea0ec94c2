// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Rosette.h"

#include <QWidget>

#include <vector>

class AttributeRow;
class Document;

/// The rosette's attributes, a row each.
class RosettePanel : public QWidget
{
    Q_OBJECT

public:
    /// @param document outlives the panel
    explicit RosettePanel(Document& document, QWidget* parent = nullptr);

    AttributeRow* petals() const { return m_petals; }
    AttributeRow* size() const { return m_size; }
    AttributeRow* turn() const { return m_turn; }
    AttributeRow* color() const { return m_color; }

private:
    /// Numbers of the rosette, a field each.
    using Numbers = std::vector<double Rosette::*>;

    AttributeRow* addNumbers(const QString& name, const Numbers& numbers);
    AttributeRow* addColor(const QString& name);

    Document& m_document;
    AttributeRow* m_petals;
    AttributeRow* m_size;
    AttributeRow* m_turn;
    AttributeRow* m_color;
};
