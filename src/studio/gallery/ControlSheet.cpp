// SPDX-License-Identifier: Apache-2.0
#include "gallery/ControlSheet.h"

#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/icons.h>

#include <QPainter>
#include <QStyleOption>

#include <array>

namespace studio {

namespace {

constexpr int kNameWidth = 110; ///< column of the controls' names, logical pixels
constexpr int kCellWidth = 136; ///< column of a state
constexpr int kRowHeight = 34;
constexpr QSize kControlSize(116, 22);
constexpr int kTallHeight = 30; ///< of what does not fit into a control's usual height

struct StateColumn
{
    const char* name;
    QStyle::State state;
};

constexpr QStyle::State kEnabled = QStyle::State_Enabled | QStyle::State_Active;
constexpr QStyle::State kFocused =
    kEnabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;

const std::array<StateColumn, 7>& columns()
{
    static const std::array<StateColumn, 7> kColumns{{
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "Normal"), kEnabled},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "Hovered"), kEnabled | QStyle::State_MouseOver},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "Pressed"), kEnabled | QStyle::State_Sunken},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "Focused"), kFocused},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "On"), kEnabled | QStyle::State_On},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "Disabled"), QStyle::State_None},
        {QT_TRANSLATE_NOOP("studio::ControlSheet", "On, disabled"), QStyle::State_On},
    }};
    return kColumns;
}

/// What a row needs to draw one control into a rectangle.
struct Canvas
{
    QPainter& painter;
    const QWidget& widget;
    QRect rect;
    QStyle::State state;
};

template <typename Option>
Option optionFor(const Canvas& canvas)
{
    Option option;
    option.initFrom(&canvas.widget);
    option.rect = canvas.rect;
    option.state = canvas.state;
    return option;
}

QRect leadingSquare(const Canvas& canvas, int side)
{
    QRect square(0, 0, side, side);
    square.moveCenter(canvas.rect.center());
    square.moveLeft(canvas.rect.left());
    return square;
}

void pushButton(const Canvas& canvas, QStyleOptionButton::ButtonFeatures features)
{
    auto option = optionFor<QStyleOptionButton>(canvas);
    option.features = features;
    option.text = ControlSheet::tr("Render");
    canvas.widget.style()->drawControl(QStyle::CE_PushButton, &option, &canvas.painter);
}

void plainButton(const Canvas& canvas)
{
    pushButton(canvas, QStyleOptionButton::None);
}

void defaultButton(const Canvas& canvas)
{
    pushButton(canvas, QStyleOptionButton::DefaultButton);
}

void toolButton(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionToolButton>(canvas);
    option.rect = leadingSquare(canvas, 24);
    option.icon = ui::getCachedIcon(QStringLiteral("icons:autoKey.png"));
    option.iconSize = QSize(16, 16);
    option.subControls = QStyle::SC_ToolButton;
    option.state |= QStyle::State_AutoRaise;
    if (option.state.testFlag(QStyle::State_MouseOver)) {
        option.state |= QStyle::State_Raised;
    }
    if (option.state.testFlag(QStyle::State_Sunken)) {
        option.activeSubControls = QStyle::SC_ToolButton;
    }
    canvas.widget.style()->drawComplexControl(QStyle::CC_ToolButton, &option, &canvas.painter);
}

void checkBox(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionButton>(canvas);
    option.text = ControlSheet::tr("Motion blur");
    canvas.widget.style()->drawControl(QStyle::CE_CheckBox, &option, &canvas.painter);
}

void radioButton(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionButton>(canvas);
    option.text = ControlSheet::tr("Bezier");
    canvas.widget.style()->drawControl(QStyle::CE_RadioButton, &option, &canvas.painter);
}

void comboBox(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionComboBox>(canvas);
    option.currentText = ControlSheet::tr("Ease both");
    option.subControls = QStyle::SC_All;
    canvas.widget.style()->drawComplexControl(QStyle::CC_ComboBox, &option, &canvas.painter);
    canvas.widget.style()->drawControl(QStyle::CE_ComboBoxLabel, &option, &canvas.painter);
}

void lineEdit(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionFrame>(canvas);
    option.lineWidth = 1;
    option.state |= QStyle::State_Sunken;
    canvas.widget.style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &canvas.painter);
    const QRect text = canvas.rect.adjusted(6, 0, -6, 0);
    canvas.widget.style()->drawItemText(
        &canvas.painter,
        text,
        Qt::AlignVCenter | Qt::AlignLeft,
        option.palette,
        option.state.testFlag(QStyle::State_Enabled),
        ControlSheet::tr("Layer 12"),
        QPalette::Text);
}

