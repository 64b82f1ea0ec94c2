// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

// [page]
/// A text: what saving, closing and a crash have to know of it.
class TextPage : public FilePage
{
public:
    TextPage()
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_text);
        connect(m_text, &QPlainTextEdit::textChanged, this, &FilePage::changed); // each edit
    }

    /// @param path empty for a text of no file
    void open(const QString& title, const QString& path, const QByteArray& bytes)
    {
        m_text->setPlainText(QString::fromUtf8(bytes));
        setModified(false);
        setFile(title, path, ui::fingerprintOf(bytes));
    }

    bool isModified() const override { return m_text->document()->isModified(); }
    std::optional<QByteArray> contents() override { return m_text->toPlainText().toUtf8(); }

protected:
    void setModified(bool modified) override { m_text->document()->setModified(modified); }

private:
    QPlainTextEdit* m_text = new QPlainTextEdit;
};
// [page]

class TextWindow : public QWidget
{
    Q_DECLARE_TR_FUNCTIONS(TextWindow)

public:
    explicit TextWindow(const QString& folder)
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_texts);
        // [documents]
        m_texts->saver().setFileType(tr("Texts (*.txt)"), QStringLiteral("txt"));
        connect(m_texts, &FileTabs::wanted, this, [this] { add(tr("Untitled"), {}, {}); });
        connect(&m_texts->saver(), &FileSaver::failed, this, &TextWindow::tell);
        add(tr("Untitled"), {}, {});

        m_keeper = new UnsavedKeeper(folder, *m_texts, this); // a folder of yours, for all runs
        connect(m_keeper, &UnsavedKeeper::failed, this, &TextWindow::tell);
        for (const UnsavedDocument& left : m_keeper->recovery().take({})) { // by a crash
            add(left.title, left.path, left.contents)->setUnsaved(left.fingerprint);
        }
        m_keeper->recovery().setTakenOver(); // all of it is on pages
        // [documents]
    }

protected:
    // [leave]
    void closeEvent(QCloseEvent* event) override
    {
        event->setAccepted(m_texts->mayLeave(tr("Quit?")));
        if (event->isAccepted()) {
            m_keeper->forget(); // the user has decided about all changes
        }
    }
    // [leave]

private:
    TextPage* add(const QString& title, const QString& path, const QByteArray& bytes)
    {
        auto* page = new TextPage;
        page->open(title, path, bytes);
        m_texts->add(page);
        return page;
    }
    void tell(const QString& sentence) { m_notices->add(sentence); }

    FileTabs* m_texts = new FileTabs;
    NoticeStack* m_notices = new NoticeStack(this);
    UnsavedKeeper* m_keeper = nullptr;
};

} // namespace

QWidget* documentsChapter()
{
    return new TextWindow(QDir::temp().filePath(QStringLiteral("guide-unsaved")));
}
