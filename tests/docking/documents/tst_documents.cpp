// SPDX-License-Identifier: Apache-2.0
#include "menus/answers.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/documents/FilePage.h>
#include <MorrantUI/documents/FileSaver.h>
#include <MorrantUI/documents/FileTabs.h>
#include <MorrantUI/documents/UnsavedKeeper.h>
#include <MorrantUI/documents/filedrops.h>
#include <MorrantUI/documents/questions.h>
#include <MorrantUI/documents/savedfiles.h>
#include <MorrantUI/menus/ModalDialog.h>

namespace {

using Button = QDialogButtonBox::StandardButton;

int gAsked = 0; ///< questions that were answered

/// Presses a button of the next question.
void answer(Button button)
{
    ui::test::answerDialog([button](QDialog& dialog) {
        ++gAsked;
        static_cast<ModalDialog&>(dialog).button(button)->click();
    });
}

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.exists() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void replace(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// A text. "?" in it cannot be read again, "!" cannot be written.
class TextPage : public FilePage
{
public:
    TextPage(const QString& title, const QString& path)
        : m_text(contentsOf(path))
    {
        setFile(title, path, ui::fingerprintOf(m_text));
    }

    void type(const QByteArray& text)
    {
        m_text += text;
        m_isModified = true;
        Q_EMIT changed();
    }

    bool isModified() const override { return m_isModified; }
    std::optional<QByteArray> contents() override
    {
        return m_text.contains('!') ? std::nullopt : std::optional(m_text);
    }
    bool canBeRead(const QByteArray& text) const override { return !text.contains('?'); }
    void finishEditing() override { m_text += std::exchange(typing, {}); }

    QByteArray typing;

protected:
    void setModified(bool modified) override { m_isModified = modified; }

private:
    QByteArray m_text;
    bool m_isModified = false;
};

struct Tabs : FileTabs
{
    /// Documents of no file, the last one in front.
    explicit Tabs(const QStringList& titles = {})
    {
        for (const QString& title : titles) {
            add(new TextPage(title, {}));
        }
        saver().setChoosePath([this](const QString& suggested) {
            suggestion = suggested;
            return chosen;
        });
        connect(&saver(), &FileSaver::failed, this, [this](const QString& sentence) {
            errors.append(sentence);
        });
        show();
    }

    TextPage& open(const QString& path)
    {
        add(new TextPage(QFileInfo(path).completeBaseName(), path));
        return front();
    }
    TextPage& front() { return static_cast<TextPage&>(*current()); }
    void close(int index) { Q_EMIT getTab(index)->closed(); }
    QString texts()
    {
        QStringList texts;
        for (int i = 0; i < count(); ++i) {
            texts.append(getTab(i)->text());
        }
        return texts.join(u' ');
    }

    QString chosen;
    QString suggestion;
    QStringList errors;
};

} // namespace

class DocumentsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstDocumentShowsTheTabsAndTheLastOneStays()
    {
        Tabs tabs;
        QVERIFY(!tabs.current() && tabs.mayLeave({}) && !tabs.getHeader()->isVisible());
        tabs.closeCurrent();
        tabs.add(nullptr);
        tabs.add(new TextPage({}, {}));
        QVERIFY(!tabs.getHeader()->isVisible());
        QSignalSpy current(&tabs, &FileTabs::currentChanged);
        tabs.add(&tabs.front());
        tabs.front().setFile(u"a"_qs, {}, {});
        QVERIFY(current.size() == 1 && tabs.getHeader()->isVisible());
        tabs.closeCurrent();
        tabs.close(0);
        QCOMPARE(tabs.texts(), u"a"_qs);

        tabs.add(new TextPage(u"b"_qs, {}));
        tabs.add(new TextPage(u"c"_qs, {}));
        QCOMPARE(current.size(), 3);
        ui::test::showActive(tabs);
        tabs.addActions(tabs.turnActions());
        const std::pair<Qt::Key, int> keys[] = {
            {Qt::Key_Tab, 0}, {Qt::Key_PageUp, 2}, {Qt::Key_PageDown, 0}};
        for (const auto& [key, shown] : keys) {
            QTest::keyClick(&tabs, key, Qt::ControlModifier);
            QCOMPARE(tabs.activeTab(), shown);
        }
    }

