// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QCheckBox>

/// A check box that can show a mixed state, as for a selection of layers that differ.
///
/// A mixed box is shown as such, and the user's next click checks it: mixed is a finding, not a
/// choice, unless setMixedOffered() makes it one. Qt's stateChanged() reports every change; from
/// mixed to checked toggled() stays silent, since a mixed box counts as checked there. Space and
/// Return switch it; in a dialog Return is left to the default button.
class MORRANT_UI_EXPORT CheckBox : public QCheckBox
{
    Q_OBJECT
    Q_PROPERTY(Qt::CheckState checkState READ checkState WRITE setCheckState NOTIFY changed)
    Q_PROPERTY(bool mixedOffered READ isMixedOffered WRITE setMixedOffered)

public:
    explicit CheckBox(QWidget* parent = nullptr);
    explicit CheckBox(const QString& text, QWidget* parent = nullptr);
    ~CheckBox() override;

    /// Shows the mixed state, the same as setCheckState(Qt::PartiallyChecked).
    void setMixed();
    bool isMixed() const;

    /// Whether the user's clicks go through the mixed state too; off by default.
    void setMixedOffered(bool offered);
    bool isMixedOffered() const { return m_mixedOffered; }

Q_SIGNALS:
    /// The state is another, by the user or by being set.
    void changed();

protected:
    void nextCheckState() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_mixedOffered = false;
};
