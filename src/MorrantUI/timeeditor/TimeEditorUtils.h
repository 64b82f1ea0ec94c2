// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>

#include <QObject>
#include <QPoint>
#include <QPointer>

#include <set>
#include <utility>
#include <vector>

class QMenu;
class TimeEditorCurveItem;
class TimeEditorView;

/// The host's editing back end of a time editor: it derives from this, does the edits on its own
/// document, and hands the object to TimeEditorView::setUtils(). Every operation to override does
/// nothing here.
class MORRANT_UI_EXPORT TimeEditorUtils : public QObject
{
    Q_OBJECT

public:
    /// A frame and the key that had it when an edit began.
    using FrameKeys = std::vector<std::pair<int, TimeEditorKeyframeItem*>>;

    /// @param view that it serves, and that does not become its parent: the host owns the object
    explicit TimeEditorUtils(TimeEditorView* view);
    ~TimeEditorUtils() override;

    /// The view that this serves; null after its death.
    TimeEditorView* getTimeView() const;

    /// Fills the context menu and returns the menu to show.
    /// @param curves what the menu is about: the curve that was clicked, else the selected ones
    virtual QMenu* populateMenu(QMenu* menu, std::set<TimeEditorCurveItem*> curves);
    virtual void onCutKeyframes();   ///< those that are selected
    virtual void onCopyKeyframes();  ///< the same
    virtual void onPasteKeyframes(); ///< at the current frame
    virtual void onAddKeyframe();    ///< at the current frame
    virtual void onDeleteKeyframes(std::set<TimeEditorKeyframeItem*> keys); ///< the selected ones

    /// Builds the menu for a place in the view through populateMenu(). It belongs to the view, and
    /// whoever shows it decides where.
    QMenu* createMenu(QPoint position);

    /// One step of scaling keys in time, from their frames at its start.
    ///
    /// The frame `from` goes to `to`, and the selected key at the opposite end stays. While Alt is
    /// held the other keys of the curves beyond the dragged edge move by the same distance; without
    /// it they go back. A key whose new place is not finite stays where it is.
    /// @param right whether the right edge is dragged, about the first key
    void scaleKeys(int from, int to, FrameKeys selected, FrameKeys others, bool right);

    /// A value carried linearly from one range to another. The ranges may be reversed; with an
    /// empty one to come from the result is not finite.
    double drange(
        double value, double fromFirst, double fromLast, double toFirst, double toLast) const;

Q_SIGNALS:
    /// For the host's subclass to emit and connect to; the library emits neither.
    void modifyKeySignal(TimeEditorKeyframeItem* item, int newFrame);
    void modifyEndPoint(
        TimeEditorClipItem* item, int oldFrame, int newFrame, bool start, bool move); ///< likewise

private:
    QPointer<TimeEditorView> m_view;
};
