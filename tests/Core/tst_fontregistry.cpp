// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <Core/FontRegistry.h>

namespace {

using Paths = std::vector<std::string>;

std::string testFont()
{
    return (ui::test::dataPath(u"theme"_qs) + u"/MorrantTest.ttf"_qs).toStdString();
}

auto appendTo(Paths& reported)
{
    return [&reported](const std::string& path) { reported.push_back(path); };
}

} // namespace

class FontRegistryTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFontIsReadAndReportedOnce()
    {
        morrant::FontRegistry registry;
        const auto typeface = registry.addFont(testFont());
        QVERIFY(typeface);
        QCOMPARE(registry.families(), std::vector<std::string>{"Morrant Test"});
        QCOMPARE(registry.typefaces("Morrant Test"), std::vector{typeface});
        QVERIFY(registry.typefaces("morrant test").empty());

        Paths reported;
        registry.setFontFileCallback(appendTo(reported));
        QCOMPARE(registry.addFont(testFont()), typeface);
        registry.addFont(testFont());
        registry.setFontFileCallback(appendTo(reported));
        registry.addFont(testFont());
        QCOMPARE(reported, Paths{testFont()});
    }

    void whatIsNoFontIsNeitherKeptNorReported()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"Schrift \u00e4\u5b57.ttf"_qs);
        morrant::FontRegistry registry;
        Paths reported;
        registry.setFontFileCallback(appendTo(reported));
        QVERIFY(!registry.addFont(path.toStdString()));
        QVERIFY(!registry.addFont(folder.path().toStdString()) && !registry.addFont({}));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no font") > 0);
        file.close();
        QVERIFY(!registry.addFont(path.toStdString()));
        QVERIFY(reported.empty() && registry.families().empty());

        // A font that takes the place of the bad file is found.
        QVERIFY(file.remove() && QFile::copy(QString::fromStdString(testFont()), path));
        QVERIFY(registry.addFont(path.toStdString()));
        QCOMPARE(reported, Paths{path.toStdString()});
    }

    void aCallbackMayUseTheRegistry()
    {
        morrant::FontRegistry registry;
        Paths reported;
        const std::string marker(
            100, 'x'); // long enough for the heap, where a freed copy is noticed
        registry.setFontFileCallback([&registry, &reported, marker](const std::string& file) {
            registry.setFontFileCallback({});
            registry.addFont(file);
            reported.push_back(file + marker);
        });
        QVERIFY(registry.addFont(testFont()));
        QCOMPARE(reported, Paths{testFont() + marker});
    }
};

const ui::test::Registration<FontRegistryTest> kRegistration;

#include "tst_fontregistry.moc"
