// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/questions.h"

#include <MorrantUI/menus/ModalDialog.h>

#include <QApplication>
#include <QPointer>
#include <QPushButton>

namespace ui {

namespace {

constexpr qsizetype kMostNamed = 8;
constexpr qsizetype kLongestTitle = 60; ///< characters

} // namespace

QString shortTitle(const QString& title)
{
    const QString line = title.simplified();
    if (line.size() <= kLongestTitle) {
        return line;
    }
    const bool isInHalf = line[kLongestTitle].isLowSurrogate();
    return line.left(isInHalf ? kLongestTitle - 1 : kLongestTitle) + u'…';
}

QString unsavedText(const QStringList& titles)
{
    if (titles.size() == 1) {
        return QCoreApplication::translate("ui::documents", "“%1” has changes that are not saved.")
            .arg(shortTitle(titles.first()));
    }
    QString text = QCoreApplication::translate(
        "ui::documents", "These documents have changes that are not saved:");
    for (const QString& title : titles.mid(0, kMostNamed)) {
        text += u'\n' + QCoreApplication::translate("ui::documents", "• %1").arg(shortTitle(title));
    }
    const auto more = static_cast<int>(titles.size() - kMostNamed);
    return more > 0
               ? text + u'\n'
                     + QCoreApplication::translate("ui::documents", "and %n more", nullptr, more)
               : text;
}

Leaving askToLeave(const QString& question, const QString& text, QWidget* parent)
{
    const auto buttons =
        QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel;
    switch (ModalDialog::getChoice(question, text, buttons, QDialogButtonBox::Save, parent)) {
    case QDialogButtonBox::Save: return Leaving::Save;
    case QDialogButtonBox::Discard: return Leaving::Discard;
    default: return Leaving::Stay;
    }
}

Overwriting askToOverwrite(const QString& question, const QString& text, QWidget* parent)
{
    // What the file holds now would be lost: that is what the button of discarding stands for.
    const QPointer<ModalDialog> dialog =
        new ModalDialog(question, parent ? parent : QApplication::activeWindow());
    dialog->setText(text);
    dialog->setButtons(
        QDialogButtonBox::Save | QDialogButtonBox::Discard | QDialogButtonBox::Cancel,
        QDialogButtonBox::Cancel);
    dialog->button(QDialogButtonBox::Save)
        ->setText(QCoreApplication::translate("ui::documents", "Save &As…"));
    dialog->button(QDialogButtonBox::Discard)
        ->setText(QCoreApplication::translate("ui::documents", "&Overwrite"));
    dialog->exec();
    const auto chosen = dialog ? dialog->chosen() : QDialogButtonBox::Cancel;
    delete dialog.data(); // here, since the parent may go before the loop comes round
    switch (chosen) {
    case QDialogButtonBox::Save: return Overwriting::SaveAs;
    case QDialogButtonBox::Discard: return Overwriting::Overwrite;
    default: return Overwriting::Cancel;
    }
}

} // namespace ui
