// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QString>

/// The title row of a dockable window, and what the user grabs to move it.
///
/// It gets the keyboard focus by the Tab key, never by a click: that gives it to the content.
class MORRANT_UI_EXPORT DockableHeader : public Widget
{
    Q_OBJECT

public:
    explicit DockableHeader(QWidget* parent = nullptr);
    ~DockableHeader() override;

    /// Installs an event filter on the widget that the user grabs, and returns that widget. By
    /// default it is the header itself. A null handler installs nothing.
    virtual QWidget* setHandler(QObject* handler);

    /// What the header shows; also its accessible name.
    virtual void setText(const QString& text);
    QString text() const { return m_text; }

protected:
    /// The background, and a ring around it while it has the focus by a key.
    void paintEvent(QPaintEvent* event) override;

    /// The last thing to paint.
    void paintFocus(QPainter& painter);

private:
    QString m_text;
};
