// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ModalDialog.h"

#include "MorrantUI/menus/heldcontent.h"
#include <MorrantUI/menus/keyboardnavigation.h>

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <bitset>
#include <utility>

namespace {

constexpr int kMargin = 16;     ///< logical pixels, around everything
constexpr int kSpacing = 8;     ///< between heading, text and content
constexpr int kLeastChars = 46; ///< that fit beside each other, about
constexpr int kMostChars = 72;  ///< before the text is wrapped, about

QFont headingFont(const QWidget& widget)
{
    QFont font = widget.font();
    font.setWeight(QFont::DemiBold);
    if (font.pixelSize() > 0) {
        font.setPixelSize(font.pixelSize() * 7 / 6);
    } else {
        font.setPointSizeF(font.pointSizeF() * 7 / 6);
    }
    return font;
}

QLabel* makeLabel(QWidget* parent)
{
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText); // names that the user gave may look like mark-up
    label->setWordWrap(true);
    return label;
}

} // namespace

ModalDialog::ModalDialog(const QString& title, QWidget* parent)
    : QDialog(parent)
    , m_heading(makeLabel(this))
    , m_text(makeLabel(this))
    , m_column(new QVBoxLayout(this))
    , m_buttonBox(new QDialogButtonBox(this))
{
    setModal(true);
    setWindowTitle(title);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_heading->setFont(headingFont(*this));
    m_heading->setText(title);
    m_text->hide();
    setMinimumWidth(kLeastChars * fontMetrics().averageCharWidth());
    setMaximumWidth(kMostChars * fontMetrics().averageCharWidth());
    m_column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    m_column->setSpacing(kSpacing);
    m_column->addWidget(m_heading);
    m_column->addWidget(m_text);
    m_column->addSpacing(kSpacing);
    m_column->addWidget(m_buttonBox);
    connect(m_buttonBox, &QDialogButtonBox::clicked, this, [this](QAbstractButton* clicked) {
        const auto role = m_buttonBox->buttonRole(clicked);
        if (role == QDialogButtonBox::HelpRole || role == QDialogButtonBox::ResetRole
            || role == QDialogButtonBox::ApplyRole)
        {
            return; // the dialog goes on
        }
        const bool declines =
            role == QDialogButtonBox::RejectRole || role == QDialogButtonBox::NoRole;
        end(m_buttonBox->standardButton(clicked), declines);
    });
}

ModalDialog::~ModalDialog() = default;

void ModalDialog::end(Button button, bool declines)
{
    const QPointer<ModalDialog> self(this);
    if (!declines && (!mayAccept() || !self)) {
        return;
    }
    m_chosen = button;
    done(declines ? Rejected : Accepted);
}

void ModalDialog::setText(const QString& text)
{
    m_text->setText(text);
    m_text->setVisible(!text.isEmpty());
}

void ModalDialog::setContent(QWidget* content)
{
    const bool isShown = content && content == m_content;
    if (isShown || (content && ui::encloses(*content, *this))) {
        return;
    }
    const QPointer<ModalDialog> self(this);
    const QPointer<QWidget> wanted(content);
    const QPointer<QWidget> before = std::exchange(m_content, wanted);
    const bool hadFocus = ui::discardContent(before, *this);
    if (!self || !wanted || m_content != wanted) {
        return; // a slot may have thought of another one
    }
    m_column->insertWidget(2, wanted); // between the text and the space above the buttons
    wanted->show();
    if (hadFocus) {
        const bool isStop = wanted->focusPolicy() & Qt::TabFocus;
        QWidget* const stop = isStop ? wanted.data() : ui::tabStops(wanted).value(0);
        if (stop) {
            stop->setFocus(Qt::OtherFocusReason);
        }
    }
}

void ModalDialog::setButtons(Buttons buttons, Button defaultButton)
{
    m_buttonBox->setStandardButtons(buttons);
    if (QPushButton* const chosen = button(defaultButton)) {
        chosen->setDefault(true);
        chosen->setFocus();
    }
}

QPushButton* ModalDialog::button(Button button) const
{
    return m_buttonBox->button(button);
}

ModalDialog::Button ModalDialog::declining(Buttons buttons)
{
    constexpr std::array kDeclining{
        QDialogButtonBox::Cancel,
        QDialogButtonBox::Close,
        QDialogButtonBox::Abort,
        QDialogButtonBox::No,
        QDialogButtonBox::NoToAll,
        QDialogButtonBox::Ignore,
        QDialogButtonBox::Discard,
    };
    const auto* const first = std::find_if(
        kDeclining.begin(), kDeclining.end(), [buttons](Button b) { return buttons.testFlag(b); });
    if (first != kDeclining.end()) {
        return *first;
    }
    const std::bitset<32> present(static_cast<unsigned int>(buttons));
    return present.count() == 1 ? static_cast<Button>(int(buttons)) : QDialogButtonBox::NoButton;
}

/// The default button, if it accepts, else the first that does.
ModalDialog::Button ModalDialog::accepting() const
{
    Button first = QDialogButtonBox::NoButton;
    for (QAbstractButton* const button : m_buttonBox->buttons()) {
        const auto role = m_buttonBox->buttonRole(button);
        if (role != QDialogButtonBox::AcceptRole && role != QDialogButtonBox::YesRole) {
            continue;
        }
        const auto* const push = qobject_cast<QPushButton*>(button);
        if (push && push->isDefault()) {
            return m_buttonBox->standardButton(button);
        }
        if (first == QDialogButtonBox::NoButton) {
            first = m_buttonBox->standardButton(button);
        }
    }
    return first;
}

ModalDialog::Button ModalDialog::getChoice(
    const QString& title,
    const QString& text,
    Buttons buttons,
    Button defaultButton,
    QWidget* parent)
{
    QWidget* const over = parent ? parent : QApplication::activeWindow();
    const QPointer<ModalDialog> dialog = new ModalDialog(title, over);
    dialog->setText(text);
    dialog->setButtons(buttons, defaultButton);
    dialog->exec();
    const Button chosen = dialog ? dialog->chosen() : declining(buttons);
    delete dialog.data(); // here, since the parent may go before the loop comes round
    return chosen;
}

/// As wide as it will be: a narrower one would be given the height of texts that wrap more often.
QSize ModalDialog::sizeHint() const
{
    return QDialog::sizeHint().expandedTo({minimumWidth(), 0});
}

void ModalDialog::setVisible(bool visible)
{
    if (visible && !isVisible()) {
        m_chosen = QDialogButtonBox::NoButton; // of an earlier run
    }
    QDialog::setVisible(visible);
}

void ModalDialog::done(int result)
{
    if (m_chosen == QDialogButtonBox::NoButton) {
        m_chosen = result == Rejected ? declining(m_buttonBox->standardButtons()) : accepting();
    }
    QDialog::done(result);
}
