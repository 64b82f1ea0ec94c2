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
    void finishEditing() override
    {
        if (!typing.isEmpty()) {
            type(std::exchange(typing, {}));
        }
    }

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
            QVERIFY(!QGuiApplication::overrideCursor()); // a host may ask about it
            errors.append(sentence);
        });
        show();
    }

    TextPage& open(const QString& path)
    {
        add(new TextPage(QFileInfo(path).completeBaseName(), path));
        return front();
    }
    TextPage& page(int index) { return static_cast<TextPage&>(*pages().at(index)); }
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

public:
    // The system's own file dialogs take no answers.
    DocumentsTest() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    ~DocumentsTest() override
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    }

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
        tabs.getHeader()->closeTabs({0});
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
        connect(&tabs, &FileTabs::currentEdited, &tabs, [&tabs] { delete tabs.current(); });
        tabs.front().setFile(u"gone"_qs, {}, {});
        QCOMPARE(tabs.texts(), u"b c"_qs);
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
        tabs.setTab(2);
        answer(QDialogButtonBox::Cancel);
        tabs.getHeader()->closeTabs({0, 1, 2}); // the one that is kept comes forward and ends it
        QCOMPARE(tabs.texts(), u"d* e*"_qs);
        QCOMPARE(std::exchange(gAsked, 0), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(tabs.current() == kept && kept->isVisible());
        kept->setSaved(u"/<b>/.txt"_qs, {});
        QVERIFY(kept->title() == u".txt"_qs && tabs.getTab(0)->toolTip().contains(u"&lt;b&gt;"_qs));
        kept->setSaved(u"/elsewhere/new.txt"_qs, {});
        QCOMPARE(tabs.texts(), u"new e*"_qs);
        QCOMPARE(tabs.getTab(1)->accessibleDescription(), u"Has unsaved changes"_qs);
        tabs.open(u"/elsewhere/f.txt"_qs);
        tabs.page(1).type("x");
        answer(QDialogButtonBox::Discard);
        tabs.getHeader()->closeTabs({1}); // the one in front is so again
        QCOMPARE(tabs.front().title() + tabs.texts(), u"fnew f*"_qs);
        QCOMPARE(std::exchange(gAsked, 0), 1);
    }

    void savingAsksWhereToAndOverWhat()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"one.txt"_qs);
        ui::replaceFile(path, "1");
        Tabs tabs({u"a/b"_qs});
        tabs.saver().setFileType({}, u"txt"_qs);
        QVERIFY(!tabs.saver().save(tabs.front())); // no path is chosen
        QVERIFY(tabs.suggestion.endsWith(u"/a-b.txt"_qs));
        tabs.open(path).typing = "2";
        QVERIFY(tabs.saver().save(tabs.front()) && contentsOf(path) == "12");
        tabs.setTab(0);
        QVERIFY(tabs.showFile(folder.filePath(u"./one.txt"_qs)) && tabs.activeTab() == 1);
        QVERIFY(!tabs.showFile(folder.filePath(u"none"_qs)));

        ui::replaceFile(path, "theirs");
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
        tabs.chosen = folder.filePath(u"./other.txt"_qs); // which does not exist any more
        QVERIFY(!tabs.saver().saveAs(tabs.open(path)));
        QVERIFY(tabs.errors.value(0).endsWith(u"it is open in another tab or window."_qs));

        tabs.saver().setChoosePath({});
        const QString walk = folder.filePath(u"walk.txt"_qs);
        ui::replaceFile(walk, "old");
        tabs.add(new TextPage(u"w"_qs, {}));
        tabs.front().type("new");
        for (const Button button : {QDialogButtonBox::Cancel, QDialogButtonBox::Discard}) {
            ui::test::answerDialog([&](QDialog& dialog) {
                auto* const name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs);
                name->setText(folder.filePath(u"walk"_qs));
                answer(button);
                dialog.accept();
            });
            const bool may = button == QDialogButtonBox::Discard;
            QVERIFY(tabs.saver().saveAs(tabs.front()) == may && std::exchange(gAsked, 0) == 1);
            QCOMPARE(contentsOf(walk), QByteArray(may ? "new" : "old"));
        }
        QString names;
        for (const QString& title :
             {u"A\nB/c"_qs, u"con.x"_qs, u"LPT²"_qs, u" walk. ."_qs, u"..."_qs}) {
            names += ui::fileNameFor(title) + u'|';
        }
        QCOMPARE(
            names + ui::fileNameFor(QString(300, u'歩')),
            u"A B-c|_con.x|_LPT²|walk|Untitled|"_qs + QString(66, u'歩'));
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
        ui::replaceFile(path, "1");
        Tabs tabs;
        tabs.open(path).type("2");
        const std::pair<QString, QByteArray> bad[] = {
            {path + u"/x"_qs, {}},
            {folder.path(), {}},
            {folder.filePath(u"none/x"_qs), {}},
            {path, "?"},
            {path, "!"}};
        for (const auto& [chosen, text] : bad) {
            tabs.chosen = chosen;
            tabs.front().type(text);
            QVERIFY(!tabs.saver().saveAs(tabs.front()) && tabs.front().isModified());
            const QString start = u"“%1” was not saved: "_qs.arg(QDir::toNativeSeparators(chosen));
            QVERIFY(tabs.errors.takeLast().startsWith(start));
        }
        QCOMPARE(contentsOf(path), QByteArray("1"));
        bool isWhole = true;
        QVERIFY(tabs.unsaved(nullptr, &isWhole).empty() && !isWhole);
    }

    void whoeverIsAskedForMayGoMeanwhile()
    {
        const QTemporaryDir folder;
        QString asked;
        for (const int way : {0, 1, 2}) {
            const QPointer<Tabs> tabs = new Tabs;
            TextPage& page = tabs->open(folder.filePath(u"gone"_qs));
            const auto go = [&] { delete (way == 2 ? static_cast<QWidget*>(&page) : tabs.data()); };
            tabs->saver().setChoosePath({});
            if (way == 0) {
                tabs->saver().setChoosePath([&go](const QString& suggested) {
                    go();
                    return suggested;
                });
            } else {
                ui::test::answerDialog([&](QDialog& dialog) {
                    asked = dialog.windowTitle();
                    go();
                });
            }
            QVERIFY(!(way == 2 ? tabs->saver().save(page) : tabs->saver().saveAs(page)));
            QVERIFY(QDir(folder.path()).isEmpty() && bool(tabs) == (way == 2));
            delete tabs;
        }
        QCOMPARE(asked, u"Save “gone” again?"_qs);
    }

    void leavingAsksOnceOverAllChanges()
    {
        const QTemporaryDir folder;
        Tabs tabs({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
        const QPointer<FilePage> last = tabs.current(); // goes before it is its turn
        connect(&tabs.page(2), &FilePage::changed, &tabs, [last] { delete last; });
        tabs.page(1).type("x");
        tabs.page(2).typing = "x";
        const std::pair<Button, bool> answers[] = {
            {QDialogButtonBox::Cancel, false},
            {QDialogButtonBox::Discard, true},
            {QDialogButtonBox::Save, false}};
        for (const auto& [button, may] : answers) {
            answer(button);
            QCOMPARE(tabs.mayLeave(u"Quit?"_qs), may);
            QCOMPARE(std::exchange(gAsked, 0), 1);
        }
        QStringList seen;
        tabs.setTab(0);
        tabs.saver().setChoosePath([&](const QString& suggested) {
            seen.append(tabs.front().title());
            return folder.filePath(QFileInfo(suggested).fileName());
        });
        answer(QDialogButtonBox::Save);
        QVERIFY(tabs.mayLeave(u"Quit?"_qs) && tabs.mayLeave(u"Quit?"_qs));
        QCOMPARE(std::exchange(gAsked, 0), 1);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"b"_qs, u"c"_qs}));
        QCOMPARE(seen, (QStringList{u"b"_qs, u"c"_qs}));
        const QString named = ui::unsavedText({u"A\nB"_qs, QString(99, u'c')});
        QVERIFY(named.contains(u"\n• A B\n• ccc"_qs) && named.endsWith(u"c…"_qs));
        QVERIFY(ui::shortTitle(u'a' + u"😀"_qs.repeated(40)).isValidUtf16());
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
            QVERIFY(ui::test::dropOn(target, data, Qt::MoveAction) && taken.isEmpty());
            QCoreApplication::processEvents(); // the drop is over
            const bool isWhole = !urls.contains(remote);
            QCOMPARE(taken.takeLast(), isWhole ? u"whole"_qs : u"and others"_qs);
            const QStringList files = std::exchange(taken, {});
            QCOMPARE(files, urls.contains(file) ? QStringList(file.toLocalFile()) : QStringList());
        }
    }

    void changesOutliveACrash()
    {
        const QTemporaryDir folder;
        const QString kept = folder.filePath(u"kept"_qs);
        const auto isText = [](const QByteArray& text) { return text.startsWith('1'); };
        QDir all(kept);
        const auto names = [&all] { return all.entryList(QDir::Dirs | QDir::NoDotAndDotDot); };
        QByteArray lock;
        {
            Tabs tabs({u"a"_qs, u"b"_qs});
            UnsavedKeeper keeper(kept, tabs);
            ui::test::FakeClock clock(&keeper);
            for (const char* const text : {"1", "2"}) {
                tabs.front().type(text);
                QCOMPARE(clock.fireTimers(5000), 1);
            }
            QVERIFY(Recovery(kept).take(isText).empty()); // of a run that goes on
            tabs.front().type("!");
            tabs.page(0).type("13");
            QVERIFY(keeper.keep().contains(u"“b”"_qs)); // which stays as it was
            lock = contentsOf(all.filePath(names().value(0) + u"/lock"_qs));
        }
        const QString whole = names().value(0);
        const QByteArray index = contentsOf(all.filePath(whole + u"/index.json"_qs));
        const QString run(32, u'0');
        const std::pair<QString, QByteArray> left[] = {
            {run + u"-damaged/index.json"_qs, "{"},
            {run + u"-missing/index.json"_qs, index},
            {run + u"-short/index.json"_qs, index},
            {run + u"-short/1.document"_qs, "1"},
            {run + u"-unfinished/1.document"_qs, "1"},
            {whole.section(u'-', 0, 0) + u"-next/1.document"_qs, "1"},
            {whole.section(u'-', 0, 0) + u"-former/index.json"_qs, index},
            {whole.section(u'-', 0, 0) + u"-former/1.document"_qs, "13"},
            {whole.section(u'-', 0, 0) + u"-former/2.document"_qs, "12"},
            {whole + u"/lock"_qs, lock}, // of a run that had the number of this one
            {u"theirs/1.txt"_qs, "1"}};
        for (const auto& [file, bytes] : left) {
            QVERIFY(all.mkpath(file.section(u'/', 0, 0)));
            ui::replaceFile(all.filePath(file), bytes);
        }
        {
            Recovery recovery(kept);
            const QByteArray none = ui::fingerprintOf({});
            QCOMPARE(
                recovery.take(isText),
                (std::vector<UnsavedDocument>{
                    {u"a"_qs, {}, none, "13"}, {u"b"_qs, {}, none, "12"}}));
            QCOMPARE(recovery.unreadable().size(), 4);
            QVERIFY(recovery.keep({}).isEmpty() && names().contains(whole)); // not taken over yet
            recovery.setTakenOver();
            recovery.keep({});
        }
        QCOMPARE(names().size(), 5); // those four and theirs
        Recovery nowhere(kept + u"/theirs/1.txt"_qs);
        QVERIFY(nowhere.keep({{u"b"_qs, {}, {}, "12"}}).contains(u"1.txt"_qs));
    }
};

const ui::test::Registration<DocumentsTest> kRegistration;

#include "tst_documents.moc"
