// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Panel.h"
#include "editing/DocumentEditor.h"

#include <vector>

class AttributeRow;
class CollapsibleSection;
class ContextMenu;
class QStackedWidget;

namespace studio {

/// The transform and the colours of one layer at the current frame. What the user enters goes to
/// the document at once; a drag, or what is typed or chosen, is one undo step. Whatever takes the
/// row from under a gesture ends it: another layer, another frame, another document.
class AttributePanel : public Panel
{
    Q_OBJECT

public:
    explicit AttributePanel(DocumentEditor& editor, QWidget* parent = nullptr);

    /// Edits another document from now on, which must live as long as it does; shows no layer.
    void setEditor(DocumentEditor& editor);
    /// Shows a layer of the main composition; with a place that has none, what to do about it.
    void setLayer(int layer);
    /// Shows the values at a frame.
    void setFrame(int frame);
    /// Takes over what is being typed and ends the gesture, so that the document is complete.
    void finishEditing();

    /// Adds the rows of the menu at a point: what the attribute there can do.
    void fillMenu(ContextMenu& menu, QPoint point);

Q_SIGNALS:
    /// The user has begun to drag or to type.
    void editingStarted();

private:
    /// Values as entries of the property: numbers, or red, green and blue.
    using Entries = std::vector<double>;

    struct Row
    {
        PropertyAddress address;
        AttributeRow* widget;
        Entries pushed; ///< the property's, as the widget was last told
        Entries rest;   ///< what the widget made of them; a difference was entered by the user
    };

    void follow(DocumentEditor& editor);
    void rebuild();
    void showLayer();
    QWidget* buildRows(const std::vector<PropertyAddress>& addresses);
    AttributeRow* buildRow(const PropertyAddress& address);
    void connectRow(AttributeRow* widget);
    Row* rowOf(const QWidget* widget);
    void take(const AttributeRow* widget, bool committed);
    void refresh();
    void refresh(Row& row);

    DocumentEditor* m_editor;
    QStackedWidget* m_pages; ///< what to do, and the sections
    CollapsibleSection* m_transform;
    CollapsibleSection* m_colors;
    std::vector<Row> m_rows;
    int m_layer = -1;
    int m_frame = 0;
};

} // namespace studio
