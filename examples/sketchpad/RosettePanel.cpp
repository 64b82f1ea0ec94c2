// SPDX-License-Identifier: Apache-2.0
#include "RosettePanel.h"

#include "Document.h"
#include <MorrantUI/controls/values/AttributeRow.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/controls/values/NumericField.h>

#include <QVBoxLayout>

namespace {

constexpr int kMargin = 8; ///< logical pixels

void limit(NumericField* field, double lowest, double highest)
{
    field->setMin(lowest);
    field->setMax(highest);
}

} // namespace

RosettePanel::RosettePanel(Document& document, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);

    m_petals = addNumbers(tr("Petals"), {&Rosette::petals});
    m_petals->field(0)->setFieldType(NumericField::Integer);
    m_petals->field(0)->setDragMultiplier(0.1);
    limit(m_petals->field(0), 1, 60);
    m_petals->setValue(0, document.rosette().petals); // whole, now that the field is

    m_size = addNumbers(tr("Size"), {&Rosette::width, &Rosette::height});
    m_size->setLinkable(true);
    limit(m_size->field(0), 1, 200);
    limit(m_size->field(1), 1, 200);

    m_turn = addNumbers(tr("Turn"), {&Rosette::turn});
    m_color = addColor(tr("Colour"));
    column->addStretch();
}

AttributeRow* RosettePanel::addNumbers(const QString& name, const Numbers& numbers)
{
    auto* row = new AttributeRow(name, this);
    for (const auto number : numbers) {
        row->addField(m_document.rosette().*number);
    }
    row->setKeyframesShown(false);
    row->setPickWhipShown(false);
    layout()->addWidget(row);

    // Once for a change, however many fields take part: linked ones have followed by then.
    connect(row, &AttributeRow::edited, this, [=, this](bool committed) {
        Rosette rosette = m_document.rosette();
        int index = 0;
        for (const auto number : numbers) {
            rosette.*number = row->value(index++);
        }
        m_document.preview(rosette);
        if (committed) {
            m_document.finishStep(row->name());
        }
    });
    connect(&m_document, &Document::changed, row, [=, this] {
        int index = 0;
        for (const auto number : numbers) {
            row->setValue(index++, m_document.rosette().*number); // reports nothing
        }
    });
    return row;
}

AttributeRow* RosettePanel::addColor(const QString& name)
{
    auto* row = new AttributeRow(name, this);
    row->addSwatch(m_document.rosette().color)->setAlphaEnabled(false);
    row->setKeyframesShown(false);
    row->setPickWhipShown(false);
    layout()->addWidget(row);

    connect(row, &AttributeRow::edited, this, [=, this](bool committed) {
        Rosette rosette = m_document.rosette();
        rosette.color = row->color();
        m_document.preview(rosette);
        if (committed) {
            m_document.finishStep(row->name());
        }
    });
    connect(&m_document, &Document::changed, row, [=, this] {
        row->setColor(m_document.rosette().color);
    });
    return row;
}
