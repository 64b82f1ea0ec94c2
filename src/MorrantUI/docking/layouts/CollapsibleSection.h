// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QSizePolicy>
#include <QWidget>

class FoldLayout;
class QPropertyAnimation;
class SectionHeader;

/// A header with a chevron and a title, and a content below it that the header folds away.
///
/// A click on the header, Space and Return fold and unfold; Left folds and Right unfolds (mirrored
/// from right to left). While it is folded the content is hidden, so that Tab passes it over; focus
/// inside it moves to the header. Sections may be nested.
class MORRANT_UI_EXPORT CollapsibleSection : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool expanded READ isExpanded WRITE setExpanded NOTIFY expandedChanged USER true)
    Q_PROPERTY(int animationDuration READ animationDuration WRITE setAnimationDuration)
    /// How much of the content shows: 0 folded, 1 unfolded, between while it moves.
    Q_PROPERTY(double openness READ openness WRITE setOpenness DESIGNABLE false)

public:
    /// Unfolded, without a content.
    explicit CollapsibleSection(const QString& title = QString(), QWidget* parent = nullptr);
    explicit CollapsibleSection(QWidget* parent); ///< without a title
    ~CollapsibleSection() override;

    void setTitle(const QString& title); ///< in the header
    QString title() const;

    /// Takes the content and owns it. The one before is hidden and deleted as soon as its own code
    /// has returned, so that one of its slots may ask for another. Null leaves the section empty.
    /// The section itself and its ancestors are ignored.
    void setContent(QWidget* content);
    /// Null when there is none, and when it was given another parent meanwhile.
    QWidget* content() const;
    /// Gives the content back without deleting it: hidden, without a parent, the caller's.
    QWidget* takeContent();

    bool isExpanded() const { return m_expanded; }
    /// Folds or unfolds, moving while the section is visible. The content unfolds to the height it
    /// had, unless it wants another one by now.
    void setExpanded(bool expanded);
    void toggle(); ///< folds what is unfolded, and back

    /// Milliseconds that folding takes; negative, the default, as the style says in
    /// SH_Widget_Animation_Duration. 0 folds at once.
    void setAnimationDuration(int milliseconds);
    int animationDuration() const;

    double openness() const { return m_openness; }
    /// Ends a running animation at its end.
    void finishAnimation();

Q_SIGNALS:
    /// At the beginning of the movement, whoever caused it.
    void expandedChanged(bool expanded);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void measure(bool expanding);
    void setOpenness(double openness);
    void settle();
    void fixHeight(bool fixed);
    void moveFocusOut();

    SectionHeader* m_header;
    QWidget* m_body; ///< shows the part of the content that is unfolded
    FoldLayout* m_fold;
    QPointer<QWidget> m_content;
    QPropertyAnimation* m_animation;
    bool m_expanded = true;
    bool m_isHeightFixed = false; ///< by us, in place of the host's policy
    QSizePolicy::Policy m_hostPolicy = QSizePolicy::Preferred; ///< vertical
    double m_openness = 1.0;
    int m_duration = -1;
    int m_fullHeight = 0; ///< of the content while it moves
    int m_keptHeight = 0; ///< of the content when it was folded; 0 when not known
    int m_keptWish = 0;   ///< what the content wanted then
};
