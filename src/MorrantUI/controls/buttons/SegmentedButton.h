// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QWidget>

#include <vector>

class ButtonSegment;
enum class SegmentStep;
class QAbstractButton;
class QButtonGroup;

/// A row of segments drawn as one button: of exclusive ones the user chooses exactly one, each
/// independent one is switched on and off by itself.
///
/// Tab reaches one segment, the arrow keys move from there in a circle, over disabled ones, and
/// Home and End to the ends. In an exclusive group the choice follows the arrows. Space and Return
/// choose or switch. setFocus() goes to the segment that Tab would reach. Setting from the program
/// emits changed() alone. Indexes count from 0 in reading order; one that is out of range is
/// ignored.
class MORRANT_UI_EXPORT SegmentedButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY changed USER true)
    Q_PROPERTY(bool exclusive READ isExclusive WRITE setExclusive)

public:
    explicit SegmentedButton(QWidget* parent = nullptr);
    ~SegmentedButton() override;

    /// Appends a segment that is not chosen.
    /// @param iconName a file such as "icons:easeIn.png"; empty for none
    /// @param toolTip names a segment without text to assistive tools
    /// @return its index
    int addSegment(
        const QString& text,
        const QString& iconName = QString(),
        const QString& toolTip = QString());
    int count() const;
    /// Removes all segments, also from within a slot of this group.
    void clear();

    /// Exclusive by default. Turned on while several segments are, it leaves the first of them.
    void setExclusive(bool exclusive);
    bool isExclusive() const;

    /// The chosen segment of an exclusive group, the first that is on of an independent one; -1
    /// when there is none.
    int currentIndex() const;
    /// Switches this segment on and all others off; -1 switches all off.
    void setCurrentIndex(int index);

    bool isChecked(int index) const; ///< false out of range
    /// Switches one segment; in an exclusive group the others follow.
    void setChecked(int index, bool checked);

    /// The button behind a segment: to disable it, or for its texts, tool tip and shortcut; null
    /// for an index out of range. Owned by the group; what is on is read, set and reported there.
    QAbstractButton* segment(int index) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has chosen another segment of an exclusive group.
    void currentIndexChanged(int index);
    /// The user has switched a segment of an independent group.
    void segmentToggled(int index, bool checked);
    /// Another segment is current, by the user or by being set here.
    void changed();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void step(const ButtonSegment* from, SegmentStep step);
    void takeClick(const ButtonSegment* clicked);
    void updateTabStop();
    void tellChange();
    void appendToTabOrder(QWidget* segment);
    void placeSegments();
    bool isValid(int index) const;
    int indexOf(const ButtonSegment* segment) const;

    std::vector<ButtonSegment*> m_segments; ///< children, in reading order
    QButtonGroup* m_buttons;
    int m_tabStop = 0; ///< where Tab arrives, as far as that segment is enabled
    int m_chosen = -1; ///< the current index that the host knows of
    int m_told = -1;   ///< the one that changed() told of last
};
