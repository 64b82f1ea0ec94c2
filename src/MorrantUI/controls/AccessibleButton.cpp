#include <MorrantUI/controls/AccessibleButton.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QTextDocumentFragment>
#include <QToolButton>

namespace ui {

namespace {

bool hasMenu(const QAbstractButton* button)
{
    if (const auto* push = qobject_cast<const QPushButton*>(button)) {
        return push->menu() != nullptr;
    }
    const auto* tool = qobject_cast<const QToolButton*>(button);
    return tool && tool->menu();
}

bool isMixed(const QAbstractButton* button)
{
    const auto* box = qobject_cast<const QCheckBox*>(button);
    return box && box->checkState() == Qt::PartiallyChecked;
}

/// A button's text as displayed: "Save && E&xit" is "Save & Exit".
QString withoutMnemonic(const QString& text)
{
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && ++i == text.size()) {
            break;
        }
        shown += text[i];
    }
    return shown;
}

} // namespace

AccessibleButton::AccessibleButton(QAbstractButton* button, QAccessible::Role role)
    : QAccessibleWidget(button, role)
{}

QAbstractButton* AccessibleButton::button() const
{
    return static_cast<QAbstractButton*>(object());
}

QAccessible::Role AccessibleButton::role() const
{
    if (button()->group() && button()->group()->exclusive()) {
        return QAccessible::RadioButton;
    }
    return hasMenu(button()) ? QAccessible::ButtonMenu : QAccessibleWidget::role();
}

QAccessible::State AccessibleButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button()->isCheckable();
    state.checkStateMixed = isMixed(button());
    state.checked = button()->isChecked() && !state.checkStateMixed;
    state.pressed = button()->isDown();
    state.hasPopup = hasMenu(button());
    const auto* push = qobject_cast<const QPushButton*>(button());
    state.linked = role() == QAccessible::Link;
    state.defaultButton = push && push->isDefault();
    return state;
}

QString AccessibleButton::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name || !button()->accessibleName().isEmpty()) {
        return QAccessibleWidget::text(kind);
    }
    const QString shown = withoutMnemonic(button()->text());
    return shown.isEmpty() ? nameFromToolTip(*button()) : shown;
}

QStringList AccessibleButton::actionNames() const
{
    QStringList names;
    if (button()->isEnabled()) {
        names << (button()->isCheckable() ? toggleAction() : pressAction());
    }
    return names + QAccessibleWidget::actionNames();
}

void AccessibleButton::doAction(const QString& name)
{
    if (name == pressAction() || name == toggleAction()) {
        QMetaObject::invokeMethod(button(), &QAbstractButton::click, Qt::QueuedConnection);
    } else {
        QAccessibleWidget::doAction(name);
    }
}

QStringList AccessibleButton::keyBindingsForAction(const QString& name) const
{
    if ((name == pressAction() || name == toggleAction()) && !button()->shortcut().isEmpty()) {
        return {button()->shortcut().toString()};
    }
    return QAccessibleWidget::keyBindingsForAction(name);
}

QString nameFromToolTip(const QWidget& widget)
{
    const QString tip = widget.toolTip();
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}

} // namespace ui
