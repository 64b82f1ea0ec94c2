// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QString>

class QTimer;
class TabLabel;

/// The tab of one window in a DockableTabGroup: what brings it to the front, and what the user
/// grabs to tear it out.
///
/// A text of more than about 24 letters ends in an ellipsis and is shown whole in a tool tip. A
/// drag that rests on an inactive tab for 400 ms brings its page forward, so that it can be dropped
/// there; only tabs on their way within a TabBar never do. The active tab is the strip's stop for
/// the Tab key.
class MORRANT_UI_EXPORT DockableTabWidget : public Widget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool active READ isActive WRITE setActive)

public:
    explicit DockableTabWidget(const QString& text, QWidget* parent = nullptr);
    ~DockableTabWidget() override;

    QString text() const;
    /// Any text, empty too; an ampersand is shown as it is. Also the accessible name.
    void setText(const QString& text);

    bool isActive() const { return m_active; }
    /// The look of the tab in front. To bring a page forward see
    /// DockableTabGroup::setActiveIndex().
    void setActive(bool active);

Q_SIGNALS:
    /// Any mouse button went down on the tab, or a drag has rested on it. A slot may delete the
    /// tab.
    void pressed();

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void startHoverTimer();
    void stopHoverTimer();
    void followTheme();

    TabLabel* m_label;
    bool m_active = false;
    QTimer* m_hoverTimer = nullptr; ///< a child, made when a drag first comes
};
