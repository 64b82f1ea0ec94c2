// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/ColorSwatch.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/controls/values/padpaint.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/controls/values/colortext.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/images.h>

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <utility>

namespace {

constexpr double kEdge = 0.22;      ///< of the text colour, in the edge
constexpr double kHoverEdge = 0.55; ///< the same under the pointer
constexpr double kRingGap = 3.0;    ///< from the focus ring to the colour

/// Gives the dialog's own words our spelling, unless they are translated.
void spellAsWeDo(const QColorDialog& dialog)
{
    const std::pair<const char*, QString> words[] = {
        {"&Basic colors", ColorSwatch::tr("&Basic colours")},
        {"&Custom colors", ColorSwatch::tr("&Custom colours")},
        {"&Add to Custom Colors", ColorSwatch::tr("&Add to Custom Colours")},
        {"&Pick Screen Color", ColorSwatch::tr("&Pick Screen Colour")}};
    const auto parts = dialog.findChildren<QWidget*>();
    for (QWidget* const part : parts) { // labels and buttons
        const QString shown = part->property("text").toString();
        for (const auto& [theirs, ours] : words) {
            if (shown == QLatin1String(theirs)) {
                part->setProperty("text", ours);
            }
        }
    }
}

/// A button whose value is a colour, read and set as text.
class AccessibleSwatch : public ui::AccessibleButton, public QAccessibleValueInterface
{
public:
    explicit AccessibleSwatch(ColorSwatch* swatch)
        : AccessibleButton(swatch, QAccessible::ColorChooser)
        , m_swatch(swatch)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : AccessibleButton::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) {
            return ui::colorWords(m_swatch->value());
        }
        const QString text = AccessibleButton::text(kind);
        if (kind != QAccessible::Description) {
            return text;
        }
        // Where values are numbers alone, the colour is heard from here.
        const QString color = ui::colorWords(m_swatch->value());
        return text.isEmpty() ? color : ColorSwatch::tr("%1. %2").arg(color, text);
    }

    QVariant currentValue() const override { return ui::colorText(m_swatch->value()); }
    void setCurrentValue(const QVariant& value) override
    {
        if (m_swatch->isEnabled()) {
            m_swatch->enterText(value.toString());
        }
    }
    QVariant maximumValue() const override { return {}; }
    QVariant minimumValue() const override { return {}; }
    QVariant minimumStepSize() const override { return {}; }

private:
    ColorSwatch* m_swatch;
};

} // namespace

