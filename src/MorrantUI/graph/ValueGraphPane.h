// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QList>
#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

class EasingEditor;
class KeyFields;
class PlaybackClock;
class QAction;
class QListWidget;
class ValueGraphView;

/// A graph of values with what is usually around it: a list of properties to choose from, frame and
/// value of the selected key, buttons, a menu, and an easing editor. It is to a ValueGraphView what
/// a DopeSheetPane is to a DopeSheetView.
///
/// The pane ties list, fields, commands and view to each other. The host makes the view's curves of
/// what is chosen, and listens to the view, where edits in the fields are gestures, too. Which
/// segment the easing editor shows is the host's to decide; until it does the editor is disabled.
class MORRANT_UI_EXPORT ValueGraphPane : public Widget
{
    Q_OBJECT

public:
    /// A row of the list.
    struct Property
    {
        QString text;
        QString toolTip = {};
        bool isUsable = true; ///< else it is only named, and cannot be chosen
    };

    enum class Command
    {
        Delete, ///< asks for it, see deleteWanted()
        FitSelection,
        FitAll,
        TransformTool, ///< shows it or not
    };
    Q_ENUM(Command)

    explicit ValueGraphPane(QWidget* parent = nullptr);
    ~ValueGraphPane() override;

    // What it is made of: the pane's, and not to be deleted.
    ValueGraphView& view() const { return *m_view; }
    EasingEditor& easingEditor() const { return *m_easing; }
    KeyFields& fields() const { return *m_fields; }
    QListWidget& list() const { return *m_list; }

    /// The view's, which see.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// Fills the list, and tells nobody.
    /// @param chosen places, of which those that cannot be chosen do not count; where none is left,
    ///     the first one that can is chosen
    void setProperties(
        const std::vector<Property>& properties, const std::vector<std::size_t>& chosen = {});
    /// By their places, upward.
    std::vector<std::size_t> chosenProperties() const;
    /// Chooses these and no others, and tells nobody. Places that cannot be chosen do not count.
    void chooseProperties(const std::vector<std::size_t>& places);

    /// What the view says where there is nothing to choose from, such as why.
    void setEmptyHint(const QString& hint);

    /// For menus and shortcuts; the pane's. The Delete key and T act while the view has the focus:
    /// a list takes letters to find its rows by. Null for what is no command.
    QAction* command(Command command) const;
    QList<QAction*> commands() const; ///< all of them, as in the pane's own context menu

    /// Takes over what is being typed and ends a drag, so that the document is complete.
    void finishEditing();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has chosen other properties.
    void propertiesChosen();
    /// The user wants the selected keys deleted, of which there are some; nothing is being edited
    /// any more.
    void deleteWanted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QAction* addCommand(Command command, const QString& text, const QString& icon);
    void buildCommands();
    void buildLayout();
    QWidget* buildSide();
    void connectParts();
    void showHint();
    void showKey();
    void showSelection();
    void beginFieldGesture();
    void place(std::optional<double> frame, std::optional<double> value);

    ValueGraphView* m_view;
    EasingEditor* m_easing;
    KeyFields* m_fields;
    QListWidget* m_list;
    std::array<QAction*, 4> m_commands{}; ///< as Command has them
    QString m_emptyHint;
    bool m_hasFieldGesture = false; ///< the view's gesture is that of the fields
};
