// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "gallery/specimens.h"

#include <QPointer>
#include <QWidget>

#include <vector>

class QGridLayout;
class RenamableLabel;

namespace studio {

/// A table of the toolkit's value controls, one row a control and one column a state. Those at rest
/// react, for trying them out; the others keep their state.
class StateSheet : public QWidget
{
    Q_OBJECT

public:
    explicit StateSheet(QWidget* parent = nullptr);
    ~StateSheet() override;

protected:
    bool event(QEvent* event) override;

private:
    struct Forced
    {
        QWidget* part;
        gallery::State state;
    };

    void addHeadings();
    void addRow(int line, const gallery::SpecimenRow& row);
    void addCell(int line, int column, QWidget* widget);
    void forceStates();
    void pictureEditing();

    QGridLayout* m_grid;
    QWidget* m_focus; ///< has the focus for all that show it
    std::vector<Forced> m_forced;
    QPointer<RenamableLabel> m_renamed; ///< until it is a picture of its editing
};

} // namespace studio
