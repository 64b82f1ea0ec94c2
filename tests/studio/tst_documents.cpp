// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"
#include "DocumentSaver.h"
#include "DocumentTabs.h"
#include "LayerTree.h"
#include "discarding.h"
#include "saving/Recovery.h"
#include "saving/documentfile.h"
#include "studiotest.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/menus/ModalDialog.h>

using namespace studio;

namespace {

/// Presses a button of the next dialogs, and counts them.
class Answer : public QObject
{
public:
    explicit Answer(QDialogButtonBox::StandardButton button)
    {
        auto* timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this, button] {
            if (auto* dialog = qobject_cast<ModalDialog*>(QApplication::activeModalWidget())) {
                ++asked;
                dialog->button(button)->click();
            }
        });
        timer->start(1);
    }

    int asked = 0;
};

constexpr auto kOwn = QFile::ReadOwner | QFile::WriteOwner;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void replace(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

struct OpenWindow : StudioWindow
{
    /// With the first samples in tabs, the last of them in front.
    explicit OpenWindow(int files)
    {
        for (int i = 0; i < files; ++i) {
            openFile(samplePaths().at(i));
        }
        show();
        QCoreApplication::processEvents();
    }

    void edit()
    {
        editor().setEntries({0, Attribute::Opacity}, 0, {{0, 12.0}});
        editor().commit();
    }

    /// Opens a file of its own, and changes it.
    QString editFile(const QTemporaryDir& folder)
    {
        const QString path = folder.filePath(u"mine.json"_qs);
        QFile::remove(path);
        QFile::copy(samplePaths().first(), path);
        QFile::setPermissions(path, kOwn);
        openFile(path);
        edit();
        return path;
    }

    QStringList tabs()
    {
        QStringList texts;
        for (int i = 0; i < documents().count(); ++i) {
            texts.append(documents().getTab(i)->text());
        }
        return texts;
    }

    void close(int index) { Q_EMIT documents().getTab(index)->closed(); }
};

/// Several documents in tabs.
class DocumentsTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:

    void everyDocumentKeepsItsPlaceAndItsHistory()
    {
        OpenWindow window(1);
        const auto* list = window.findChild<LayerTree*>();
        const Document* first = window.document();
        window.selectLayer(1);
        window.player().seek(7);
        window.viewport().showActualSize();
        window.edit();
        QVERIFY(window.tabs().first().endsWith(u'*'));

        QVERIFY(window.openFile(samplePaths().at(1)) && window.document() != first);
        QCOMPARE(window.player().frame(), window.player().frameRange().first);
        QVERIFY(list->selectedLayers().empty());
        QVERIFY(!window.isWindowModified() && !window.editor().canUndo());
        window.player().seek(3);
        window.player().play();

        window.documents().setTab(0);
        QCOMPARE(window.document(), first);
        QVERIFY(!window.player().isPlaying());
        QCOMPARE(window.player().frame(), 7);
        QCOMPARE(list->selectedLayers(), std::vector{1});
        QCOMPARE(window.viewport().mapping().scale, 1.0);
        QVERIFY(window.isWindowModified());
        window.findChild<QAction*>(u"undo"_qs)->trigger();
        QVERIFY(!window.isWindowModified() && !window.tabs().first().endsWith(u'*'));

        window.documents().getHeader()->moveTab(0, 1);
        window.documents().setTab(0);
        QCOMPARE(window.player().frame(), 3);
    }

    void aFileIsOpenOnce()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"one.json"_qs);
        QVERIFY(QFile::copy(samplePaths().first(), path));
        OpenWindow window(2);
        QVERIFY(window.openFile(path));
        const Document* document = window.document();
        window.documents().setTab(0);
        QVERIFY(window.openFile(
            folder.filePath(u"./../"_qs) + folder.path().section(u'/', -1) + u"/one.json"_qs));
        QCOMPARE(window.document(), document);
        QCOMPARE(window.documents().count(), 3);

        window.workspace().setPanelOpen(u"viewport"_qs, false);
        QVERIFY(window.openFile(path)); // what is opened is seen
        QVERIFY(window.workspace().isPanelOpen(u"viewport"_qs));
    }

    void closingAsksOnlyOverChanges()
    {
        OpenWindow window(3);
        const QStringList names = window.tabs();
        window.edit();
        window.player().play();
        window.close(0);
        QCOMPARE(window.documents().count(), 2);
        QVERIFY(window.player().isPlaying());
        {
            Answer keep(QDialogButtonBox::Cancel);
            window.close(1);
            QCoreApplication::processEvents();
            QCOMPARE(keep.asked, 1);
            QCOMPARE(window.tabs(), (QStringList{names[1], names[2] + u'*'}));
        }
        Answer discard(QDialogButtonBox::Discard);
        window.close(1);
        QCOMPARE(discard.asked, 1);
        QCOMPARE(window.tabs(), QStringList(names[1]));
        QVERIFY(!window.isWindowModified() && window.windowTitle().startsWith(names[1]));

        // What is being typed counts.
        window.openFile(samplePaths().at(0));
        connect(&window.documents(), &DocumentTabs::closing, &window, [&window] { window.edit(); });
        window.close(1);
        QCOMPARE(discard.asked, 2);
        disconnect(&window.documents(), &DocumentTabs::closing, &window, nullptr);

        window.documents().closeCurrent();
        QCOMPARE(window.documents().count(), 1);
    }

    void oneOfManyThatIsKeptComesBack()
    {
        OpenWindow window(3);
        const QStringList names = window.tabs();
        window.documents().setTab(0);
        window.player().seek(5);
        window.edit();
        const Document* edited = window.document();
        Answer keep(QDialogButtonBox::Cancel);
        window.documents().setTab(1);
        window.documents().getHeader()->closeTabs({0, 2});
        QTRY_COMPARE(window.tabs(), (QStringList{names[1], names[0] + u'*'}));
        QCOMPARE(keep.asked, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(window.document(), edited);
        QCOMPARE(window.player().frame(), 5);
        QVERIFY(window.editor().canUndo() && window.viewport().isVisible());
    }

    void savingKeepsTheHistoryAndWhatTheFileIs()
    {
        const QTemporaryDir folder;
        OpenWindow window(0);
        const QString path = window.editFile(folder);
        const QByteArray original = contents(path);
        QVERIFY(window.isWindowModified() && window.save());
        const QByteArray saved = contents(path);
        QVERIFY(saved != original && saved.contains("12"));
        QVERIFY(!window.isWindowModified() && !window.tabs().first().endsWith(u'*'));
        window.undo();
        QVERIFY(window.isWindowModified());
        window.redo();
        QVERIFY(!window.isWindowModified());
        window.undo();
        QVERIFY(window.save());
        QCOMPARE(contents(path), original);

        window.documents().saver().setChoosePath([](const QString&) { return QString(); });
        QVERIFY(!window.saveAs());
        const QString other = folder.filePath(u"other.json"_qs);
        window.documents().saver().setChoosePath([&other](const QString&) { return other; });
        window.edit();
        QVERIFY(window.saveAs());
        QCOMPARE(contents(other), saved);
        QCOMPARE(contents(path), original);
        QCOMPARE(window.tabs().first(), u"other"_qs);
        QVERIFY(window.windowTitle().startsWith(u"other"_qs));

        window.openFile(path); // a file of two tabs would be the last one's
        QVERIFY(!window.saveAs());
        QVERIFY(window.notices().texts().value(0).endsWith(u"it is open in another tab."_qs));
#ifdef Q_OS_UNIX
        const QString link = folder.filePath(u"link.json"_qs);
        QVERIFY(QFile::link(path, link));
        QCOMPARE(writeFile(link, "x"), QString());
        QCOMPARE(contents(path), QByteArray("x"));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(!QFile::permissions(path).testFlag(QFile::ReadOther));
#endif
    }

    void whatOthersHaveWrittenIsNotOverwrittenUnasked()
    {
        const QTemporaryDir folder;
        OpenWindow window(0);
        const QString path = window.editFile(folder);
        replace(path, "theirs");
        {
            Answer cancel(QDialogButtonBox::Cancel);
            QVERIFY(!window.save());
            QCOMPARE(cancel.asked, 1);
            QCOMPARE(contents(path), QByteArray("theirs"));
            QVERIFY(window.isWindowModified());
        }
        const QString other = folder.filePath(u"other.json"_qs);
        window.documents().saver().setChoosePath([&other](const QString&) { return other; });
        {
            Answer saveAs(QDialogButtonBox::Save);
            QVERIFY(window.save());
            QCOMPARE(contents(path), QByteArray("theirs"));
        }
        QFile::remove(other);
        Answer overwrite(QDialogButtonBox::Discard);
        QVERIFY(window.save()); // gone
        QVERIFY(window.save()); // as we left it
        QCOMPARE(overwrite.asked, 1);
        replace(other, "theirs");
        QVERIFY(window.save() && contents(other).contains("layers"));
    }

    void whatCannotBeSavedStaysModified()
    {
        QTemporaryDir folder;
        OpenWindow window(0);
        const QString path = window.editFile(folder);
        const QString inFile = path + u"/x.json"_qs;
        for (const QString& bad : {inFile, folder.path(), folder.filePath(u"none/x.json"_qs)}) {
            window.documents().saver().setChoosePath([&bad](const QString&) { return bad; });
            window.notices().dismissAll();
            QVERIFY(!window.saveAs());
            const QString start = u"“%1” was not saved: "_qs.arg(QDir::toNativeSeparators(bad));
            QVERIFY(window.notices().texts().value(0).startsWith(start));
            QVERIFY(window.isWindowModified());
            QCOMPARE(window.documents().current().path(), path);
        }
    }

    void changesAreSavedOnTheWayOut()
    {
        const QTemporaryDir folder;
        OpenWindow window(2);
        const QString path = window.editFile(folder);
        QString chosen;
        window.documents().saver().setChoosePath([&chosen](const QString&) { return chosen; });
        Answer save(QDialogButtonBox::Save);
        window.close(2);
        QCOMPARE(window.documents().count(), 2);
        QVERIFY(contents(path).contains("12"));

        window.edit(); // a sample, which comes from no file
        QWidget& widget = window;
        QVERIFY(!widget.close());
        chosen = folder.filePath(u"sample.json"_qs);
        QVERIFY(widget.close());
        QCOMPARE(save.asked, 3);
        QVERIFY(QFile::exists(chosen));
    }

    void quittingAsksOverChangesInAnyTab()
    {
        OpenWindow window(2);
        QWidget& widget = window;
        window.edit();
        window.documents().setTab(0);
        {
            Answer keep(QDialogButtonBox::Cancel);
            QVERIFY(!widget.close() && window.isVisible());
        }
        Answer discard(QDialogButtonBox::Discard);
        QVERIFY(widget.close());
        QCOMPARE(discard.asked, 1);
        const QString named = unsavedText({u"A\nB"_qs, QString(99, u'c')});
        QVERIFY(named.contains(u"\n• A B\n• ccc"_qs) && named.endsWith(u"c…"_qs));
        QVERIFY(unsavedText(QStringList(10, u"d"_qs)).endsWith(u"\nand 2 more"_qs));
    }

    void changesOutliveAnEndThatAsksNobody()
    {
        const QTemporaryDir folder;
        const QString kept = folder.filePath(u"kept"_qs);
        QString path;
        QByteArray original;
        {
            OpenWindow window(1);
            QVERIFY(!window.keepUnsavedIn(kept));
            path = window.editFile(folder);
            original = contents(path);
            ui::test::FakeClock(&window).fireTimers(5000);
            QVERIFY(QFile::exists(kept));             // it might crash from here on
            QVERIFY(Recovery(kept).take({}).empty()); // of a run that goes on
        }
        {
            OpenWindow window(0);
            QVERIFY(window.keepUnsavedIn(kept) && window.isWindowModified());
            window.openFile(samplePaths().at(1));
            window.edit();
            window.putAway(); // and once more
            ui::test::FakeClock clock(&window);
            clock.fireTimers(60'000);
            window.documents().setTab(0);
            const Answer discard(QDialogButtonBox::Discard);
            window.close(1); // behind the one in front
            clock.fireTimers(60'000);
        }
        for (const QString& file : {u"/damaged/index.json"_qs, u"/unfinished/1.json"_qs}) {
            QVERIFY(QDir(kept).mkdir(file.section(u'/', 1, 1)));
            replace(kept + file, "{");
        }
        OpenWindow window(0);
        QVERIFY(window.keepUnsavedIn(kept));
        QCOMPARE(window.tabs().size(), 1);
        QVERIFY(window.tabs().first().endsWith(u'*'));
        QCOMPARE(window.documents().current().path(), path);
        QCOMPARE(contents(path), original);
        QVERIFY(window.save()); // over the very file, without a question
        QVERIFY(contents(path) != original && static_cast<QWidget&>(window).close());
        QCOMPARE(
            QDir(kept).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList(u"damaged"_qs));
    }

    void documentsAreTurnedThroughByKeys()
    {
        OpenWindow window(3);
        studio::test::showActive(window);
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> keys[] = {
            {Qt::Key_Tab, Qt::ControlModifier, 0},
            {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, 2},
            {Qt::Key_PageUp, Qt::ControlModifier, 1},
            {Qt::Key_PageDown, Qt::ControlModifier, 2}};
        for (const auto& [key, modifiers, shown] : keys) {
            QTest::keyClick(&window, key, modifiers);
            QCOMPARE(window.documents().activeTab(), shown);
        }
        window.edit();
        window.undo();
        QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(window.isWindowModified());
    }
};

const ui::test::Registration<DocumentsTest> kRegistration;
} // namespace

#include "tst_documents.moc"