    void closingAsksOnlyOverChanges()
    {
        Tabs tabs({u"a"_qs, u"b"_qs, u"c"_qs});
        tabs.front().type("x");
        tabs.close(0);
        const std::pair<Button, QString> answers[] = {
            {QDialogButtonBox::Cancel, u"b c*"_qs}, {QDialogButtonBox::Discard, u"b"_qs}};
        for (const auto& [button, left] : answers) {
            answer(button);
            tabs.close(1);
            QCoreApplication::processEvents();
            QCOMPARE(std::exchange(gAsked, 0), 1);
            QCOMPARE(tabs.texts(), left);
        }
        tabs.add(new TextPage(u"d"_qs, {}));
        connect(&tabs, &FileTabs::closing, &tabs, [&tabs] { tabs.front().type("typed"); });
        answer(QDialogButtonBox::Save);
        tabs.close(1); // without a path
        QCOMPARE(tabs.texts(), u"b d*"_qs);

        tabs.add(new TextPage(u"e"_qs, {}));
        FilePage* const kept = tabs.pages().at(1);
        answer(QDialogButtonBox::Cancel);
        tabs.getHeader()->closeTabs({0, 1}); // the one that is kept comes back
        QTRY_COMPARE(tabs.texts(), u"e* d*"_qs);
        QCOMPARE(std::exchange(gAsked, 0), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(tabs.current() == kept && kept->isVisible());
        kept->setSaved(u"/elsewhere/new.txt"_qs, {});
        QCOMPARE(tabs.texts(), u"e* new"_qs);
    }

    void savingAsksWhereToAndOverWhat()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"one.txt"_qs);
        replace(path, "1");
        Tabs tabs({u"a/b"_qs});
        tabs.saver().setFileType({}, u"txt"_qs);
        QVERIFY(!tabs.saver().save(tabs.front())); // no path is chosen
        QVERIFY(tabs.suggestion.endsWith(u"/a-b.txt"_qs));
        tabs.open(path).typing = "2";
        QVERIFY(tabs.saver().save(tabs.front()) && contentsOf(path) == "12");
        tabs.setTab(0);
        QVERIFY(tabs.showFile(folder.filePath(u"./one.txt"_qs)) && tabs.activeTab() == 1);
        QVERIFY(!tabs.showFile(folder.filePath(u"none"_qs)));

