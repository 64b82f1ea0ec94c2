// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/ModalDialog.h>

#include <QStringList>

class QListWidget;

namespace ui {

class CheckedField;

/// Asks for the name of a preset, beside those that there are.
class PresetDialog : public ModalDialog
{
    Q_OBJECT

public:
    PresetDialog(
        const QString& title, const QStringList& existing, const QString& initial, QWidget* parent);

    /// As it is spelled in the list, if it is there.
    QString name() const;

protected:
    bool mayAccept() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeContent(const QString& initial);
    void fillList();
    void followList();
    void markInList();

    QStringList m_existing;
    CheckedField* m_field = nullptr;
    QListWidget* m_list = nullptr;
};

} // namespace ui