void spinBox(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionSpinBox>(canvas);
    option.frame = true;
    option.subControls = QStyle::SC_All;
    option.stepEnabled = QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
    option.activeSubControls = option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)
                                   ? QStyle::SC_SpinBoxUp
                                   : QStyle::SC_None;
    canvas.widget.style()->drawComplexControl(QStyle::CC_SpinBox, &option, &canvas.painter);
    canvas.widget.style()->drawItemText(
        &canvas.painter,
        canvas.rect.adjusted(7, 0, -20, 0),
        Qt::AlignVCenter | Qt::AlignLeft,
        option.palette,
        option.state.testFlag(QStyle::State_Enabled),
        QStringLiteral("24.0"),
        QPalette::Text);
}

void slider(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionSlider>(canvas);
    option.orientation = Qt::Horizontal;
    option.state |= QStyle::State_Horizontal;
    option.maximum = 100;
    option.sliderPosition = 60;
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    option.activeSubControls = QStyle::SC_SliderHandle;
    canvas.widget.style()->drawComplexControl(QStyle::CC_Slider, &option, &canvas.painter);
}

void scrollBar(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionSlider>(canvas);
    option.orientation = Qt::Horizontal;
    option.state |= QStyle::State_Horizontal;
    option.rect.setHeight(canvas.widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent, &option));
    option.rect.moveCenter(canvas.rect.center());
    option.maximum = 100;
    option.pageStep = 60;
    option.sliderPosition = 40;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_ScrollBarSlider;
    canvas.widget.style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &canvas.painter);
}

void progressBar(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionProgressBar>(canvas);
    option.state |= QStyle::State_Horizontal;
    option.maximum = 100;
    option.progress = 62;
    option.text = QStringLiteral("62 %");
    option.textVisible = true;
    canvas.widget.style()->drawControl(QStyle::CE_ProgressBar, &option, &canvas.painter);
}

void tab(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionTab>(canvas);
    option.rect.setHeight(26);
    option.rect.moveCenter(canvas.rect.center());
    option.text = ControlSheet::tr("Timeline");
    if (option.state & (QStyle::State_On | QStyle::State_HasFocus)) {
        option.state |= QStyle::State_Selected;
    }
    canvas.widget.style()->drawControl(QStyle::CE_TabBarTab, &option, &canvas.painter);
}

void listRow(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionViewItem>(canvas);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    option.text = ControlSheet::tr("Position");
    option.displayAlignment = Qt::AlignVCenter | Qt::AlignLeft;
    if (option.state.testFlag(QStyle::State_On)) {
        option.state |= QStyle::State_Selected;
    }
    canvas.widget.style()->drawControl(QStyle::CE_ItemViewItem, &option, &canvas.painter);
}

void tallScrollBar(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionSlider>(canvas);
    option.orientation = Qt::Vertical;
    option.rect = leadingSquare(canvas, kTallHeight);
    option.rect.setWidth(canvas.widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent, &option));
    option.maximum = 100;
    option.pageStep = 100;
    option.sliderPosition = 40;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_ScrollBarSlider;
    canvas.widget.style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &canvas.painter);
}

void dial(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionSlider>(canvas);
    option.rect = leadingSquare(canvas, kTallHeight);
    option.maximum = 100;
    option.sliderPosition = 65;
    option.subControls = QStyle::SC_DialGroove | QStyle::SC_DialHandle;
    canvas.widget.style()->drawComplexControl(QStyle::CC_Dial, &option, &canvas.painter);
}

/// What a menu shows of the pointer is the selection.
QStyleOptionMenuItem menuOption(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionMenuItem>(canvas);
    option.font = canvas.painter.font();
    option.fontMetrics = canvas.painter.fontMetrics();
    if (option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)) {
        option.state |= QStyle::State_Selected;
    }
    return option;
}

void menuRow(const Canvas& canvas)
{
    auto option = menuOption(canvas);
    option.text = ControlSheet::tr("Snap") + QStringLiteral("\tF6");
    option.menuHasCheckableItems = true;
    option.checkType = QStyleOptionMenuItem::NonExclusive;
    option.checked = option.state.testFlag(QStyle::State_On);
    canvas.widget.style()->drawControl(QStyle::CE_MenuItem, &option, &canvas.painter);
}