ColorSwatch::ColorSwatch(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<ColorSwatch, AccessibleSwatch>();
    ui::keepSpace(*this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setAcceptDrops(true);
    connect(this, &QAbstractButton::clicked, this, &ColorSwatch::openDialog);
    connect(this, &ColorSwatch::valueChanged, this, [this](bool committed) {
        Q_EMIT edited(m_color, committed);
    });
}

ColorSwatch::ColorSwatch(const QColor& color, QWidget* parent)
    : ColorSwatch(parent)
{
    setValue(color);
}

ColorSwatch::~ColorSwatch()
{
    dismissDialog();
}

/// The dialog goes later and outlives the swatch, which a slot of its signals may delete.
void ColorSwatch::dismissDialog()
{
    if (QColorDialog* const dialog = m_dialog) {
        m_dialog = nullptr;
        dialog->disconnect(this);
        dialog->hide();
        if (QWindow* const native = dialog->windowHandle()) {
            native->destroy(); // else it would go with that of the swatch, behind Qt's back
        }
        dialog->setParent(nullptr, dialog->windowFlags());
        dialog->deleteLater();
    }
}

void ColorSwatch::setValue(const QColor& color)
{
    const QColor wanted = admitted(color);
    if (!wanted.isValid() || wanted == m_color) {
        return; // a host that hands back what was chosen does not touch what Cancel restores
    }
    m_before = wanted;
    if (m_dialog) {
        const QSignalBlocker quiet(m_dialog);
        m_dialog->setCurrentColor(wanted);
    }
    showColor(wanted);
}

void ColorSwatch::setAlphaEnabled(bool enabled)
{
    m_alphaEnabled = enabled;
    m_before = admitted(m_before); // Cancel still comes back to it, opaque
    if (m_dialog) {
        const QSignalBlocker quiet(m_dialog);
        m_dialog->setOption(QColorDialog::ShowAlphaChannel, enabled);
        m_dialog->setCurrentColor(admitted(m_color));
    }
    showColor(admitted(m_color));
}

void ColorSwatch::openDialog()
{
    if (!isVisible() || !isEnabled()) {
        return;
    }
    if (m_dialog) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    m_before = m_color;
    m_dialog = new QColorDialog(m_color, this);
    // The system's dialogs neither follow the theme nor tell of a choice before it is accepted.
    m_dialog->setOption(QColorDialog::DontUseNativeDialog);
    m_dialog->setOption(QColorDialog::ShowAlphaChannel, m_alphaEnabled);
    m_dialog->setWindowTitle(accessibleName().isEmpty() ? tr("Colour") : accessibleName());
    spellAsWeDo(*m_dialog);
    connect(m_dialog, &QColorDialog::currentColorChanged, this, &ColorSwatch::preview);
    connect(m_dialog, &QDialog::finished, this, [this](int result) {
        finishChoosing(result == QDialog::Accepted);
    });
    m_dialog->show();
    m_dialog->activateWindow(); // where no window manager does
}

QColorDialog* ColorSwatch::dialog() const
{
    return m_dialog;
}

void ColorSwatch::copy() const
{
    QApplication::clipboard()->setMimeData(ui::colorMimeData(m_color).release());
}

void ColorSwatch::paste()
{
    if (const auto color = ui::colorFromMimeData(QApplication::clipboard()->mimeData())) {
        commit(*color);
    }
}

void ColorSwatch::enterText(const QString& text)
{
    if (const auto color = ui::colorFromText(text)) {
        commit(*color);
    }
}

QSize ColorSwatch::sizeHint() const
{
    const int row = ui::rowHeight(*this);
    return {2 * row, row};
}

QSize ColorSwatch::minimumSizeHint() const
{
    const int row = ui::rowHeight(*this);
    return {row, row};
}

void ColorSwatch::preview(const QColor& color)
{
    const QPointer<ColorSwatch> self(this);
    if (showColor(admitted(color)) && self) {
        Q_EMIT valueChanged(false);
    }
}

/// A colour from elsewhere than the dialog, which follows if it is open.
void ColorSwatch::commit(const QColor& color)
{
    const QColor before = m_color;
    const QPointer<ColorSwatch> self(this);
    setValue(color);
    if (self && m_color != before) {
        Q_EMIT valueChanged(true);
    }
}

void ColorSwatch::finishChoosing(bool accepted)
{
    if (!m_dialog) {
        return;
    }
    dismissDialog();
    if (m_color == m_before) {
        return;
    }
    const QPointer<ColorSwatch> self(this);
    if (!accepted) {
        showColor(m_before);
    }
    if (self) {
        Q_EMIT valueChanged(accepted);
    }
}

bool ColorSwatch::showColor(const QColor& color)
{
    if (!color.isValid() || color == m_color) {
        return false;
    }
    m_color = color;
    update();
    ui::notifyAccessibleValue(this, ui::colorText(m_color));
    Q_EMIT changed(); // last: a slot may delete this object
    return true;
}

void ColorSwatch::startDrag()
{
    const QSize size = sizeHint() * devicePixelRatioF();
    QPixmap picture = QPixmap::fromImage(
        ui::drawColorSquare(m_color, size, qRound(ui::style::kRadius * devicePixelRatioF())));
    picture.setDevicePixelRatio(devicePixelRatioF());
    auto* drag = new QDrag(qApp); // deletes itself, and must outlive a swatch that goes meanwhile
    drag->setMimeData(ui::colorMimeData(m_color).release());
    drag->setPixmap(picture);
    drag->exec(Qt::CopyAction);
}

bool ColorSwatch::event(QEvent* event)
{
    const QPointer<ColorSwatch> self(this);
    const bool isHidden = event->type() == QEvent::Hide && !event->spontaneous();
    const bool isDisabled = event->type() == QEvent::EnabledChange && !isEnabled();
    if (isHidden || isDisabled) {
        setDropTarget(false);
        finishChoosing(true);
    } else if (event->type() == QEvent::ShortcutOverride) {
        auto* const key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste)) {
            event->accept();
            return true;
        }
    }
    return self ? QAbstractButton::event(event) : true;
}

