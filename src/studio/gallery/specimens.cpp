// SPDX-License-Identifier: Apache-2.0
#include "gallery/specimens.h"

#include <MorrantUI/controls/buttons/CheckBox.h>
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/controls/buttons/KeyframeButton.h>
#include <MorrantUI/controls/buttons/PushButton.h>
#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/controls/buttons/SegmentedButton.h>
#include <MorrantUI/controls/buttons/ToggleSwitch.h>
#include <MorrantUI/controls/buttons/ToolButton.h>
#include <MorrantUI/controls/connections/PickWhip.h>
#include <MorrantUI/controls/values/AnglePad.h>
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/JoystickPad.h>
#include <MorrantUI/controls/values/LineEdit.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/RenamableLabel.h>
#include <MorrantUI/controls/values/RolloverLabel.h>
#include <MorrantUI/controls/values/SliderField.h>
#include <MorrantUI/docking/layouts/CollapsibleSection.h>
#include <MorrantUI/docking/layouts/FlowLayout.h>
#include <MorrantUI/docking/layouts/SpacerBar.h>

#include <QCoreApplication>
#include <QVBoxLayout>

#include <utility>

namespace studio::gallery {

namespace {

constexpr QColor kSampleColor(66, 153, 225);

QString tr(const char* text)
{
    return QCoreApplication::translate("studio::gallery", text);
}

/// Checkable only where it matters: a click on the specimen at rest shows the other state.
template <typename Button>
Button* checkable(Button* button, State state)
{
    button->setCheckable(true);
    button->setChecked(state == State::On);
    return button;
}

Specimen pushButton(State state)
{
    auto* button = checkable(new PushButton(tr("Export")), state);
    button->setIconName(QStringLiteral("icons:export.png"));
    return {button};
}

Specimen primaryButton(State state)
{
    auto* button = checkable(new PushButton(tr("Render")), state);
    button->setPrimary(true);
    return {button};
}

Specimen toolButton(State state)
{
    return {checkable(new ToolButton(QStringLiteral("icons:snap.png"), tr("Snap")), state)};
}

Specimen iconButton(State state)
{
    return {checkable(new IconButton(QStringLiteral("icons:autoKey.png")), state)};
}

Specimen rolloverButton(State state)
{
    return {checkable(new RolloverButton(QStringLiteral("icons:solo.png")), state)};
}

Specimen rolloverLabel(State state)
{
    return {state != State::On ? new RolloverLabel(tr("Show in folder")) : nullptr};
}

SegmentedButton* easingButtons()
{
    auto* group = new SegmentedButton;
    group->addSegment({}, QStringLiteral("icons:easeIn.png"), tr("Ease in"));
    group->addSegment({}, QStringLiteral("icons:easeLinear.png"), tr("Linear"));
    group->addSegment({}, QStringLiteral("icons:easeOut.png"), tr("Ease out"));
    return group;
}

Specimen groupButton(State state)
{
    return {checkable(new GroupButton(QStringLiteral("icons:addIcon.png")), state)};
}

Specimen segmentedButton(State state)
{
    SegmentedButton* group = easingButtons();
    group->setCurrentIndex(state == State::On ? 1 : 0);
    return {group, group->segment(1)};
}

QWidget* independentGroup()
{
    SegmentedButton* group = easingButtons();
    group->setExclusive(false);
    group->setChecked(0, true);
    group->setChecked(2, true);
    return group;
}

Specimen toggleSwitch(State state)
{
    return {checkable(new ToggleSwitch(tr("Loop")), state)};
}

Specimen checkBox(State state)
{
    return {checkable(new CheckBox(tr("Motion blur")), state)};
}

QWidget* mixedCheckBox()
{
    auto* box = new CheckBox(tr("Motion blur"));
    box->setMixed();
    return box;
}

Specimen renamableLabel(State state)
{
    const bool exists = state != State::On && state != State::Pressed;
    return {exists ? new RenamableLabel(tr("Layer 12")) : nullptr};
}

Specimen lineEdit(State state)
{
    if (state == State::On || state == State::Pressed) {
        return {};
    }
    auto* edit = new LineEdit;
    edit->setText(tr("Title card"));
    return {edit};
}

QWidget* invalidLineEdit()
{
    auto* edit = new LineEdit;
    edit->setText(QStringLiteral("render*.mp4"));
    edit->setInvalid(true);
    return edit;
}

NumericField* number(double value)
{
    auto* field = new NumericField;
    field->setFieldType(NumericField::FloatingPoint);
    field->setValue(value);
    return field;
}

Specimen numericField(State state)
{
    constexpr double kSample = 42.5;
    const bool exists = state != State::On && state != State::Pressed;
    return {exists ? number(kSample) : nullptr};
}

QWidget* invalidNumber()
{
    NumericField* field = number(0);
    field->setInvalid(true);
    return field;
}

Specimen sliderField(State state)
{
    if (state == State::On) {
        return {};
    }
    auto* slider = new SliderField;
    slider->setValue(0.4);
    QWidget* track = nullptr;
    for (QWidget* child : slider->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        track = child != slider->field() ? child : track;
    }
    return {slider, track};
}

QWidget* sliderBeyond()
{
    auto* slider = new SliderField;
    slider->setRange(0, 10);
    slider->setSoftRange(0, 1);
    slider->setValue(2.5);
    return slider;
}

Specimen anglePad(State state)
{
    if (state == State::On) {
        return {};
    }
    auto* pad = new AnglePad;
    pad->setValue(45);
    return {pad};
}

Specimen joystickPad(State state)
{
    if (state == State::On) {
        return {};
    }
    auto* pad = new JoystickPad;
    pad->setValue({0.4, 0.3});
    return {pad};
}

Specimen colorSwatch(State state)
{
    return {state != State::On ? new ColorSwatch(kSampleColor) : nullptr};
}

QWidget* translucentSwatch()
{
    QColor color = kSampleColor;
    color.setAlphaF(0.4f);
    return new ColorSwatch(color);
}

Specimen keyframeButton(State state)
{
    auto* button = new KeyframeButton;
    button->setState(
        state == State::On ? KeyframeButton::State::KeyAtFrame : KeyframeButton::State::None);
    return {button};
}

QWidget* animatedKeyframeButton()
{
    auto* button = new KeyframeButton;
    button->setState(KeyframeButton::State::Animated);
    return button;
}

Specimen pickWhip(State state)
{
    auto* whip = new PickWhip;
    whip->setConnected(state == State::On);
    return {whip};
}

AttributeRow* attributeRow(const QString& name, const std::vector<double>& values)
{
    auto* row = new AttributeRow(name);
    for (const double value : values) {
        row->addField(value);
    }
    row->setConnectionsAccepted(true);
    return row;
}

QWidget* attributeRows()
{
    auto* rows = new QWidget;
    auto* layout = new QVBoxLayout(rows);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    auto* position = attributeRow(tr("Position"), {480, 270.5});
    position->keyframeButton()->setState(KeyframeButton::State::KeyAtFrame);
    auto* scale = attributeRow(tr("Scale"), {120, 80});
    scale->setLinkable(true);
    scale->setLinked(true);
    scale->keyframeButton()->setState(KeyframeButton::State::Animated);
    auto* rotation = attributeRow(tr("Rotation"), {-15});
    rotation->pickWhip()->setConnected(true);
    auto* fill = attributeRow(tr("Fill"), {});
    fill->addSwatch(kSampleColor);
    auto* locked = attributeRow(tr("Anchor"), {0, 0});
    locked->setEnabled(false);
    for (AttributeRow* row : {position, scale, rotation, fill, locked}) {
        layout->addWidget(row);
    }
    return rows;
}

QWidget* flow()
{
    auto* page = new QWidget;
    auto* layout = new FlowLayout(page);
    for (const QString& name : {tr("Ease"), tr("Bounce"), tr("Elastic")}) {
        layout->addWidget(new PushButton(name));
    }
    layout->addWidget(new SpacerBar);
    for (const auto& [icon, name] : {std::pair("undo", tr("Undo")), {"redo", tr("Redo")}}) {
        auto* button = new IconButton(QStringLiteral("icons:%1.png").arg(QLatin1String(icon)));
        button->setToolTip(name);
        layout->addWidget(button);
    }
    layout->addWidget(new SpacerBar);
    layout->addWidget(new ToggleSwitch(tr("Preview")));
    return page;
}

CollapsibleSection* fold(const QString& title, QWidget* content)
{
    auto* section = new CollapsibleSection(title);
    section->setContent(content);
    return section;
}

} // namespace

std::vector<SpecimenRow> specimenRows()
{
    return {
        {tr("Push button"), pushButton},
        {tr("Primary button"), primaryButton},
        {tr("Tool button"), toolButton},
        {tr("Icon button"), iconButton},
        {tr("Rollover button"), rolloverButton},
        {tr("Rollover label"), rolloverLabel},
        {tr("Group button"), groupButton},
        {tr("Segmented button"), segmentedButton, tr("Independent"), independentGroup},
        {tr("Toggle switch"), toggleSwitch},
        {tr("Check box"), checkBox, tr("Mixed"), mixedCheckBox},
        {tr("Renamable label"),
         renamableLabel,
         tr("Editing"),
         [] { return new RenamableLabel(tr("Layer 12")); }},
        {tr("Line edit"), lineEdit, tr("Invalid"), invalidLineEdit},
        {tr("Number field"), numericField, tr("Invalid"), invalidNumber},
        {tr("Slider field"), sliderField, tr("Beyond the slider"), sliderBeyond},
        {tr("Angle pad"), anglePad},
        {tr("Joystick pad"), joystickPad},
        {tr("Colour swatch"), colorSwatch, tr("Translucent"), translucentSwatch},
        {tr("Keyframe button"), keyframeButton, tr("Animated"), animatedKeyframeButton},
        {tr("Pick whip"), pickWhip},
    };
}

QWidget* attributes()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(fold(tr("Transform"), attributeRows()));
    layout->addWidget(fold(tr("Presets"), flow()));
    auto* folded = fold(tr("Effects"), attributeRow(tr("Blur"), {4}));
    folded->setExpanded(false);
    layout->addWidget(folded);
    return page;
}

} // namespace studio::gallery
