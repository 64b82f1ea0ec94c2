// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/docking/DockableHeader.h>

#include <QStaticText>

/// The header that every dockable window starts with: its title on a tab as wide as the window.
/// All of it can be grabbed.
class MORRANT_UI_EXPORT DockableTabHeader : public DockableHeader
{
    Q_OBJECT

public:
    DockableTabHeader();
    ~DockableTabHeader() override;

    QWidget* setHandler(QObject* handler) override;
    void setText(const QString& text) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void measure();
    void fitTitle();

    QSize m_wanted;      ///< to show all of the text
    QStaticText m_title; ///< as much of the text as there is room for, laid out once
};