        replace(path, "theirs");
        tabs.chosen = folder.filePath(u"other.txt"_qs);
        tabs.front().type("3");
        const std::tuple<Button, bool, QByteArray, QByteArray> answers[] = {
            {QDialogButtonBox::Cancel, false, "theirs", {}},
            {QDialogButtonBox::Save, true, "theirs", "123"},
            {QDialogButtonBox::Discard, true, "theirs", "123"}};
        for (const auto& [button, saved, first, other] : answers) {
            answer(button);
            QCOMPARE(tabs.saver().save(tabs.front()), saved);
            QCOMPARE(std::exchange(gAsked, 0), 1);
            QCOMPARE(contentsOf(path), first);
            QCOMPARE(contentsOf(tabs.chosen), other);
            QVERIFY(!saved || QFile::remove(tabs.chosen)); // asked again
        }
        tabs.open(path);
        replace(tabs.chosen, "123");
        QVERIFY(!tabs.saver().saveAs(tabs.front()));
        QVERIFY(tabs.errors.value(0).endsWith(u"it is open in another tab."_qs));
#ifdef Q_OS_UNIX
        const QString link = folder.filePath(u"link"_qs);
        QVERIFY(QFile::link(path, link));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(ui::replaceFile(link, "x"), QString());
        QVERIFY(contentsOf(path) == "x" && QFileInfo(link).isSymLink());
        QVERIFY(!QFile::permissions(path).testFlag(QFile::ReadOther));
#endif
    }

    void whatCannotBeSavedStaysModified()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"one"_qs);
        replace(path, "1");
        Tabs tabs;
        tabs.open(path).type("2");
        const QByteArray texts[] = {{}, {}, {}, "?", "!"};
        const QString bad[] = {
            path + u"/x"_qs, folder.path(), folder.filePath(u"none/x"_qs), path, path};
        for (std::size_t i = 0; i < std::size(bad); ++i) {
            tabs.chosen = bad[i];
            tabs.front().type(texts[i]);
            QVERIFY(!tabs.saver().saveAs(tabs.front()) && tabs.front().isModified());
            const QString start = u"“%1” was not saved: "_qs.arg(QDir::toNativeSeparators(bad[i]));
            QVERIFY(tabs.errors.takeLast().startsWith(start));
            QCOMPARE(contentsOf(path), QByteArray("1"));
        }
        QVERIFY(!tabs.unsaved());
    }

    void leavingAsksOnceOverAllChanges()
    {
        const QTemporaryDir folder;
        Tabs tabs({u"a"_qs, u"b"_qs, u"c"_qs});
        for (FilePage* page : tabs.pages().mid(1)) {
            static_cast<TextPage*>(page)->type("x");
        }
        const std::pair<Button, bool> answers[] = {
            {QDialogButtonBox::Cancel, false},
            {QDialogButtonBox::Discard, true},
            {QDialogButtonBox::Save, false}};
        for (const auto& [button, may] : answers) {
            answer(button);
            QCOMPARE(tabs.mayLeave(u"Quit?"_qs), may);
            QCOMPARE(std::exchange(gAsked, 0), 1);
        }
        tabs.saver().setChoosePath([&folder](const QString& suggested) {
            return folder.filePath(QFileInfo(suggested).fileName());
        });
        answer(QDialogButtonBox::Save);
        QVERIFY(tabs.mayLeave(u"Quit?"_qs) && tabs.mayLeave(u"Quit?"_qs));
        QCOMPARE(std::exchange(gAsked, 0), 1);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"b"_qs, u"c"_qs}));
        const QString named = ui::unsavedText({u"A\nB"_qs, QString(99, u'c')});
        QVERIFY(named.contains(u"\n• A B\n• ccc"_qs) && named.endsWith(u"c…"_qs));
        QVERIFY(ui::unsavedText(QStringList(10, u"d"_qs)).endsWith(u"\nand 2 more"_qs));
    }

    void droppedFilesAreTakenByTheirSuffix()
    {
        QWidget target;
        QStringList taken;
        ui::offerFileDrops(target, u"txt"_qs, [&taken](const QStringList& paths, bool hasOthers) {
            taken = paths + QStringList(hasOthers ? u"and others"_qs : u"whole"_qs);
        });
        QMimeData data;
        QVERIFY(!ui::test::dropOn(target, data));
        const QUrl file(u"file:///C:/a%20b.TXT"_qs);
        const QUrl remote(u"https://example.org/b.txt"_qs);
        for (const QList<QUrl>& urls : {QList{file}, {file, remote}, {remote}}) {
            data.setUrls(urls);
            QVERIFY(ui::test::dropOn(target, data, Qt::MoveAction));
            const bool isWhole = !urls.contains(remote);
            QCOMPARE(taken.takeLast(), isWhole ? u"whole"_qs : u"and others"_qs);
            QCOMPARE(taken, urls.contains(file) ? QStringList(file.toLocalFile()) : QStringList());
        }
    }

    void changesOutliveACrash()
    {
        const QTemporaryDir folder;
        const QString kept = folder.filePath(u"kept"_qs);
        const auto isText = [](const QByteArray& text) { return text.startsWith('1'); };
        {
            Tabs tabs({u"a"_qs, u"b"_qs});
            UnsavedKeeper keeper(kept, tabs);
            tabs.front().type("12");
            ui::test::FakeClock(&keeper).fireTimers(5000);
            QVERIFY(Recovery(kept).take(isText).empty()); // of a run that goes on
            tabs.front().type("!");
            QVERIFY(!keeper.keep().isEmpty()); // and what was there stays
        }
        for (const QString& file : {u"/damaged/index.json"_qs, u"/unfinished/1.document"_qs}) {
            QVERIFY(QDir(kept).mkdir(file.section(u'/', 1, 1)));
            replace(kept + file, "{");
        }
        {
            Recovery next(kept);
            QCOMPARE(
                next.take(isText),
                (std::vector<UnsavedDocument>{{u"b"_qs, {}, ui::fingerprintOf({}), "12"}}));
            QCOMPARE(next.unreadable(), QStringList(kept + u"/damaged"_qs));
            next.forget();
        }
        QCOMPARE(
            QDir(kept).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList(u"damaged"_qs));
        Recovery nowhere(kept + u"/damaged/index.json"_qs);
        QVERIFY(nowhere.keep({{u"b"_qs, {}, {}, "12"}}).contains(u"index.json"_qs));
    }
};

const ui::test::Registration<DocumentsTest> kRegistration;

#include "tst_documents.moc"