void menuBarItem(const Canvas& canvas)
{
    auto option = menuOption(canvas);
    option.rect.setWidth(option.rect.width() / 2);
    option.text = ControlSheet::tr("Layer");
    canvas.widget.style()->drawControl(QStyle::CE_MenuBarItem, &option, &canvas.painter);
}

void headerSection(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionHeader>(canvas);
    option.state |= QStyle::State_Horizontal;
    option.text = ControlSheet::tr("Mode");
    option.textAlignment = Qt::AlignVCenter | Qt::AlignLeft;
    if (option.state.testFlag(QStyle::State_On)) {
        option.sortIndicator = QStyleOptionHeader::SortUp;
    }
    canvas.widget.style()->drawControl(QStyle::CE_Header, &option, &canvas.painter);
}

void splitter(const Canvas& canvas)
{
    auto option = optionFor<QStyleOption>(canvas);
    option.rect.setHeight(canvas.widget.style()->pixelMetric(QStyle::PM_SplitterWidth, &option));
    option.rect.moveCenter(canvas.rect.center());
    canvas.widget.style()->drawControl(QStyle::CE_Splitter, &option, &canvas.painter);
}

void groupBox(const Canvas& canvas)
{
    auto option = optionFor<QStyleOptionGroupBox>(canvas);
    option.rect = leadingSquare(canvas, kTallHeight);
    option.rect.setWidth(canvas.rect.width());
    option.text = ControlSheet::tr("Stroke");
    option.lineWidth = 1;
    option.textAlignment = Qt::AlignLeft;
    option.subControls =
        QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxCheckBox;
    canvas.widget.style()->drawComplexControl(QStyle::CC_GroupBox, &option, &canvas.painter);
}

struct Row
{
    const char* name;
    void (*draw)(const Canvas&);
};

constexpr std::array<Row, 20> kRows{{
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Push button"), plainButton},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Default button"), defaultButton},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Tool button"), toolButton},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Check box"), checkBox},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Radio button"), radioButton},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Combo box"), comboBox},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Line edit"), lineEdit},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Spin box"), spinBox},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Slider"), slider},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Scroll bar"), scrollBar},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Upright scroll bar"), tallScrollBar},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Dial"), dial},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Progress bar"), progressBar},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Tab"), tab},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "List row"), listRow},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Header section"), headerSection},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Menu row"), menuRow},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Menu bar item"), menuBarItem},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Splitter"), splitter},
    {QT_TRANSLATE_NOOP("studio::ControlSheet", "Group box"), groupBox},
}};

} // namespace

ControlSheet::ControlSheet(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(sizeHint());
}

ControlSheet::~ControlSheet() = default;

QSize ControlSheet::sizeHint() const
{
    return {
        kNameWidth + kCellWidth * static_cast<int>(columns().size()),
        kRowHeight * static_cast<int>(kRows.size() + 1)};
}

void ControlSheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintHeadings(painter);
    for (int row = 0; row < static_cast<int>(kRows.size()); ++row) {
        paintRow(painter, row);
    }
}

void ControlSheet::paintHeadings(QPainter& painter) const
{
    painter.setPen(ui::colorQt(QStringLiteral("HelperHints")));
    for (int column = 0; column < static_cast<int>(columns().size()); ++column) {
        const QRect place = cell(-1, column);
        const char* name = columns()[static_cast<std::size_t>(column)].name;
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft, tr(name));
    }
}

void ControlSheet::paintRow(QPainter& painter, int row) const
{
    const Row& entry = kRows[static_cast<std::size_t>(row)];
    QRect name = cell(row, 0);
    name.moveRight(name.left() - 1);
    name.setLeft(0);
    painter.setPen(ui::colorQt(QStringLiteral("HelperHints")));
    painter.drawText(name, Qt::AlignVCenter | Qt::AlignLeft, tr(entry.name));
    for (int column = 0; column < static_cast<int>(columns().size()); ++column) {
        painter.save();
        const QStyle::State state = columns()[static_cast<std::size_t>(column)].state;
        entry.draw({painter, *this, cell(row, column), state});
        painter.restore();
    }
}

QRect ControlSheet::cell(int row, int column) const
{
    const int top = (row + 1) * kRowHeight + (kRowHeight - kControlSize.height()) / 2;
    return {QPoint(kNameWidth + column * kCellWidth, top), kControlSize};
}

} // namespace studio
