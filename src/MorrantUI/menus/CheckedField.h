// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

#include <functional>

class LineEdit;
class QLabel;

namespace ui {

/// A labelled line of text with a note below it that says what the text should be, or what is wrong
/// with it; a wrong one also has a red edge.
class CheckedField : public QWidget
{
    Q_OBJECT

public:
    struct Verdict
    {
        QString note;
        bool isUsable = false;
        bool isWrong = false; ///< not merely unfinished
    };
    using Rule = std::function<Verdict(const QString& text)>;

    /// @param rule asked at once, and whenever the text changes
    CheckedField(const QString& label, const QString& text, Rule rule);

    LineEdit* field() const { return m_field; }
    QString text() const;
    bool isUsable() const { return m_verdict.isUsable; }
    /// Replaces the text, as though it had been typed, and selects it.
    void setText(const QString& text);

Q_SIGNALS:
    void checked(bool isUsable);

protected:
    void changeEvent(QEvent* event) override;

private:
    void check();
    void colourNote();

    LineEdit* m_field;
    QLabel* m_note;
    Rule m_rule;
    Verdict m_verdict;
};

} // namespace ui
