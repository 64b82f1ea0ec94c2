// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>
#include <MorrantUI/timeeditor/dopesheetlines.h>

#include <QHash>
#include <QPointer>

#include <cstddef>
#include <vector>

class QPainter;
class TimeEditorView;

/// The labels of a TimeEditorView's rows. Each stands exactly where its row is and scrolls with it,
/// wherever the header itself lies: beside the view is the host's to place it.
///
/// One row can be the current one: by a press, or with Up, Down, Home and End. An arrow, Left and
/// Right ask to fold: a DopeSheetOutline does so; a host with rows of its own adds and removes some
/// as it likes, and tells the header with setLabel().
class MORRANT_UI_EXPORT TimeEditorRowHeader : public Widget
{
    Q_OBJECT

public:
    /// @param view not owned; without it, or after its death, the header is empty
    explicit TimeEditorRowHeader(TimeEditorView* view, QWidget* parent = nullptr);
    ~TimeEditorRowHeader() override;

    /// Gives a row its label, or another one. Labels of rows that die go with them. Null is
    /// ignored.
    void setLabel(TimeEditorBaseItem* row, const TimeRowLabel& label);
    /// Null for a row without one.
    const TimeRowLabel* label(const TimeEditorBaseItem* row) const;
    void clear(); ///< takes all labels away

    /// The row that is marked, null for none. A row without a label is none. Nothing is reported.
    void setCurrentRow(TimeEditorBaseItem* row);
    TimeEditorBaseItem* currentRow() const { return m_current; }
    /// Scrolls the view as little as need be.
    void showRow(TimeEditorBaseItem* row);

    /// The row at a place of the header, or null.
    TimeEditorBaseItem* rowAt(QPoint position) const;
    /// The whole width at a row's place; empty for one that has no label.
    QRect labelRect(const TimeEditorBaseItem* row) const;
    /// Where its arrow is pressed; empty without one.
    QRect foldRect(const TimeEditorBaseItem* row) const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has chosen a row. It is the current one already.
    void currentRowChosen(TimeEditorBaseItem* row);
    /// The user wants to fold or unfold what belongs to a row, with Control all of its kind. A
    /// DopeSheetOutline does so in its slot, which may delete the row before later slots: those
    /// hear of it better by DopeSheetOutline::foldedChanged().
    void foldRequested(TimeEditorBaseItem* row, bool folded, bool all);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Entry
    {
        QPointer<TimeEditorBaseItem> row;
        TimeRowLabel label;
    };

    void tidy();
    const Entry* find(const TimeEditorBaseItem* row) const;
    std::vector<const Entry*> living() const;
    QRect viewportRect() const;
    QRect labelRect(const Entry& entry) const;
    QRect foldRect(const Entry& entry) const;
    QRect mirrored(const QRect& place) const;
    void paintLabel(QPainter& painter, const Entry& entry) const;
    void choose(TimeEditorBaseItem* row);
    void chooseBy(int steps);
    void fold(bool folded, Qt::KeyboardModifiers modifiers);

    QPointer<TimeEditorView> m_view;
    std::vector<Entry> m_entries; ///< in the order in which they came; rows may have died
    QHash<const TimeEditorBaseItem*, std::size_t> m_places; ///< of the entries
    std::size_t m_tidyAt = 0; ///< entries, from which on those of dead rows go
    QPointer<TimeEditorBaseItem> m_current;
    bool m_showsFocus = false; ///< it came by the keyboard
};
