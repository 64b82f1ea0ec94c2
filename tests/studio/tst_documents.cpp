// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"
#include "DocumentTabs.h"
#include "LayerTree.h"
#include "menus/answers.h"
#include "studiotest.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/menus/ModalDialog.h>

using namespace studio;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
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
};

/// Several documents in tabs.
class DocumentsTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyDocumentKeepsItsPlaceAndItsHistory()
    {
        OpenWindow window(1);
        studio::test::showActive(window);
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

        QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(window.isWindowModified());

        window.documents().getHeader()->moveTab(0, 1);
        QTest::keyClick(&window, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(window.player().frame(), 3);
    }

    void whatIsOpenedIsSeen()
    {
        OpenWindow window(2);
        window.workspace().setPanelOpen(u"viewport"_qs, false);
        QVERIFY(window.openFile(samplePaths().at(0)));
        QVERIFY(window.workspace().isPanelOpen(u"viewport"_qs));
        QCOMPARE(window.documents().count(), 2);
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
    }

    void changesAreSavedOnTheWayOut()
    {
        const QTemporaryDir folder;
        OpenWindow window(2);
        const QString path = window.editFile(folder);
        const QByteArray original = contents(path);
        QWidget& widget = window;
        for (const auto button : {QDialogButtonBox::Cancel, QDialogButtonBox::Save}) {
            ui::test::answerDialog([button](QDialog& dialog) {
                static_cast<ModalDialog&>(dialog).button(button)->click();
            });
            QCOMPARE(widget.close(), button == QDialogButtonBox::Save);
            QCOMPARE(contents(path) != original, button == QDialogButtonBox::Save);
        }
    }

    void changesOutliveAnEndThatAsksNobody()
    {
        const QTemporaryDir folder;
        const QString kept = folder.filePath(u"kept"_qs);
        QString path;
        {
            OpenWindow window(1);
            QVERIFY(!window.keepUnsavedIn(kept));
            path = window.editFile(folder);
            window.putAway();
        }
        const QByteArray original = contents(path);
        OpenWindow window(0);
        QVERIFY(window.keepUnsavedIn(kept) && window.isWindowModified());
        QCOMPARE(window.tabs().size(), 1);
        QCOMPARE(window.documents().current().path(), path);
        QVERIFY(window.save()); // over the very file, without a question
        QVERIFY(contents(path) != original && static_cast<QWidget&>(window).close());
        QVERIFY(QDir(kept).isEmpty());
    }
};

const ui::test::Registration<DocumentsTest> kRegistration;
} // namespace

#include "tst_documents.moc"