void ColorSwatch::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

void ColorSwatch::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressed = event->position().toPoint();
    }
    QAbstractButton::mousePressEvent(event);
}

void ColorSwatch::mouseMoveEvent(QMouseEvent* event)
{
    const bool holds = event->buttons().testFlag(Qt::LeftButton);
    if (holds && !m_pressed) {
        return; // the colour has been carried away already
    }
    const QPoint way = event->position().toPoint() - m_pressed.value_or(QPoint());
    if (holds && way.manhattanLength() >= QApplication::startDragDistance()) {
        m_pressed.reset();
        setDown(false); // no click comes of it
        const QPointer<ColorSwatch> self(this);
        m_carried = true;
        startDrag();
        if (self) {
            m_carried = false;
        }
        return;
    }
    QAbstractButton::mouseMoveEvent(event);
}

void ColorSwatch::dragEnterEvent(QDragEnterEvent* event)
{
    if (!m_carried && ui::colorFromMimeData(event->mimeData())) {
        event->acceptProposedAction();
        setDropTarget(true);
    }
}

void ColorSwatch::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    setDropTarget(false);
}

void ColorSwatch::dropEvent(QDropEvent* event)
{
    setDropTarget(false);
    const auto color = ui::colorFromMimeData(event->mimeData());
    if (color && !m_carried) {
        event->acceptProposedAction();
        commit(*color);
    }
}

void ColorSwatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const ui::style::WidgetState state = ui::style::stateOf(*this, isDown());
    const QRectF outer = rect();
    const QRectF swatch =
        state.keyboard ? outer.adjusted(kRingGap, kRingGap, -kRingGap, -kRingGap) : outer;
    const double radius = state.keyboard ? ui::style::kRadius - 1.0 : ui::style::kRadius;

    paintColor(painter, swatch, radius, state);
    paintEdge(painter, swatch, radius, state);
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, outer);
    }
}

void ColorSwatch::paintColor(
    QPainter& painter, const QRectF& rect, double radius, const ui::style::WidgetState& state) const
{
    const ui::style::PainterState saved(painter);
    painter.setOpacity(state.enabled ? 1.0 : ui::style::kDisabledOpacity);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (m_color.alpha() < 255) {
        ui::fillChequer(painter, rect, radius);
    }
    painter.setBrush(m_color);
    painter.drawRoundedRect(rect, radius, radius);
}

void ColorSwatch::paintEdge(
    QPainter& painter, const QRectF& rect, double radius, const ui::style::WidgetState& state) const
{
    if (m_dropTarget) {
        ui::style::strokeRounded(painter, rect, radius, ui::style::accentColor(), 2.0);
        return;
    }
    const QColor text = ui::colorQt(QStringLiteral("Text"));
    const double strength = state.pressed || state.hovered ? kHoverEdge : kEdge;
    ui::style::strokeRounded(
        painter, rect, radius, ui::style::ink(ui::style::translucent(text, strength), state));
}

void ColorSwatch::setDropTarget(bool target)
{
    if (m_dropTarget != target) {
        m_dropTarget = target;
        update();
    }
}

QColor ColorSwatch::admitted(QColor color) const
{
    if (!m_alphaEnabled && color.isValid()) {
        color.setAlpha(255);
    }
    return color.toRgb();
}
