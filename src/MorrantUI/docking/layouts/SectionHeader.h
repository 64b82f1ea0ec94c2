// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractButton>

/// The header of a CollapsibleSection: chevron and title.
class SectionHeader : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SectionHeader(QWidget* parent);

    /// Shown as it is, and so not the button's text, in which "&" makes a shortcut.
    void setTitle(const QString& title);
    QString title() const { return m_title; }

    /// How far the chevron has turned: 0 as when folded, 1 as when unfolded.
    void setOpenness(double openness);
    /// What assistive tools are told.
    void setExpanded(bool expanded);
    bool isExpanded() const { return m_expanded; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// An arrow key asks for it.
    void foldRequested();
    void unfoldRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_title;
    double m_openness = 1.0;
    bool m_expanded = true;
};
